"""Catalogues: the shipped one with another atmosphere, other data files, slates."""

from __future__ import annotations

import math
import os
from _thread import allocate_lock
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

# Held while a slate is looked for and made.
_making = allocate_lock()

# What it takes to make a catalogue again: the bytes of its data file, None for the shipped one, the text of its aliases,
# and its atmospheric pressure in kPa, None for that of the data file.
Origin = tuple[bytes | None, str | None, float | None]


def _bytes_of(path: str | os.PathLike[str]) -> bytes:
    """A data file. The library's own reader wants lines that end with a line feed."""
    with open(os.fspath(path), "rb") as file:
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
        text = None if aliases is None else _checked_text(aliases)
        self._begin((None if data is None else _bytes_of(data), text, _checked_gauge(gauge)))
        if text is not None:
            self._check_aliases(text)

    def _begin(self, origin: Origin) -> None:
        self._origin = origin
        self._open()
        if not self._units("Pres"):
            self.close()
            raise UnitError("The data file has no units of pressure: it makes no catalogue.")

    def _open(self) -> None:
        """Starts it; the extension calls this at the first use of a catalogue that is not started."""
        if self._origin is None:
            raise ValueError("the catalogue was made without its __init__, and has nothing to start from")
        data, aliases, gauge = self._origin
        own = b"" if aliases is None else b"\n[]\n" + aliases.encode()
        self._start(_bytes_of(data_file()) if data is None else data, _unfound_aliases() + own)
        if gauge is not None:
            self._state("Current", "GaugePresBasis", repr(gauge))

    def _check_aliases(self, text: str) -> None:
        """Raises UnitError for a line of aliases that is none, or that does not mean what it says."""
        classes: list[str] = []
        for number, line in enumerate(text.split("\n"), 1):
            line = line.strip()
            line = "" if line.startswith("//") else line.split(" //")[0].strip()
            try:
                if line.startswith("["):
                    classes = self._bound_classes(line)
                elif line:
                    self._check_alias(line, classes)
            except UnitError as error:
                self.close()
                raise UnitError(f"Line {number} of the aliases: {error.message}", line, suggestion=error.suggestion) from None

    def _bound_classes(self, line: str) -> list[str]:
        if not line.endswith("]"):
            raise UnitError('There is no "]" behind the classes.')
        classes = line[1:-1].replace(",", " ").split()
        for name in classes:
            self._choices(name)
        return classes

    def _check_alias(self, line: str, classes: list[str]) -> None:
        name, _, target = (part.strip() for part in line.partition(" = "))
        if not name or not target:
            raise UnitError('It is no "alias = unit text".')
        quantities: list[str | None] = [*classes] or [None]
        Conversion(target, target, catalogue=self, _quiet=True)
        for quantity in quantities:
            if quantity and not self._reads(target, quantity):
                continue  # a part of its units: revolutions of a rotation
            try:
                meant = Conversion(name, target, quantity, catalogue=self, _quiet=True)
                same = all(math.isclose(meant(value), value, rel_tol=1e-12) for value in (1.0, 50.0))
            except UnitError:
                same = False
            if not same:
                raise UnitError(f'"{name}" is read in another way: as a unit, or by another line.')

    def close(self) -> None:
        """Frees its memory. What is asked of it from then on raises ValueError; conversions go on."""
        self._close()

    def __repr__(self) -> str:
        data, aliases, gauge = self._origin or (None, None, None)
        told = ["closed"] if self.closed else []
        told += [] if gauge is None else [f"gauge={gauge}"]
        told += ["data of its own"] if data is not None else []
        told += ["aliases of its own"] if aliases is not None else []
        return f"<uom.Catalogue{': ' if told else ''}{', '.join(told)}>"

    def __enter__(self) -> Catalogue:
        if self.closed:
            raise ValueError("the catalogue is closed")
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
        """The quantities that a unit text can belong to, best first; empty for a product that is of no class.

        Raises UnitError for a text that is not understood.
        """
        found = self._entry_classes(units)
        if not found:
            Conversion(units, units, catalogue=self, _quiet=True)
        return found

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
        """The slate of this name; with `based_on` a new one, unless there is one that is based on the same.

        based_on  the slate whose units it takes where it states none: a Slate, or a name, "SI", "English"
        defaults  units by quantity, Pres="kPag", stated in this order: some follow from others (a length sets areas)

        Raises UnitError for a text that is not understood and for a slate that is not known; the slates are then as they
        were.
        """
        with _making:
            known = self._slate_named(name)
            if based_on is None and known is None:
                raise self._no_slate(name)
            stated = {quantity: self._default_units(quantity, units) for quantity, units in defaults.items()}
            if based_on is not None:
                self._make_slate(known or name, self._parent_named(based_on), known is None)
            slate = Slate(self, known or name)
            for quantity, units in stated.items():
                self._state(slate.name, quantity, units)
            return slate

    def _make_slate(self, name: str, parent: str, is_new: bool) -> None:
        if is_new:
            if self._entry_classes(name):
                raise UnitError("A slate can't be named like a unit.", name)
            self._new_slate(name, parent)
        elif (old := dict(self._slates())[name]).lower() != parent.lower():
            raise UnitError(f'There is a slate "{name}" already, which is based on "{old}" and keeps it.', name)

    def _no_slate(self, name: str) -> UnitError:
        return UnitError(f'There is no slate "{name}".', name, 0, len(name), self._nearest_slate(name))

    def _nearest_slate(self, name: str) -> str:
        from difflib import get_close_matches

        slates = {slate.lower(): slate for slate, _ in self._slates()}
        return next((slates[near] for near in get_close_matches(name.lower(), slates, 1)), "")

    def _parent_named(self, based_on: str | Slate) -> str:
        wanted = based_on.name if isinstance(based_on, Slate) else based_on
        parent = self._slate_named(wanted)
        if parent is None:
            raise self._no_slate(wanted)
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
    if isinstance(gauge, (bool, str)) or not 0.001 <= value < 10_000.0:
        raise ValueError(f"gauge is an atmospheric pressure in kPa, 101.325 at sea level, not {gauge!r}")
    return value


