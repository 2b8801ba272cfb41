"""Replays the log of a disk, write by write, and repairs the image after a cut with fsck."""

import os
import struct
import subprocess

HEAD = struct.Struct("<8sqq")
SECTOR = 512


def read_log(path):
    """The (offset, bytes) written until the job was done, and those written later."""
    before, later = [], []
    writes = before
    with open(path, "rb") as log:
        while head := log.read(HEAD.size):
            kind, offset, size = HEAD.unpack(head)
            if kind[:1] == b"D":
                writes = later
            elif kind[:1] == b"W":
                writes.append((offset, log.read(size)))
    if writes is before:
        raise EOFError(f"{path}: the job came to no end")
    return before, later


def copy_sparse(source, target):
    """Copies an image with its holes."""
    with open(source, "rb") as given, open(target, "wb") as taken:
        size = os.fstat(given.fileno()).st_size
        taken.truncate(size)
        begin = 0
        while begin < size:
            try:
                begin = os.lseek(given.fileno(), begin, os.SEEK_DATA)
            except OSError:
                return
            end = os.lseek(given.fileno(), begin, os.SEEK_HOLE)
            os.pwrite(taken.fileno(), os.pread(given.fileno(), end - begin, begin), begin)
            begin = end


def sectors(offset, content):
    for at in range(0, len(content), SECTOR):
        yield offset + at, content[at:at + SECTOR]


def count_blocks(writes):
    return sum(1 for write in writes for _ in sectors(*write))


def make_cut(base, writes, blocks, path):
    """Makes the image of a memory that was pulled after the given number of blocks."""
    copy_sparse(base, path)
    left = blocks
    with open(path, "r+b") as image:
        for write in writes:
            for offset, sector in sectors(*write):
                if left == 0:
                    return
                os.pwrite(image.fileno(), sector, offset)
                left -= 1


def cuts(image, writes):
    """Applies the writes to the file of the image. Yields the number of blocks written
    so far and the tree found, before the first block and after each one that changed what can be
    found. A block in an unused cluster does not change the tree."""
    tree = image.read()
    blocks = 0
    yield blocks, tree
    for offset, content in writes:
        # A single write to the disk may be cut between any two of its blocks.
        for at, sector in sectors(offset, content):
            blocks += 1
            if os.pread(image.file, len(sector), at) == sector:
                continue
            os.pwrite(image.file, sector, at)
            cluster = image.cluster_at(at)
            if cluster and cluster not in tree.owners:
                continue
            tree = image.read()
            yield blocks, tree


def repair(path, target):
    """Copies the image and repairs the copy with the system's tool."""
    copy_sparse(path, target)
    result = subprocess.run(["/usr/sbin/fsck.vfat", "-a", target], stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL, check=False)
    if result.returncode > 1:
        raise OSError(f"fsck.vfat failed with {result.returncode} on {target}")
