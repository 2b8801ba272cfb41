"""Scripts that scripts/realfat runs on the kernel that it boots."""

import os
import subprocess
from dataclasses import dataclass

DISKS = 16  # the most that one kernel can have
LETTERS = "abcdefghijklmnop"

# /dev belongs to the kernel, everything else to the machine.
START = """export LC_ALL=C.UTF-8 TZ=UTC HOME=/dev/home XDG_CONFIG_HOME=/dev/home TMPDIR=/dev/home
mkdir /dev/home /dev/memory
sums() {{
    cd /dev/memory
    find . -type f -exec sha1sum {{}} + >"$1.part" 2>/dev/null
    mv "$1.part" "$1"
    cd /
}}
echo {writeback} >/proc/sys/vm/dirty_writeback_centisecs
echo {expire} >/proc/sys/vm/dirty_expire_centisecs
"""

# Makes a used memory: files with long names before the songs, which are removed again, and others
# between the songs, which stay.
USED = """for folder in . $(cd {tree} && find . -type d); do
    mkdir -p "/dev/memory/$folder"
    for i in 1 2 3 4 5; do
        head -c 1500 /dev/zero >"/dev/memory/$folder/a file that goes again $i"
    done
done
mkdir /dev/memory/KEPT
for i in 1 2 3 4 5 6 7 8 9; do
    head -c 1200 /dev/zero >"/dev/memory/a file that goes again, too $i"
    head -c 1200 /dev/zero | tr '\\0' $i >/dev/memory/KEPT/$i
done
"""
FILL = """cp -a {tree}/. /dev/memory/
find /dev/memory -name 'a file that goes again*' -delete
"""


@dataclass
class Step:
    """What is done with one image: it is mounted, and a command, which may be empty, is run."""

    image: str
    options: str
    command: str
    is_next_run: bool = False  # the files are listed before the command, not after it


def fill_command(tree, is_used):
    return ((USED if is_used else "") + FILL).format(tree=tree)


def boot(realfat, work, name, steps, is_hurried=False):
    """Boots once for all steps. Writes ".sums" and ".status" files beside each image."""
    assert len(steps) <= DISKS
    # In hundredths of a second; 0 means never.
    lines = [START.format(writeback=int(is_hurried), expire=1 if is_hurried else 3000)]
    for letter, step in zip(LETTERS, steps):
        lines.append(f"mount -t vfat -o {step.options} /dev/ubd{letter} /dev/memory || exit 9")
        if step.is_next_run:
            lines.append(f"sums {step.image}.sums")
        if step.command:
            lines.append(f"( {step.command} ) >{step.image}.output 2>&1")
            lines.append(f"status=$?; echo $status >{step.image}.status")
            lines.append(f"[ $status -ne 0 ] || : >{step.image}.done")
        if not step.is_next_run:
            lines.append(f"sums {step.image}.sums")
        lines.append("umount /dev/memory || exit 8")
    script = os.path.join(work, name + ".sh")
    with open(script, "w", encoding="utf-8") as job:
        job.write("\n".join(lines) + "\n")
    for step in steps:
        for suffix in (".sums", ".status", ".done"):
            if os.path.exists(step.image + suffix):
                os.remove(step.image + suffix)
    result = subprocess.run([realfat, script, *(step.image for step in steps)],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if result.returncode != 0:
        raise OSError(f"{script}: status {result.returncode}: {result.stdout.decode()[-2000:]}")


def status(image):
    with open(image + ".status", encoding="ascii") as file:
        return int(file.read())


def sums(image):
    """The digests of all files as the kernel read them."""
    with open(image + ".sums", encoding="utf-8") as file:
        return {path[2:]: digest for digest, path in
                (line.rstrip("\n").split("  ", 1) for line in file)}
