"""Reads FAT16 and FAT32 images, sound or damaged. Changes nothing."""

import array
import hashlib
import os
import struct
from dataclasses import dataclass, field

ENTRY_SIZE = 32
LONG_NAME = 0x0F
VOLUME_LABEL = 0x08
FOLDER = 0x10


@dataclass
class File:
    """What one entry of a folder leads to."""

    size: int
    first: int
    clusters: list
    digest: str  # SHA-1, or a description of what is wrong


@dataclass
class Tree:
    """Everything that was found, by paths without a leading "/"."""

    files: dict = field(default_factory=dict)
    folders: set = field(default_factory=set)
    shared: set = field(default_factory=set)  # pairs of paths that share a cluster
    doubles: set = field(default_factory=set)  # paths with more than one entry
    owners: dict = field(default_factory=dict)  # cluster: the first path that leads to it
    folder_clusters: set = field(default_factory=set)

    def digests(self):
        return {path: file.digest for path, file in self.files.items()}


class Image:
    """A file system in an open file; its geometry is read once and must not change."""

    def __init__(self, file):
        self.file = file
        boot = os.pread(file, 512, 0)
        sector, per_cluster, reserved, fats, entries, small = struct.unpack_from(
            "<HBHBHH", boot, 11)
        fat_size = struct.unpack_from("<H", boot, 22)[0]
        self.is_fat32 = fat_size == 0
        if self.is_fat32:
            fat_size, = struct.unpack_from("<L", boot, 36)
        self.cluster_size = sector * per_cluster
        self.fat_start = reserved * sector
        self.fat_bytes = fat_size * sector
        self.root_start = self.fat_start + fats * self.fat_bytes
        self.root_bytes = entries * ENTRY_SIZE
        self.root_cluster = struct.unpack_from("<L", boot, 44)[0] if self.is_fat32 else 0
        self.data_start = self.root_start + self.root_bytes
        sectors = small or struct.unpack_from("<L", boot, 32)[0]
        self.last_cluster = (sectors * sector - self.data_start) // self.cluster_size + 1

    def cluster_at(self, offset):
        """The cluster with the byte, or 0 if it is before the first cluster."""
        if offset < self.data_start:
            return 0
        return (offset - self.data_start) // self.cluster_size + 2

    def read(self):
        """Walks all folders. Entries that can't be read are in the tree, with the reason."""
        table = array.array("I" if self.is_fat32 else "H")
        table.frombytes(os.pread(self.file, self.fat_bytes, self.fat_start))
        tree = Tree()
        if self.is_fat32:
            self._read_folder(tree, table, "", self.root_cluster)
        else:
            root = os.pread(self.file, self.root_bytes, self.root_start)
            self._read_entries(tree, table, "", root)
        return tree

    def _chain(self, table, first):
        """The clusters from the first one on, and whether the chain ends as it should."""
        mask, end = (0x0FFFFFFF, 0x0FFFFFF8) if self.is_fat32 else (0xFFFF, 0xFFF8)
        clusters = []
        seen = set()
        cluster = first
        while 2 <= cluster <= self.last_cluster and cluster not in seen:
            seen.add(cluster)
            clusters.append(cluster)
            cluster = table[cluster] & mask
        return clusters, cluster >= end

    def _content(self, clusters):
        parts = []
        begin = 0
        for i in range(1, len(clusters) + 1):
            if i == len(clusters) or clusters[i] != clusters[i - 1] + 1:
                offset = self.data_start + (clusters[begin] - 2) * self.cluster_size
                parts.append(os.pread(self.file, (i - begin) * self.cluster_size, offset))
                begin = i
        return b"".join(parts)

    def _own(self, tree, path, clusters):
        for cluster in clusters:
            owner = tree.owners.setdefault(cluster, path)
            if owner != path:
                tree.shared.add((owner, path))

    def _read_folder(self, tree, table, path, first):
        clusters, _ = self._chain(table, first)
        # A folder inside itself has been read already.
        if clusters and clusters[0] in tree.folder_clusters:
            tree.shared.add((tree.owners[clusters[0]], path))
            return
        self._own(tree, path, clusters)
        tree.folder_clusters.update(clusters)
        self._read_entries(tree, table, path, self._content(clusters))

    def _read_entries(self, tree, table, folder, entries):
        pieces = {}
        for offset in range(0, len(entries), ENTRY_SIZE):
            entry = entries[offset:offset + ENTRY_SIZE]
            if entry[0] == 0:
                return
            attributes = entry[11]
            if entry[0] == 0xE5:
                pieces = {}
            elif attributes & 0x3F == LONG_NAME:
                if entry[0] & 0x40:
                    pieces = {}
                pieces[entry[0] & 0x3F] = entry
            else:
                name = _long_name(pieces, entry) or _short_name(entry)
                pieces = {}
                if not attributes & VOLUME_LABEL and name not in (".", ".."):
                    self._enter(tree, table, folder + "/" + name if folder else name, entry)

    def _enter(self, tree, table, path, entry):
        high, = struct.unpack_from("<H", entry, 20)
        low, size = struct.unpack_from("<HL", entry, 26)
        first = (high << 16 if self.is_fat32 else 0) | low
        if path in tree.files or path in tree.folders:
            tree.doubles.add(path)
            path += " (again)"
        if entry[11] & FOLDER:
            tree.folders.add(path)
            self._read_folder(tree, table, path, first)
            return
        clusters, is_ended = self._chain(table, first)
        self._own(tree, path, clusters)
        needed = -(-size // self.cluster_size)
        if len(clusters) < needed:
            digest = f"{size} bytes in {len(clusters)} of {needed} clusters"
        elif first and not is_ended:
            digest = f"{size} bytes in {len(clusters)} of {needed} clusters, no end"
        else:
            digest = hashlib.sha1(self._content(clusters[:needed])[:size]).hexdigest()
        tree.files[path] = File(size, first, clusters, digest)


def _long_name(pieces, entry):
    """The long name from the pieces before the entry; empty if they don't belong to it."""
    checksum = 0
    for byte in entry[:11]:
        checksum = ((checksum >> 1) + (checksum << 7) + byte) & 0xFF
    if not pieces or set(pieces) != set(range(1, len(pieces) + 1)):
        return ""
    if any(piece[13] != checksum for piece in pieces.values()):
        return ""
    units = b"".join(pieces[i][1:11] + pieces[i][14:26] + pieces[i][28:32] for i in sorted(pieces))
    return units.decode("utf-16-le", "replace").split("\0")[0]


def _short_name(entry):
    base = entry[:8].decode("cp437").rstrip()
    suffix = entry[8:11].decode("cp437").rstrip()
    if entry[12] & 0x08:
        base = base.lower()
    if entry[12] & 0x10:
        suffix = suffix.lower()
    return base + "." + suffix if suffix else base
