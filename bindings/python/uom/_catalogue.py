"""Catalogues: the shipped one with another atmosphere, other data files, slates."""

from __future__ import annotations

import math
import os
from collections.abc import MutableMapping

from . import _core
from ._core import Conversion
from ._errors import UnitError

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from collections.abc import Iterator
    from types import TracebackType
    from typing import Any

    from ._tables import Class, Found, SlateName, Table, Unit

# What it takes to make a catalogue again: the bytes of its data file, None for the shipped one, the text of its aliases,
# and its atmospheric pressure in kPa, None for that of the data file.
Origin = tuple[bytes | None, str | None, float | None]


def _bytes_of(path: str | os.PathLike[str]) -> bytes:
    """A data file. The library's own reader wants lines that end with a line feed."""
    with open(path, "rb") as file:
        return file.read().replace(b"\r\n", b"\n")


def data_file() -> str:
    """The path of the shipped data file: in the package, or that of an installed library."""
    inside = os.path.join(os.path.dirname(__file__), "uomdata.txt")
    return inside if os.path.exists(inside) else _core.data_file()


def _unfound_aliases() -> bytes:
    """The shipped aliases where the library does not find them by itself: behind a path that is too long for it."""
    try:
        _core.data_file()
        return b""
    except UnitError:
        return _bytes_of(os.path.join(os.path.dirname(data_file()), "aliases.txt"))


class Catalogue(_core.Catalogue):
    """Units, quantities and slates with an atmospheric pressure of its own.

    gauge    the atmospheric pressure in kPa: what 0 kPag is; without it that of the data file, 101.325 as shipped
    data     the path of another data file
    aliases  lines "alias = unit text", "[Class Class]" before those of some quantities, on top of the shipped ones

    A catalogue serves any number of threads. It is closed by close(), by the end of its `with` block, or when nothing
    refers to it any more; conversions that were made from it go on. Raises UnitError for a data file that makes no
    catalogue, OSError when it can't be read.
    """

    def __init__(
        self,
        *,
        gauge: float | None = None,
        data: str | os.PathLike[str] | None = None,
        aliases: str | None = None,
    ) -> None:
        self._begin((None if data is None else _bytes_of(data), aliases, _checked_gauge(gauge)))

    def _begin(self, origin: Origin) -> None:
        self._origin = origin
        self._open()
        if not self._units("Pres"):
            self.close()
            raise UnitError("The data file has no units of pressure: it makes no catalogue.")

    def _open(self) -> None:
        """Starts it; the extension calls this at the first use of a catalogue that is not started."""
        data, aliases, gauge = self._origin
        own = b"" if aliases is None else b"\n[]\n" + aliases.encode()
        self._start(_bytes_of(data_file()) if data is None else data, _unfound_aliases() + own)
        if gauge is not None:
            self._state("Current", "GaugePresBasis", repr(gauge))

    def close(self) -> None:
        """Frees its memory. What is asked of it from then on raises ValueError; conversions go on."""
        self._close()

    def __enter__(self) -> Catalogue:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def __reduce__(self) -> Any:
        raise TypeError("a Catalogue does not pickle: make it where it is needed, or send its conversions")

    def conversion(self, from_: str, to: str, quantity: str | None = None) -> Conversion:
        """A Conversion in this catalogue."""
        return Conversion(from_, to, quantity, catalogue=self)

    def read(self, text: str, quantity: str | None = None) -> Quantity:
        """Reads a number with its unit, "250 kPag", or a unit alone, which has the value NaN.

        Every character of the text is read, or named in a UnitError. Without a quantity it is the first class of
        classes() that reads the text best.
        """
        value, scale, units, found = self._read(text, quantity)
        return Quantity(value * scale, units, found, self)

    def quantities(self, units: str) -> list[str]:
        """The quantities that a unit text can belong to, best first; empty when it is not understood."""
        return self._entry_classes(units)

    def units(self, quantity: str) -> Table[Unit]:
        """The units of a quantity: all of a class that has units of its own; for others what an interface would offer.

        Those alone that convert() takes for it: volumes of gas under standard conditions are in the lists of liquids, too.
        Raises UnitError for a text that is no quantity.
        """
        from ._tables import Table, Unit

        rows = self._units(quantity) or [(units, "") for units in self._choices(quantity)]
        return Table(Unit._fields, (Unit(*row) for row in rows if self._reads(row[0], quantity)))

    def _reads(self, units: str, quantity: str) -> bool:
        try:
            return bool(Conversion(units, units, quantity, catalogue=self, _quiet=True))
        except UnitError:
            return False

    def classes(self) -> Table[Class]:
        """The kinds of quantities, each with its token, long name and keyword."""
        from ._tables import Class, Table

        return Table(Class._fields, (Class(*row) for row in self._classes()))

    def search(self, words: str, most: int = 20) -> Table[Found]:
        """Classes, units, aliases and slates by words in their names and descriptions, best first.

        A single word may be misspelt. At most `most` rows, of 1000.
        """
        from ._tables import Found, Table

        if not 0 < most <= 1000:
            raise ValueError(f"most is a number from 1 to 1000, not {most}")
        return Table(Found._fields, (Found(*row.split("\t", 3)) for row in self._search(words, most)))

    def slates(self) -> Table[SlateName]:
        """The slates, in the order in which they were made."""
        from ._tables import SlateName, Table

        return Table(SlateName._fields, (SlateName(*row) for row in self._slates()))

    def slate(self, name: str, based_on: str | Slate | None = None, **defaults: str) -> Slate:
        """A slate: the one of this name, or a new one, based on another, "SI" when nothing is said.

        defaults  units by quantity, Pres="kPag", stated in this order: some follow from others (a length sets areas)

        Raises UnitError for a text that is not understood; the slates are then as they were.
        """
        known = self._slate_named(name)
        stated = {quantity: self._default_units(quantity, units) for quantity, units in defaults.items()}
        if known is None:
            if self.quantities(name):
                raise UnitError("A slate can't be named like a unit.", name)
            self._new_slate(name, self._parent_named(based_on))
        elif based_on is not None:
            raise UnitError(f'There is a slate "{known}" already: it keeps what it is based on.', name)
        slate = Slate(self, known or name)
        for quantity, units in stated.items():
            self._state(slate.name, quantity, units)
        return slate

    def _parent_named(self, based_on: str | Slate | None) -> str:
        wanted = "SI" if based_on is None else based_on.name if isinstance(based_on, Slate) else based_on
        parent = self._slate_named(wanted)
        if parent is None:
            raise UnitError(f'There is no slate "{wanted}".', wanted)
        return parent

    def _slate_named(self, name: str) -> str | None:
        if not isinstance(name, str):
            raise TypeError(f"a slate is named by a text, not {type(name).__name__}")
        wanted = name.lower()
        return next((slate for slate, _ in self._slates() if slate.lower() == wanted), None)

    def _default_units(self, quantity: str, units: str) -> str:
        """A typed unit as one that a slate can have."""
        if quantity.lower() == "gaugepresbasis":
            raise UnitError("The atmospheric pressure is one for a catalogue: Catalogue(gauge=...).", quantity)
        value, scale, text, found = self._read(units, quantity)
        if found.lower() not in {row[0].lower() for row in self._classes()}:
            raise UnitError(f'"{quantity}" is no class: a slate has units of classes, see classes().', quantity)
        if scale != 1.0 or not math.isnan(value):
            raise UnitError(f'"{units}" has a number in it: a slate has units alone.', units)
        return text


