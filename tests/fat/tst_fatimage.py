#!/usr/bin/python3
"""Tests the reader of FAT images with bytes written out by hand."""

import hashlib
import os
import struct
import tempfile
import unittest

from fatimage import Image

SECTOR = 512
LATIN_LONG_NAME = "A long name.mid"


def boot_sector(is_fat32):
    # One reserved sector, two FATs of one sector; FAT16: 16 entries in the root. 20 sectors.
    sector = bytearray(SECTOR)
    struct.pack_into("<HBHBHH", sector, 11, SECTOR, 1, 1, 2, 0 if is_fat32 else 16, 20)
    struct.pack_into("<H", sector, 22, 0 if is_fat32 else 1)
    if is_fat32:
        struct.pack_into("<LHHL", sector, 36, 1, 0, 0, 2)
    return bytes(sector)


def table(chains, is_fat32=False):
    """A FAT in which the last number of each chain of clusters ends it."""
    entries = [0] * 128
    for chain in chains:
        for cluster, following in zip(chain, chain[1:]):
            entries[cluster] = following
    content = struct.pack(f"<128{'L' if is_fat32 else 'H'}", *entries)
    return content.ljust(SECTOR, b"\0")


def entry(name, first, size, attributes=0x20, case=0):
    return struct.pack("<11sBB7xHHHHL", name, attributes, case, first >> 16, 0, 0,
                       first & 0xFFFF, size)


def long_entries(short, checksum):
    """The two entries of the long name before the short one."""
    units = (LATIN_LONG_NAME + "\0").ljust(26, "\uffff").encode("utf-16-le")
    pieces = []
    for number, part in ((0x42, units[26:]), (0x01, units[:26])):
        pieces.append(struct.pack("<B10sBBB12sH4s", number, part[:10], 0x0F, 0, checksum,
                                  part[10:22], 0, part[22:26]))
    return b"".join(pieces) + short


def read(chains, root, clusters, is_fat32=False):
    """Reads an image with these chains, root folder and contents of the clusters from 2 on. On
    FAT32 the root is the first of the clusters."""
    fat = table(chains, is_fat32)
    image = boot_sector(is_fat32) + fat + fat
    for part in ([root] if root is not None else []) + clusters:
        image += part.ljust(SECTOR, b"\0")
    with tempfile.TemporaryFile() as file:
        file.write(image)
        file.truncate(20 * SECTOR)
        return Image(file.fileno()).read()


def sha1(content):
    return hashlib.sha1(content).hexdigest()


class FatImage(unittest.TestCase):
    def testReadsAFileThroughItsChain(self):
        tree = read([[2, 4, 0xFFFF]], entry(b"SONG    MID", 2, 600),
                    [b"a" * 512, b"-" * 512, b"b" * 512])
        self.assertEqual(tree.digests(), {"SONG.MID": sha1(b"a" * 512 + b"b" * 88)})
        self.assertEqual(tree.files["SONG.MID"].clusters, [2, 4])

    def testReadsFat32(self):
        tree = read([[2, 0x0FFFFFFF], [3, 0xFFFFFFF8]], None,
                    [entry(b"SONG    MID", 3, 3), b"abc"], is_fat32=True)
        self.assertEqual(tree.digests(), {"SONG.MID": sha1(b"abc")})

    def testReadsAFolder(self):
        dots = entry(b".          ", 2, 0, 0x10) + entry(b"..         ", 0, 0, 0x10)
        tree = read([[2, 0xFFFF], [3, 0xFFFF]], entry(b"SONGS      ", 2, 0, 0x10),
                    [dots + entry(b"A       MID", 3, 1), b"x"])
        self.assertEqual(tree.folders, {"SONGS"})
        self.assertEqual(tree.digests(), {"SONGS/A.MID": sha1(b"x")})

    def testReadsALongName(self):
        short = entry(b"ALONGN~1MID", 0, 0)
        self.assertEqual(list(read([], long_entries(short, 0xE9), []).files), [LATIN_LONG_NAME])

    def testTakesALongNameOfAnotherEntryForNone(self):
        short = entry(b"ALONGN~1MID", 0, 0)
        self.assertEqual(list(read([], long_entries(short, 0xE8), []).files), ["ALONGN~1.MID"])

    def testReadsLowerCase(self):
        self.assertEqual(list(read([], entry(b"SONG    MID", 0, 0, case=0x18), []).files),
                         ["song.mid"])

    def testPassesOverDeletedEntriesAndLabels(self):
        root = entry(b"\xe5ONE    MID", 0, 0) + entry(b"LABEL      ", 0, 0, 0x08)
        self.assertEqual(read([], root + entry(b"B       MID", 0, 0), []).digests(),
                         {"B.MID": sha1(b"")})

    def testReportsAShortChain(self):
        tree = read([[2, 0xFFFF]], entry(b"SONG    MID", 2, 600), [])
        self.assertEqual(tree.digests(), {"SONG.MID": "600 bytes in 1 of 2 clusters"})

    def testReportsAChainWithoutAnEnd(self):
        tree = read([[2, 3, 0]], entry(b"SONG    MID", 2, 600), [])
        self.assertEqual(tree.digests(), {"SONG.MID": "600 bytes in 2 of 2 clusters, no end"})

    def testReportsALoop(self):
        tree = read([[2, 3, 2]], entry(b"SONG    MID", 2, 600), [])
        self.assertEqual(tree.digests(), {"SONG.MID": "600 bytes in 2 of 2 clusters, no end"})

    def testReportsSharedClusters(self):
        root = entry(b"A       MID", 2, 600) + entry(b"B       MID", 3, 1)
        tree = read([[2, 3, 0xFFFF]], root, [])
        self.assertEqual(tree.shared, {("A.MID", "B.MID")})

    def testReportsTwoEntriesOfOneName(self):
        tree = read([], entry(b"A       MID", 0, 0) * 2, [])
        self.assertEqual(tree.doubles, {"A.MID"})

    def testEndsInAFolderWithinItself(self):
        tree = read([[2, 0xFFFF]], entry(b"SONGS      ", 2, 0, 0x10),
                    [entry(b"AGAIN      ", 2, 0, 0x10)])
        self.assertEqual(tree.shared, {("SONGS", "SONGS/AGAIN")})


if __name__ == "__main__":
    unittest.main()
