"""Applies slips to a copy of the project, one at a time, and expects tests to fail.

mutants.py <project> --run|--fit|--list [<folder>|<folder>/<name>|<first>-<last>]...
"""

import os
import sys
from collections import Counter

from slips import Unfit, chosen, read_explained, read_slips, read_text
from workcopy import BuildFailure, WorkCopy

LAST_LINES = 25  # of a failed build


def print_now(text):
    print(text, flush=True)


def last_lines(failure):
    return "\n".join(str(failure).splitlines()[-LAST_LINES:])


def test_of(tests, word):
    """The test that a slip names as <class>[:<case>[:<row>]], and its cases."""
    name, _, case = word.partition(":")
    if name not in tests:
        raise Unfit(f"there is no test {name}")
    return tests[name], [case] if case else []


def words_of(slips):
    """Each test that the slips name, once; no single cases where the whole class is named."""
    words = sorted({word for slip in slips for word in slip.tests})
    return [word for word in words if ":" not in word or word.partition(":")[0] not in words]


def try_unchanged(copy, tests, slips):
    """Builds the tests that the slips name and runs them on the unchanged product."""
    wanted = [(word, *test_of(tests, word)) for word in words_of(slips)]
    print_now(f"Building {copy.folder}")
    copy.build(sorted({test.program for _, test, _ in wanted}))
    print_now(f"Running {len(wanted)} tests without a slip")
    failures = {word: copy.failure(test, cases) for word, test, cases in wanted}
    failed = [f"{word}: {failure}" for word, failure in failures.items() if failure]
    if failed:
        sys.exit("\n".join(["Tests fail without a slip:", *failed]))


def noticed_by(copy, tests, slip):
    """The test that fails with \\a slip, and how; None when all pass."""
    changed = slip.applied(copy.folder)
    unchanged = read_text(os.path.join(copy.folder, slip.file))
    copy.write(slip.file, changed)
    try:
        for word in slip.tests:
            test, cases = test_of(tests, word)
            copy.build([test.program])
            failure = copy.failure(test, cases)
            if failure:
                return f"{word}: {failure}"
        return None
    finally:
        copy.write(slip.file, unchanged)


def outcome(copy, tests, slip, explained):
    """What came of \\a slip, in one word, and the details."""
    try:
        notice = noticed_by(copy, tests, slip)
    except Unfit as unfit:
        return "unfit", str(unfit)
    except BuildFailure as failure:
        return "unfit", "it does not compile\n" + last_lines(failure)
    if notice:
        return "noticed", notice
    if slip.name in explained:
        return "explained", explained[slip.name]
    return "survived", slip.what


def fits(slip, project):
    try:
        slip.applied(project)
        return True
    except Unfit as unfit:
        print_now(f"{slip.name}: {unfit}")
        return False


def run(project, slips, explained):
    """The exit status: 0 when each slip was noticed or is explained."""
    copy = WorkCopy(project, os.path.join(project, "build/mutants/tree"))
    copy.synchronise()
    copy.configure()
    tests = copy.tests()
    try_unchanged(copy, tests, slips)
    results = {}
    for slip in slips:
        result, details = outcome(copy, tests, slip, explained)
        results[slip] = result
        print_now(f"{slip.number:4} {slip.name}: {result}, {details}")
    counts = Counter(results.values())
    print_now("")
    for slip, result in results.items():
        if result in ("survived", "unfit"):
            print_now(f"{result}: {slip.name}")
    print_now(f"{len(slips)} slips: " +
              ", ".join(f"{counts[word]} {word}"
                        for word in ("noticed", "explained", "survived", "unfit")))
    return 1 if counts["survived"] or counts["unfit"] else 0


def main(project, mode, *words):
    folder = os.path.join(project, "tests/mutants")
    try:
        every = read_slips(folder)
        explained = read_explained(os.path.join(folder, "explained"), every)
        slips = chosen(every, words)
        if mode == "--list":
            for slip in slips:
                print(f"{slip.number:4} {slip.name}: {slip.what}")
            return 0
        if mode == "--fit":
            unfit = [slip for slip in slips if not fits(slip, project)]
            print(f"{len(slips)} slips, {len(unfit)} of them unfit")
            return 1 if unfit else 0
        return run(project, slips, explained)
    except Unfit as unfit:
        sys.exit(str(unfit))
    except BuildFailure as failure:
        sys.exit("The unchanged project does not build:\n" + last_lines(failure))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
