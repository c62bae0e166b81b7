"""python -m uom 250 kPag psia: the short form of the command-line tool."""

from __future__ import annotations

import sys
import warnings

import uom

USAGE = """\
python -m uom [--quantity CLASS] [--precision DIGITS] NUMBER FROM TO
python -m uom search WORDS ...
python -m uom units CLASS
python -m uom classes

Converts a number: python -m uom 250 kPag psia. Results have 12 digits when nothing is said.
"""


def _number_and_units(text: str) -> tuple[float, str]:
    """ "250 kPag" in its parts; 1 for units alone."""
    for end in range(len(text), 0, -1):
        head = text[:end].strip()
        try:
            if "_" not in head and not head.lower().lstrip("+-").startswith(("inf", "nan")):
                return float(head), text[end:].strip()
        except ValueError:
            continue
    return 1.0, text.strip()


def _convert(words: list[str], quantity: str | None, digits: int) -> str:
    if len(words) > 2 and words[-2] in ("to", "as", "->", "="):
        del words[-2]
    value, units = _number_and_units(" ".join(words[:-1]))
    result = uom.convert(value, units, words[-1], quantity)
    return f"{value:.{digits}g} {units} = {result:.{digits}g} {words[-1]}"


def _answer(words: list[str]) -> str:
    options = {"--quantity": "", "--class": "", "--precision": "12"}
    rest: list[str] = []
    while words:
        word = words.pop(0)
        if word in options:
            if not words:
                raise ValueError(f"{word} wants a value")
            options[word] = words.pop(0)
        elif word.startswith("--"):
            raise ValueError(f"there is no option {word}")
        else:
            rest.append(word)
    if not options["--precision"].isdecimal() or not 0 < int(options["--precision"]) <= 17:
        raise ValueError("--precision is a number of digits from 1 to 17")
    if rest[:1] == ["search"] and len(rest) > 1:
        return str(uom.search(" ".join(rest[1:])))
    if rest[:1] == ["units"] and len(rest) == 2:
        return str(uom.units(rest[1]))
    if rest == ["classes"]:
        return str(uom.classes())
    if len(rest) < 2:
        raise ValueError("what shall be converted? --help tells")
    return _convert(rest, options["--quantity"] or options["--class"] or None, int(options["--precision"]))


def main(words: list[str]) -> int:
    if words in ([], ["--help"], ["-h"]):
        print(USAGE, end="")
        return 0 if words else 2
    try:
        with warnings.catch_warnings(record=True) as notes:
            warnings.simplefilter("always")
            print(_answer(words))
    except ValueError as error:
        print(f"uom: {error}", file=sys.stderr)
        return 2
    for note in notes:
        print(f"uom: {note.message}", file=sys.stderr)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
