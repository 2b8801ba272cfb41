"""The slips: small mistakes that a programmer could make in the product, one in each file.

<folder>/<name>.slip is named for the mistake. Its first lines give the source file, the tests that
are to notice it, in the order in which they are tried (a class, a case of it or a row of a case's
data), and what the user would suffer from. Then follow the text that is searched, which stands in
that file exactly once, and the text that is put in its place.

    file: base/bytes.cpp
    test: tst_bytes
    test: tst_cutsaves:survivesEveryStep:MIDI, eio
    slip: the last byte of a field is not read
    --- searched
    offset + size
    --- replaced by
    offset + size - 1
"""

import os
import re
from dataclasses import dataclass

PATTERN = re.compile(r"file: (?P<file>\S+)\n(?P<tests>(?:test: \S[^\n]*\n)+)"
                     r"slip: (?P<what>\S[^\n]*)\n"
                     r"--- searched\n(?P<searched>.+)\n--- replaced by\n(?P<replacement>.*)\n",
                     re.DOTALL)


class Unfit(Exception):
    """A slip that can't be applied, with the reason."""


def read_text(path):
    """The text of a file, with the line ends that it has."""
    with open(path, encoding="utf-8", newline="") as file:
        return file.read()


@dataclass(frozen=True)
class Slip:
    number: int  # from 1, in the order of names
    name: str  # <folder>/<name>
    file: str  # of the project
    tests: tuple  # each as <class>[:<case>[:<row>]]
    what: str
    searched: str
    replacement: str

    def applied(self, project):
        """The text of its file in \\a project, with the slip."""
        path = os.path.join(project, self.file)
        if not os.path.isfile(path):
            raise Unfit(f"{self.file} is not there")
        text = read_text(path)
        found = text.count(self.searched)
        if found != 1:
            raise Unfit(f"its text was found {found} times in {self.file}")
        return text.replace(self.searched, self.replacement)


def read_slip(number, name, path):
    match = PATTERN.fullmatch(read_text(path))
    if not match or match["searched"] == match["replacement"]:
        raise Unfit(f"{path} is not a slip")
    parts = match.groupdict()
    return Slip(number, name, tests=tuple(re.findall("^test: (.+)$", parts.pop("tests"), re.M)), **parts)


def read_slips(folder):
    """All slips, in the order of their names."""
    names = []
    for place, _, files in os.walk(folder):
        names += [os.path.relpath(os.path.join(place, file), folder)[:-len(".slip")]
                  for file in files if file.endswith(".slip")]
    return [read_slip(number, name, os.path.join(folder, name + ".slip"))
            for number, name in enumerate(sorted(names), 1)]


def chosen(slips, words):
    """The slips that any of \\a words names: a folder, a name or a range of numbers."""

    def named(word):
        numbers = re.fullmatch(r"(\d+)-(\d+)", word)
        if numbers:
            first, last = map(int, numbers.groups())
            found = [slip for slip in slips if first <= slip.number <= last]
        else:
            word = word.rstrip("/")
            found = [slip for slip in slips
                     if slip.name == word or slip.name.startswith(word + "/")]
        if not found:
            raise Unfit(f"There is no slip {word}")
        return found

    wanted = {slip.number for word in words for slip in named(word)}
    return [slip for slip in slips if slip.number in wanted or not words]


def read_explained(path, slips):
    """Why some slips may survive, by their names: lines of the form <name>: <reason>."""
    reasons = dict(re.findall(r"^([^#\s]\S*): (\S.*)$", read_text(path), re.MULTILINE))
    for name in reasons:
        if name not in {slip.name for slip in slips}:
            raise Unfit(f"{path} explains {name}, which is not a slip")
    return reasons
