"""The memory on which the jobs are done, the jobs themselves and the FAT file systems."""

import hashlib
import os
import shutil
import subprocess
from dataclasses import dataclass

RECORD_SIZE = 64


@dataclass(frozen=True)
class Job:
    name: str
    arguments: str  # of brisel_worker; {m} is the memory and {s} the folder of the sample songs
    memory: str = "indexed"  # or another one of MEMORIES
    again: tuple = (0,)  # the exit codes allowed when the job runs a second time


# In "changed", songs were added, removed and given long names; "listed" has playlists as the player
# writes them, with a path file and without.
MEMORIES = ("indexed", "changed", "listed")

# "songs" is like a synchronisation: all songs are saved in one lot.
JOBS = [
    Job("midi", "save {m}/BASI/ODEFREUD.MID"),
    Job("container", "save {m}/SONGS/AMAZIGRA.zb4"),
    Job("mp3", "save {m}/SONGS/YANKEDOO.mp3"),
    Job("songs", "save {m}/BASI/ODEFREUD.MID {m}/SONGS/AMAZIGRA.zb4 {m}/SONGS/YANKEDOO.mp3"
                 " {m}/MP3/Saints.MP3 {m}/BASI/NATALE01.zb3 {m}/twinktwi.mid"),
    # The graphics beside an MP3 are never copied over older ones.
    Job("copy", "copy {m}/BASI {s}/Greens02.mid {s}/Cucaracha.mp3 {s}/SCALADO.MID", again=(0, 1)),
    Job("list", "list {m} {m}/LISTS/LIST.TXT"),
    Job("playlists", "playlists {m}", "listed"),
    Job("update", "update {m}", "changed"),
    Job("rebuild", "index {m}", "changed"),
]


@dataclass(frozen=True)
class Fat:
    name: str
    arguments: tuple  # of mkfs.vfat
    kilobytes: int
    is_used: bool  # files before the songs were deleted, and some between them kept


FATS = [
    Fat("FAT16", ("-F", "16", "-s", "1"), 4096, True),
    Fat("FAT16-4K", ("-F", "16", "-s", "8"), 20480, False),
    Fat("FAT32", ("-F", "32", "-s", "1"), 34000, True),
]

# How a memory is mounted. With the first three the kernel writes nothing back by itself, so data
# that a job does not flush are missing; with "hurried" it writes everything back every 10 ms.
MOUNTS = {"flush": "utf8,flush", "none": "utf8", "sync": "utf8,sync", "hurried": "utf8"}


KEPT = "KEPT/"  # a folder that only a used memory has


def is_hurried(mount):
    return mount == "hurried"


FOLDERS = {
    "BASI": ("ODEFREUD.MID", "NATALE01.zb3", "SCALADO.MID"),
    "SONGS": ("AMAZIGRA.zb4", "FRAMARTI.kar", "YANKEDOO.mp3"),
    "MP3": ("Saints.MP3", "ohmydarl.mp3", "SLITTA.ZB5"),
    ".": ("twinktwi.mid",),
}
ADDED = {
    "BASI": ("Greens02.mid",),
    "A long folder": ("Valzer delle candele.mid",),
    "MP3": ("Cucaracha.mp3", "Cucaracha.cdg"),
}


def run_worker(worker, arguments, folder, expected=(0,)):
    environment = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder, LC_ALL="C.UTF-8", TZ="UTC")
    result = subprocess.run([worker, *arguments], check=False, env=environment,
                            stderr=subprocess.DEVNULL)
    if result.returncode not in expected:
        raise OSError(f"{' '.join(arguments)}: status {result.returncode}")


def put_songs(samples, memory, folders):
    for folder, names in folders.items():
        os.makedirs(os.path.join(memory, folder), exist_ok=True)
        for name in names:
            shutil.copy(os.path.join(samples, name), os.path.join(memory, folder, name))


