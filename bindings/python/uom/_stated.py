"""What stands of a column in `attrs`: "units", and beside them the "quantity" that they were converted in and, of units above
the atmosphere, its pressure in kPa as "gauge". Of a Series these are values, of a frame mappings by column.
"""

from __future__ import annotations

import math
from collections.abc import Mapping

from ._catalogue import Catalogue, catalogue_of
from ._core import Conversion
from ._errors import UnitError

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from typing import Any

KEYS = ("units", "quantity", "gauge")


class Stated:
    """What is known of a column. The quantity and the atmosphere are None where somebody else has written the units."""

    __slots__ = KEYS

    def __init__(self, units: str, quantity: str | None = None, gauge: float | None = None) -> None:
        self.units = units
        self.quantity = quantity
        self.gauge = gauge


def _held(attrs: dict[Any, Any], key: str, label: Any) -> Any:
    held = attrs.get(key)
    return held.get(label) if isinstance(held, Mapping) else held


def stated_of(attrs: dict[Any, Any], label: Any) -> Stated | None:
    """Of a column, by the attrs of its own or of its frame; None where these name no units."""
    units, quantity, gauge = (_held(attrs, key, label) for key in KEYS)
    return Stated(units, quantity, gauge) if isinstance(units, str) else None


def _atmosphere(units: str, quantity: str | None, catalogue: Catalogue) -> float | None:
    """What 0 of the units is in kPa; None for units that don't begin at the atmosphere."""
    if not (quantity or "").lower().startswith("pres"):
        return None
    try:
        return Conversion(units, "kPa", quantity, catalogue=catalogue, _quiet=True)(0.0) or None
    except UnitError:
        return None


def result_of(conversion: Conversion) -> Stated:
    """What is known of a column that was converted."""
    quantity = conversion.quantity or None
    return Stated(conversion.to, quantity, _atmosphere(conversion.to, quantity, catalogue_of(conversion._origin)))


def put(attrs: dict[Any, Any], values: dict[str, Any]) -> None:
    """Writes by key; what is None or empty goes."""
    for key in KEYS:
        attrs.pop(key, None)
        if values.get(key):
            attrs[key] = values[key]


def put_column(attrs: dict[Any, Any], stated: Stated) -> None:
    put(attrs, {key: getattr(stated, key) for key in KEYS})


def put_frame(attrs: dict[Any, Any], columns: dict[Any, Stated]) -> None:
    rows = {key: {label: getattr(stated, key) for label, stated in columns.items()} for key in KEYS}
    put(attrs, {key: {label: value for label, value in row.items() if value} for key, row in rows.items()})


def _is_read(units: str, catalogue: Catalogue) -> bool:
    try:
        return bool(Conversion(units, units, catalogue=catalogue, _quiet=True))
    except UnitError:
        return False


def _are_same(units: str, others: str, quantity: str | None, catalogue: Catalogue) -> bool:
    try:
        between = Conversion(units, others, quantity, catalogue=catalogue, _quiet=True)
    except UnitError:
        return False
    return between.linear and (between.factor, between.offset) == (1.0, 0.0)


def check_stated(conversion: Conversion, stated: Stated | None, label: Any) -> None:
    """A column is not converted from other units than those that it is in, nor unasked as another quantity, nor from above
    another atmosphere. Units that somebody else has written, and that are not understood, say nothing.
    """
    if stated is None:
        return
    catalogue, quantity = catalogue_of(conversion._origin), conversion.quantity or None
    if stated.units != conversion.from_ and not _are_same(stated.units, conversion.from_, quantity, catalogue):
        if not stated.quantity and not _is_read(stated.units, catalogue):
            return
        raise UnitError(
            f'The column {label!r} is in "{stated.units}" and not in "{conversion.from_}", as its attrs["units"] tell.',
            conversion.from_,
        )
    if conversion._given is None and stated.quantity and not _alike(conversion, stated.quantity, catalogue):
        raise UnitError(
            f"The column {label!r} is a {stated.quantity} and would be converted as a {quantity}: quantity= says which "
            "one is meant.",
            conversion.from_,
        )
    here = _atmosphere(stated.units, quantity, catalogue)
    if stated.gauge and here and not math.isclose(stated.gauge, here, rel_tol=1e-12):
        raise UnitError(
            f'The column {label!r} is in "{stated.units}" above an atmosphere of {stated.gauge} kPa, and not of {here} kPa: '
            "convert it with its own catalogue.",
            conversion.from_,
        )


def _alike(conversion: Conversion, quantity: str, catalogue: Catalogue) -> bool:
    try:
        other = Conversion(conversion.from_, conversion.to, quantity, catalogue=catalogue, _quiet=True)
    except UnitError:
        return True
    return other._probe == conversion._probe
