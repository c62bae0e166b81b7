"""Units of measure for process simulators: conversion of numbers, arrays and columns, and units as people type them.

    >>> import uom
    >>> round(uom.convert(250, "kPag", "psia"), 3)
    50.955
    >>> print(uom.read("100 gpm").to("m3/hr"))
    22.712470704 m3/hr

convert, read, units, classes, search, slates and quantities work on the shipped catalogue; a Catalogue has an atmospheric
pressure and slates of its own. Texts that are not understood raise UnitError.
"""

from . import _core
from ._arrays import convert_other as _convert_other
from ._catalogue import Catalogue, Quantity, Slate
from ._catalogue import inverse as _inverse
from ._catalogue import remake as _remake
from ._catalogue import shipped as _shipped
from ._core import Conversion
from ._errors import UnitError, UnitWarning
from ._errors import warn as _warn
from ._pandas import register as _register

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from ._tables import Class, Found, SlateName, Table, Unit

__version__ = _core.version
__all__ = [
    "Catalogue",
    "Class",
    "Conversion",
    "Found",
    "Quantity",
    "Slate",
    "SlateName",
    "Table",
    "Unit",
    "UnitError",
    "UnitWarning",
    "classes",
    "convert",
    "quantities",
    "read",
    "search",
    "slate",
    "slates",
    "units",
]

_core.lend(UnitError, _warn, _convert_other, _remake, _inverse, _shipped)
_register()

convert = _shipped.convert
read = _shipped.read
units = _shipped.units
classes = _shipped.classes
search = _shipped.search
quantities = _shipped.quantities
slate = _shipped.slate
slates = _shipped.slates


def __getattr__(name: str) -> object:
    """The classes of rows, which few programs name: loaded when they are wanted."""
    if name in ("Class", "Found", "SlateName", "Table", "Unit"):
        from . import _tables

        value: object = getattr(_tables, name)
        return value
    raise AttributeError(f"module 'uom' has no attribute {name!r}")
