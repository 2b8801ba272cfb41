"""Compares what an independent reader finds in songs before and after a save.

comparetags.py <folder before> <folder after> <list>

Each line of the list has five words: a song's name and the new text, both in hexadecimal UTF-8, in
the first and the fourth; the frame that was to change, as versions 2.3 and 2.2 name it; and "all"
where nothing may have been added, "kept" where that may be. Prints what differs.
"""

import os
import sys

from mutagen import MutagenError
from mutagen.id3 import ID3

EDIT_MARKS = ("MEDT", "MED")


def tag_of(path):
    try:
        return ID3(path, translate=False, load_v1=False)
    except MutagenError:
        return None


def frames(path, ignored):
    """The frames except for the ignored ones; uninterpretable ones as bytes."""
    tag = tag_of(path)
    if tag is None:
        return {}
    found = {key: repr(frame) for key, frame in tag.items() if key not in ignored}
    starts = tuple(name.encode("ascii") for name in ignored)
    unknown = [content for content in tag.unknown_frames if not content.startswith(starts)]
    found.update((repr(content), "") for content in unknown)
    return found


def first_text(path, names):
    tag = tag_of(path)
    found = [str(tag[name].text[0]) for name in names if tag and name in tag]
    return found[0].split("\0")[0].strip() if found else None


def compare(before, after, changed, text, mode):
    old = frames(before, changed + EDIT_MARKS)
    new = frames(after, changed + EDIT_MARKS)
    for key in sorted(set(old) | (set(new) if mode == "all" else set())):
        if old.get(key) != new.get(key):
            yield "%r was %.200s, is %.200s" % (key, old.get(key), new.get(key))
    found = first_text(after, changed)
    # A tag that ends after the end of the file is not read at all, before and after the change.
    if found != text and (tag_of(before) or tag_of(after)):
        yield "%s is %r instead of %r" % (changed, found, text)


def main():
    before, after, listing = sys.argv[1:]
    count = 0
    with open(listing, encoding="ascii") as lines:
        for line in lines:
            name, frame, frame22, text, mode = line.split()
            name, text = (bytes.fromhex(word).decode("utf-8") for word in (name, text))
            for difference in compare(os.path.join(before, name), os.path.join(after, name),
                                      (frame, frame22), text, mode):
                print("%s: %s" % (name, difference))
            count += 1
    print("compared %d" % count)


main()
