"""python -m uom 250 kPag psia: the short form of the command-line tool."""

from __future__ import annotations

import io
import math
import os
import re
import sys
import warnings

import uom

USAGE = """\
python -m uom [--quantity CLASS] [--precision DIGITS] NUMBER FROM TO
python -m uom search WORDS ...
python -m uom units CLASS
python -m uom classes
python -m uom --version

Converts a number: python -m uom 250 kPag psia. Results have 12 digits when nothing is said, and with --precision full those
that read back as the same number. Behind "--" nothing is an option.
"""

NUMBER = re.compile(r"\s*([-+]?(?:\d+\.?\d*|\.\d+)(?:e[-+]?\d+)?)\s*", re.ASCII | re.IGNORECASE)


def _number_and_units(text: str) -> tuple[float, str]:
    """ "250 kPag" in its parts; 1 for units alone, and for a number that is a part of them, "1/min"."""
    found = NUMBER.match(text)
    units = text[found.end() :].strip() if found else ""
    if not found or units.startswith("/"):
        return 1.0, text.strip()
    value = float(found[1])
    if math.isinf(value):
        raise ValueError(f"the number {found[1]} is beyond the range of numbers")
    return value, units


def _written(value: float, digits: str) -> str:
    return repr(value).removesuffix(".0") if digits == "full" else f"{value:.{digits}g}"


def _convert(words: list[str], quantity: str | None, digits: str) -> str:
    if len(words) > 2 and words[-2] in ("to", "as", "->", "="):
        del words[-2]
    value, units = _number_and_units(" ".join(words[:-1]))
    result = uom.convert(value, units, words[-1], quantity)
    if math.isinf(result):
        raise ValueError("the result is beyond the range of numbers")
    typed = units if units[:1].isdecimal() else f"{_written(value, digits)} {units}"  # "1/min" has its number in it
    return f"{typed} = {_written(result, digits)} {words[-1]}"


def _options(words: list[str]) -> tuple[dict[str, str], list[str]]:
    """The options with their values, and the other words."""
    options = {"--quantity": "", "--class": "", "--precision": "12"}
    rest: list[str] = []
    while words:
        word, _, value = words[0].partition("=") if words[0].startswith("--") else (words[0], "", "")
        del words[0]
        if word == "--":
            return options, rest + words
        if not word.startswith("--"):
            rest.append(word)
        elif word not in options:
            raise ValueError(f"there is no option {word}")
        elif not value and not words:
            raise ValueError(f"{word} wants a value")
        else:
            options[word] = value or words.pop(0)
    digits = options["--precision"]
    if digits != "full" and not (digits.isascii() and digits.isdecimal() and 0 < int(digits) <= 17):
        raise ValueError('--precision is a number of digits from 1 to 17, or "full"')
    return options, rest


def _answer(words: list[str]) -> str:
    options, rest = _options(words)
    if rest[:1] == ["search"]:
        if len(rest) < 2:
            raise ValueError("search wants words")
        return str(uom.search(" ".join(rest[1:])))
    if rest[:1] == ["units"]:
        if len(rest) != 2:
            raise ValueError("units wants a class")
        return str(uom.units(rest[1]))
    if rest[:1] == ["classes"]:
        if len(rest) > 1:
            raise ValueError("classes wants nothing behind it")
        return str(uom.classes())
    if len(rest) < 2:
        raise ValueError("what shall be converted? --help tells")
    return _convert(rest, options["--quantity"] or options["--class"] or None, options["--precision"])


def _run(words: list[str]) -> int:
    if words in ([], ["--help"], ["-h"]):
        print(USAGE, end="")
        return 0 if words else 2
    if words == ["--version"]:
        print(f"uom {uom.__version__}")
        return 0
    try:
        with warnings.catch_warnings(record=True) as notes:
            warnings.simplefilter("always")
            print(_answer(words))
    except ValueError as error:
        print(f"uom: {error}", file=sys.stderr)
        return 2
    for note in notes:
        print(f"uom: {str(note.message).replace('quantity= says', '--quantity says')}", file=sys.stderr)
    return 0


def main(words: list[str]) -> int:
    for stream in (sys.stdout, sys.stderr):
        if isinstance(stream, io.TextIOWrapper):
            stream.reconfigure(errors="backslashreplace")
    try:
        status = _run(words)
        print(end="", flush=True)  # which passes over an output that is closed
        return status
    except OSError as error:
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())  # for the interpreter, which writes the rest at its end
        if not isinstance(error, BrokenPipeError):
            print("uom: Unable to write the output.", file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
