"""The windows that FAT leaves open and no order of writes can close: docs/reliability.md."""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Window:
    why: str
    jobs: str  # regular expressions that match the whole text
    fats: str
    mounts: str
    fault: str
    blocks: int  # the most blocks for which it may last


WINDOWS = [
    Window("a renamed file or folder has both names until the old one is removed",
           ".*", ".*", ".*", "(fsck: )?two names for one (file|folder): .*", 1),
    Window("the same, and the kernel writes the dates of folders back in between",
           "update|rebuild", ".*", "hurried", "(fsck: )?two names for one (file|folder): .*", 3),
    Window("a new name leads to nothing until its size is written",
           "update|rebuild", ".*", "sync", r"(fsck: )?fsinfos\.id2: 0 bytes", 1),
]

# The next run can't know that two names lead to one folder, and a repair leaves one of them as a
# folder without a first cluster, which the kernel refuses until the next repair.
TWO_FOLDERS = "two names for one folder: "
AFTER_TWO_FOLDERS = r"next run( after fsck)?: (the job fails|the index is another one|" \
    r"two names for one folder: .*|playlist/.*: other content)"


def follows_two_folders(run, fault, first, last):
    return first == last and re.fullmatch(AFTER_TWO_FOLDERS, fault) and any(
        other.startswith(TWO_FOLDERS) and begin <= first <= end for other, begin, end in run.faults)


def is_accepted(run, fault, first, last):
    """Whether the fault of the run from the first block to the last is one of the windows."""
    return follows_two_folders(run, fault, first, last) or any(
        last - first < window.blocks and re.fullmatch(window.jobs, run.job.name) and
        re.fullmatch(window.fats, run.fat.name) and
        re.fullmatch(window.mounts, run.mount) and re.fullmatch(window.fault, fault)
        for window in WINDOWS)