def _checked_text(aliases: str) -> str:
    if not isinstance(aliases, str):
        raise TypeError(f"aliases is a text, not {type(aliases).__name__}")
    if "\0" in aliases:
        raise UnitError("The aliases hold a zero character.", aliases, aliases.index("\0"), 1)
    return aliases.removeprefix("\ufeff").replace("\r\n", "\n")


class Slate(MutableMapping[str, str]):
    """A named set of default units: what it states itself, by quantity, as a mapping.

    slate["Pres"] is what it states; display() also knows what it takes from the slate that it is based on.
    """

    def __init__(self, catalogue: Catalogue, name: str) -> None:
        self._catalogue = catalogue
        self.name = name

    def __repr__(self) -> str:
        return f"<uom.Slate {self.name!r}>"

    def _repr_html_(self) -> str:
        from ._tables import Table

        return Table(("quantity", self.name), self.items())._repr_html_()

    def __deepcopy__(self, memo: object) -> Slate:
        return Slate(self._catalogue, self.name)

    def __getitem__(self, quantity: str) -> str:
        try:
            stated = self._catalogue._stated(self.name, quantity) if isinstance(quantity, str) else ""
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
        return self._catalogue._display(self.name, quantity)

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
        try:
            return self._catalogue.convert(values, units[0], units[1], quantity, out=out)
        except UnitError as error:
            if error.text not in (from_, to) or error.suggestion:
                raise
            near = self._catalogue._nearest_slate(error.text)
            raise UnitError(error.message, error.text, error.position, error.length, near) from None

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
    """A number with its unit, as read() gives it: value, units and quantity, which don't change."""

    __slots__ = {
        "value": "The number, NaN for a unit alone.",
        "units": "The units, as the catalogue writes them.",
        "quantity": "The class string.",
        "_catalogue": "",
    }
    value: float
    units: str
    quantity: str
    _catalogue: Catalogue

    def __init__(self, value: float, units: str, quantity: str, catalogue: Catalogue) -> None:
        for field, its in zip(self.__slots__, (value, units, quantity, catalogue)):
            object.__setattr__(self, field, its)

    def __setattr__(self, name: str, value: object) -> None:
        raise AttributeError(f"a Quantity does not change: {name} is fixed")

    def __delattr__(self, name: str) -> None:
        self.__setattr__(name, None)

    def to(self, units: str, quantity: str | None = None) -> Quantity:
        """The same in other units, of its quantity or of the one that is given. UnitError for units of another one."""
        wanted = self.quantity if quantity is None else quantity
        return Quantity(self._catalogue.convert(self.value, self.units, units, wanted), units, wanted, self._catalogue)

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

    def __reduce__(self) -> str:
        return "shipped"  # by reference, and with it the functions of the module

    def __repr__(self) -> str:
        return "<uom.Catalogue of the module>"

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


def catalogue_of(origin: Origin) -> Catalogue:
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
    conversion = Conversion(from_, to, quantity, catalogue=catalogue_of(origin), _quiet=True)
    if conversion._probe != constants:
        raise UnitError(f'The conversion from "{from_}" to "{to}" was made with other constants.', from_)
    return conversion


def _remake_quantity(value: float, units: str, quantity: str, origin: Origin) -> Quantity:
    return Quantity(value, units, quantity, catalogue_of(origin))


def inverse(conversion: Conversion) -> Conversion:
    """The conversion back, of the quantity that the units were read in."""
    catalogue = catalogue_of(conversion._origin)
    for quantity in (conversion.quantity or None, conversion._given):
        try:
            return Conversion(conversion.to, conversion.from_, quantity, catalogue=catalogue, _quiet=True)
        except UnitError as error:
            failure = error
    raise failure