def _checked_gauge(gauge: float | None) -> float | None:
    if gauge is None:
        return None
    value = float(gauge)
    if isinstance(gauge, (bool, str)) or not 0.0 < value < 10_000.0:
        raise ValueError(f"gauge is an atmospheric pressure in kPa, 101.325 at sea level, not {gauge!r}")
    return value


class Slate(MutableMapping[str, str]):
    """A named set of default units: what it states itself, by quantity, as a mapping.

    slate["Pres"] is what it states; display() also knows what it takes from the slate that it is based on.
    """

    def __init__(self, catalogue: Catalogue, name: str) -> None:
        self._catalogue = catalogue
        self.name = name

    def __repr__(self) -> str:
        return f"<uom.Slate {self.name!r}>"

    def __getitem__(self, quantity: str) -> str:
        try:
            stated = self._catalogue._stated(self.name, quantity)
        except UnitError:
            stated = ""
        if not stated:
            raise KeyError(quantity)
        return stated

    def __setitem__(self, quantity: str, units: str) -> None:
        self._catalogue.slate(self.name, **{quantity: units})

    def __delitem__(self, quantity: str) -> None:
        self[quantity]
        self._catalogue._state(self.name, quantity, "")

    def __iter__(self) -> Iterator[str]:
        return (row[0] for row in self._catalogue._classes() if row[0] in self)

    def __len__(self) -> int:
        return sum(1 for _ in self)

    def display(self, quantity: str) -> str:
        """The units that a quantity is shown in, "kPa/(m3/sec)2"; any class string will do."""
        return self._catalogue._display(quantity, self.name)

    def convert(
        self,
        values: Any,
        quantity: str,
        *,
        from_: str | Slate | None = None,
        to: str | Slate | None = None,
        out: Any = None,
    ) -> Any:
        """Converts values of a quantity between the units of this slate and others, as convert() does.

        from_, to  units, or a slate; one of the two is given, and the other is this slate
        """
        if (from_ is None) == (to is None):
            raise TypeError("convert() takes from_ or to: the other one is this slate")
        units = [self._units_of(side, quantity) for side in (from_, to)]
        return self._catalogue.convert(values, units[0], units[1], quantity, out=out)

    def _units_of(self, side: str | Slate | None, quantity: str) -> str:
        if isinstance(side, str):
            name = self._catalogue._slate_named(side)
            if name is None:
                return side
            side = Slate(self._catalogue, name)
        shown = (self if side is None else side).display(quantity)
        # What has no unit is shown without one, and read with any that says so.
        return shown or next((row.units for row in self._catalogue.units(quantity)), "")


