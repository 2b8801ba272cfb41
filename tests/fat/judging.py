"""The allowed content of a memory after a cut, and the required content when a job is done."""

import re

INDEX = re.compile(r"[a-z]+[0-9]?\.id2")
WORK = re.compile(r"(.*/)?(\.brisel.*|[^/]*\.tmp|[^/]* \(again\))(/.*)?")
RESCUED = re.compile(r"FSCK[0-9]+\.REC")  # files that fsck makes from lost clusters
LAST_OF_INDEX = "fsinfos.id2"


def is_index(path):
    return INDEX.fullmatch(path) is not None


def is_work(path):
    """True for internal files of the program or of fsck."""
    return WORK.fullmatch(path) is not None or RESCUED.fullmatch(path) is not None


def renames(old, new):
    """The old and the new path of each song that gets another path."""
    gone = {old[path]: path for path in old if path not in new and not is_work(path)}
    return {gone[digest]: path for path, digest in new.items()
            if path not in old and digest in gone}


class Judge:
    """Judges a job by the digests of all files before it, after it, and after it was done again."""

    def __init__(self, old, new, again):
        self.old = old
        self.new = new
        self.again = again
        self.moved = renames(old, new)
        self.moved_to = {target: source for source, target in self.moved.items()}
        self.songs = sorted(path for path in old.keys() | new.keys()
                            if not is_index(path) and not is_work(path))
        self.index = sorted(path for path in new if is_index(path))

    def at_done(self, tree):
        """What is wrong on a memory that was pulled after the program reported "done"."""
        found = tree.digests()
        faults = [f"done, but {path}: {_what(found.get(path), self.old.get(path))}"
                  for path, digest in self.new.items() if found.get(path) != digest]
        left = [path for path in found if path not in self.new]
        faults += [f"done, but {path} is left" for path in left if not RESCUED.fullmatch(path)]
        if any(RESCUED.fullmatch(path) for path in left):
            faults.append("done, but clusters are lost")
        return faults + self._tangles(tree)

    def before(self, tree):
        """What is wrong on a memory that was pulled earlier, and which songs are whole under
        another name, so that the next run must restore them."""
        found = tree.digests()
        faults, aside = self._song_faults(found, {})
        return faults + self._index_faults(found) + self._tangles(tree), aside

    def after_next_run(self, tree):
        """What is wrong after the job was cut and done again."""
        found = tree.digests()
        faults, aside = self._song_faults(found, self.again)
        faults += [f"{song} still" for song in aside]
        if any(found.get(path) not in (self.new[path], self.again.get(path))
               for path in self.index):
            faults.append("the index is another one")
        return faults + self._tangles(tree)

    def _song_faults(self, found, also):
        """Songs that are neither old nor new, nor as in "also", and those of them that are whole
        under another name."""
        whole = {}
        for path, digest in found.items():
            whole.setdefault(digest, path)
        faults = []
        aside = []
        for path in self.songs:
            if path in self.moved_to:
                continue
            wanted = {self.old.get(path), self.new.get(path)}
            if path in also:
                wanted.add(also[path])
            if path in self.moved:
                wanted = {self.old[path]}
                if found.get(self.moved[path]) in wanted:
                    continue
            if found.get(path) in wanted:
                continue
            spare = next((whole[digest] for digest in wanted if digest in whole), None)
            if spare:
                aside.append(f"{path} is {spare}")
            else:
                faults.append(f"{path}: {_what(found.get(path), None)}")
        return faults, aside

    def _index_faults(self, found):
        """The player treats an index that has its last file as a whole one."""
        if LAST_OF_INDEX not in found:
            return []
        for side in (self.old, self.new):
            if all(found.get(path) == side.get(path) for path in self.index):
                return []
        wrong = [path for path in self.index
                 if found.get(path) not in (self.old.get(path), self.new.get(path))]
        if wrong:
            return [f"{path}: {_what(found.get(path), None)}" for path in wrong]
        return ["an index of old and new files"]

    def _tangles(self, tree):
        """Songs that share clusters with other files, or have more than one entry."""
        faults = []
        for pair in sorted(tree.shared):
            files = [tree.files.get(path) for path in pair]
            if all(path in tree.folders for path in pair):
                faults.append(f"two names for one folder: {pair[0]}, {pair[1]}")
            elif not any(path in self.songs or path in self.index for path in pair):
                continue
            elif all(files) and files[0].clusters == files[1].clusters:
                faults.append(f"two names for one file: {pair[0]}, {pair[1]}")
            else:
                faults.append(f"cross-linked: {pair[0]}, {pair[1]}")
        faults += [f"more than one entry: {path}" for path in sorted(tree.doubles)]
        return faults


def _what(digest, old):
    if digest is None:
        return "missing"
    if digest == old:
        return "the old one"
    if digest == "da39a3ee5e6b4b0d3255bfef95601890afd80709":
        return "0 bytes"
    return "other content" if re.fullmatch("[0-9a-f]{40}", digest) else digest


def windows(faults_by_cut, blocks):
    """Each fault with the first and the last block of each series of cuts that have it, as a list of
    (fault, first, last). "faults_by_cut" is a list of (block, faults) in order, of "blocks"."""
    done = []
    under_way = {}
    for block, faults in faults_by_cut + [(blocks + 1, [])]:
        for fault in list(under_way):
            if fault not in faults:
                done.append((fault, under_way.pop(fault), block - 1))
        for fault in faults:
            under_way.setdefault(fault, block)
    return sorted(done, key=lambda window: window[1:])
