#!/usr/bin/python3
"""Tests what is a fault on a memory that was pulled, and what is not."""

import hashlib
import unittest

from fatimage import File, Tree
from judging import Judge, windows

OLD, NEW, MOVED, EMPTY = (hashlib.sha1(text).hexdigest() for text in (b"old", b"new", b"m", b""))
BEFORE = {"A.MID": OLD, "A long name.mid": MOVED, "fsinfos.id2": "f1", "index.id2": "i1"}
AFTER = {"A.MID": NEW, "ALONGN-1.mid": MOVED, "fsinfos.id2": "f2", "index.id2": "i2"}


def memory(changes, shared=()):
    """The memory before the job, with some files changed; None: a deleted file."""
    tree = Tree(shared=set(shared))
    for path, digest in {**BEFORE, **changes}.items():
        if digest is not None:
            tree.files[path] = File(1, 2, [2], digest)
    return tree


class Judging(unittest.TestCase):
    def setUp(self):
        self.judge = Judge(BEFORE, AFTER, AFTER)

    def assertBefore(self, changes, faults, aside=(), shared=()):
        self.assertEqual(self.judge.before(memory(changes, shared)), (list(faults), list(aside)))

    def testTakesTheOldAndTheNewSong(self):
        self.assertBefore({}, [])
        self.assertBefore({"A.MID": NEW}, [])

    def testReportsALostSong(self):
        self.assertBefore({"A.MID": None}, ["A.MID: missing"])
        self.assertBefore({"A.MID": EMPTY}, ["A.MID: 0 bytes"])
        self.assertBefore({"A.MID": MOVED}, ["A.MID: other content"])

    def testKnowsASongThatIsWholeUnderAnotherName(self):
        self.assertBefore({"A.MID": EMPTY, ".brisel-save-1.tmp": OLD}, [],
                          ["A.MID is .brisel-save-1.tmp"])

    def testTakesEitherNameOfARenamedSong(self):
        self.assertBefore({"A long name.mid": None, "ALONGN-1.mid": MOVED}, [])
        self.assertBefore({"ALONGN-1.mid": MOVED}, [])
        self.assertBefore({"A long name.mid": None}, ["A long name.mid: missing"])

    def testReportsAnIndexOfOldAndNewFiles(self):
        self.assertBefore({"fsinfos.id2": "f2"}, ["an index of old and new files"])
        self.assertBefore({"index.id2": EMPTY}, ["index.id2: 0 bytes"])

    def testTakesAnIndexWithoutItsLastFileForNone(self):
        self.assertBefore({"fsinfos.id2": None, "index.id2": EMPTY}, [])

    def testReportsTwoNamesForOneFile(self):
        self.assertBefore({"x.tmp": NEW}, ["two names for one file: A.MID, x.tmp"],
                          shared=[("A.MID", "x.tmp")])

    def testReportsClustersInCommon(self):
        tree = memory({"x.tmp": NEW}, [("A.MID", "x.tmp")])
        tree.files["x.tmp"].clusters = [3, 2]
        self.assertEqual(self.judge.before(tree), (["cross-linked: A.MID, x.tmp"], []))

    def testWantsAllNewWhenDone(self):
        done = {**AFTER, "A long name.mid": None}
        self.assertEqual(self.judge.at_done(memory(done)), [])
        self.assertEqual(self.judge.at_done(memory({**done, "A.MID": OLD})),
                         ["done, but A.MID: the old one"])
        self.assertEqual(self.judge.at_done(memory({**done, "x.tmp": OLD})),
                         ["done, but x.tmp is left"])
        self.assertEqual(self.judge.at_done(memory({**done, "FSCK0000.REC": OLD})),
                         ["done, but clusters are lost"])

    def testWantsSongsBackAfterTheNextRun(self):
        done = {**AFTER, "A long name.mid": None, "A.MID": None, "x.tmp": NEW}
        self.assertEqual(self.judge.after_next_run(memory(done)), ["A.MID is x.tmp still"])

    def testWantsTheNewIndexAfterTheNextRun(self):
        self.assertEqual(self.judge.after_next_run(memory({"A.MID": NEW})),
                         ["the index is another one"])

    def testFindsFirstAndLastBlockOfAFault(self):
        self.assertEqual(windows([(0, []), (3, ["a"]), (5, ["a", "b"]), (9, ["b"])], 12),
                         [("a", 3, 8), ("b", 5, 12)])
        self.assertEqual(windows([(0, ["a"]), (1, []), (4, ["a"])], 4), [("a", 0, 0), ("a", 4, 4)])


if __name__ == "__main__":
    unittest.main()