class Quantity:
    """A number with its unit, as read() gives it: value, units and quantity."""

    __slots__ = {
        "value": "The number, NaN for a unit alone.",
        "units": "The units, as the catalogue writes them.",
        "quantity": "The class string.",
        "_catalogue": "",
    }

    def __init__(self, value: float, units: str, quantity: str, catalogue: Catalogue) -> None:
        self.value = value
        self.units = units
        self.quantity = quantity
        self._catalogue = catalogue

    def to(self, units: str) -> Quantity:
        """The same in other units. Raises UnitError for units of another quantity."""
        value = self._catalogue.convert(self.value, self.units, units, self.quantity)
        return Quantity(value, units, self.quantity, self._catalogue)

    def __format__(self, layout: str) -> str:
        return f"{self.value:{layout}} {self.units}".rstrip()

    def __str__(self) -> str:
        return format(self, "")

    def __repr__(self) -> str:
        return f"<uom.Quantity {self} ({self.quantity})>"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Quantity):
            return NotImplemented
        return (self.value, self.units, self.quantity, self._catalogue._origin) == (
            other.value,
            other.units,
            other.quantity,
            other._catalogue._origin,
        )

    def __hash__(self) -> int:
        return hash((self.value, self.units, self.quantity))

    def __reduce__(self) -> Any:
        return _remake_quantity, (self.value, self.units, self.quantity, self._catalogue._origin)


class _Shipped(Catalogue):
    """The catalogue of the module's functions: started at its first use, and never changed."""

    def __init__(self) -> None:
        self._origin = (None, None, None)

    def close(self) -> None:
        raise ValueError("the catalogue of the module stays open")

    def _state(self, slate: str, quantity: str, units: str) -> None:
        raise ValueError("the slates of the module don't change: make a uom.Catalogue() for others")

    def _new_slate(self, name: str, parent: str) -> None:
        self._state(name, "", "")


shipped = _Shipped()

# Catalogues of conversions that came from other processes, the latest last.
_MOST_REMADE = 16
_remade: dict[Origin, Catalogue] = {(None, None, None): shipped}


def _catalogue_of(origin: Origin) -> Catalogue:
    known = _remade.get(origin)
    if known is not None:
        return known
    made = Catalogue.__new__(Catalogue)
    made._begin(origin)
    while len(_remade) >= _MOST_REMADE:
        _remade.pop(list(_remade)[1], None)
    return _remade.setdefault(origin, made)


def remake(from_: str, to: str, quantity: str | None, origin: Origin, constants: tuple[Any, ...]) -> Conversion:
    """A conversion from its pickled parts, with the constants that it had; UnitError when they are others here."""
    conversion = Conversion(from_, to, quantity, catalogue=_catalogue_of(origin), _quiet=True)
    if conversion._probe != constants:
        raise UnitError(f'The conversion from "{from_}" to "{to}" was made with other constants.', from_)
    return conversion


def _remake_quantity(value: float, units: str, quantity: str, origin: Origin) -> Quantity:
    return Quantity(value, units, quantity, _catalogue_of(origin))


def inverse(conversion: Conversion) -> Conversion:
    """The conversion back, of the quantity that the units were read in."""
    catalogue = _catalogue_of(conversion._origin)
    for quantity in (conversion.quantity, conversion._given):
        try:
            return Conversion(conversion.to, conversion.from_, quantity, catalogue=catalogue, _quiet=True)
        except UnitError as error:
            failure = error
    raise failure
