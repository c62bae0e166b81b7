"""Lists of rows that show themselves as tables."""

from __future__ import annotations

from collections.abc import Iterable
from typing import Any, Generic, NamedTuple, SupportsIndex, TypeVar, overload


class Unit(NamedTuple):
    """A unit of a quantity."""

    units: str
    description: str


class Class(NamedTuple):
    """A kind of quantity. Its token is what `quantity` arguments take."""

    quantity: str
    name: str
    keyword: str


class Found(NamedTuple):
    """What a search has found: a "class", "unit", "alias", "slate" or "text"."""

    kind: str
    quantity: str
    name: str
    description: str


class SlateName(NamedTuple):
    """A slate and the one that it is based on."""

    name: str
    based_on: str


Row = TypeVar("Row", bound="tuple[str, ...]")


class Table(list[Row], Generic[Row]):
    """A list of named tuples, shown as a table in notebooks and by print(); pandas.DataFrame() takes it as it is."""

    def __init__(self, headings: tuple[str, ...], rows: Iterable[Row]) -> None:
        super().__init__(rows)
        self.headings = headings

    @overload
    def __getitem__(self, place: SupportsIndex, /) -> Row: ...
    @overload
    def __getitem__(self, place: slice, /) -> Table[Row]: ...
    def __getitem__(self, place: Any, /) -> Any:
        rows: Any = super().__getitem__(place)
        return Table(self.headings, rows) if isinstance(place, slice) else rows

    def __str__(self) -> str:
        rows: list[tuple[str, ...]] = [self.headings, *self]
        widths = [max(len(row[i]) for row in rows) for i in range(len(self.headings))]
        return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in rows)

    def _repr_html_(self) -> str:
        from html import escape

        def line(cells: Iterable[str], tag: str) -> str:
            return "<tr>" + "".join(f"<{tag}>{escape(cell)}</{tag}>" for cell in cells) + "</tr>"

        body = "\n".join(line(row, "td") for row in self)
        return f"<table>\n<thead>\n{line(self.headings, 'th')}\n</thead>\n<tbody>\n{body}\n</tbody>\n</table>"