def put_file(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(content)


def date_files(memory):
    """Gives all files a time that FAT can store, because the index would differ otherwise."""
    for folder, _, names in os.walk(memory):
        for name in names:
            os.utime(os.path.join(folder, name), (1700000000, 1700000000))


def playlist(ids):
    return b"".join(i.to_bytes(4, "big") + bytes(RECORD_SIZE - 4) for i in ids)


def records(path):
    """The records of an index file or playlist, in order."""
    with open(path, "rb") as file:
        content = file.read()
    return [content[at:at + RECORD_SIZE] for at in range(0, len(content), RECORD_SIZE)]


def put_playlist(memory, number, ids, has_paths):
    """Writes the playlist of these songs, with a path file or without."""
    songs = {record[:4]: record for record in records(os.path.join(memory, "title.id2"))}
    paths = {record[:4]: record[4:50] for record in records(os.path.join(memory, "index.id2"))}
    keys = [i.to_bytes(4, "big") for i in ids]
    name = os.path.join(memory, f"playlist/play{number:04}")
    put_file(name + ".dat", b"".join(songs[key] for key in keys))
    if has_paths:
        put_file(name + ".pts", b"".join(paths[key].ljust(RECORD_SIZE, b"\0") for key in keys))


def make_memories(work, makesamples, worker):
    """Makes the memories and the sample songs in the folder "work", outside of FAT."""
    samples = os.path.join(work, "samples")
    subprocess.run([makesamples, samples], check=True, stdout=subprocess.DEVNULL)
    indexed = os.path.join(work, "indexed")
    put_songs(samples, indexed, FOLDERS)
    run_worker(worker, ["save", os.path.join(indexed, "BASI/SCALADO.MID")], work)
    put_file(os.path.join(indexed, "NOTES.TXT"), b"not a song")
    put_file(os.path.join(indexed, "LISTS/LIST.TXT"), b"the old list")
    date_files(indexed)
    run_worker(worker, ["index", indexed], work)
    put_file(os.path.join(indexed, "playlist/playlist.dat"),
             b"\1" + bytes(31) + b"\2" + bytes(31))
    put_file(os.path.join(indexed, "playlist/play0001.dat"), playlist([3, 1, 8]))
    put_file(os.path.join(indexed, "playlist/play0002.dat"), playlist([9, 2, 4, 6]))
    date_files(indexed)

    listed = os.path.join(work, "listed")
    shutil.copytree(indexed, listed)
    put_playlist(listed, 1, [3, 1, 8], has_paths=True)
    put_playlist(listed, 2, [9, 2, 4, 6], has_paths=False)
    date_files(listed)

    changed = os.path.join(work, "changed")
    shutil.copytree(indexed, changed)
    put_songs(samples, changed, ADDED)
    run_worker(worker, ["save", os.path.join(changed, "BASI/ODEFREUD.MID")], work)
    os.remove(os.path.join(changed, "SONGS/FRAMARTI.kar"))
    date_files(changed)


def digests(folder):
    """The digests of all files below a folder, by their relative paths."""
    found = {}
    for place, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(place, name)
            with open(path, "rb") as file:
                found[os.path.relpath(path, folder)] = hashlib.sha1(file.read()).hexdigest()
    return found


def do_elsewhere(work, worker, job):
    """Does the job outside of FAT. Returns the digests of all files after it, and after it was done
    a second time."""
    folder = os.path.join(work, "elsewhere")
    shutil.copytree(os.path.join(work, job.memory), folder)
    arguments = job.arguments.format(m=folder, s=os.path.join(work, "samples")).split()
    results = []
    for expected in ((0,), job.again):
        run_worker(worker, arguments, work, expected)
        results.append(digests(folder))
    shutil.rmtree(folder)
    return results


def make_image(fat, path):
    if os.path.exists(path):
        os.remove(path)
    subprocess.run(["/usr/sbin/mkfs.vfat", *fat.arguments, "-C", path, str(fat.kilobytes)],
                   check=True, stdout=subprocess.DEVNULL)
