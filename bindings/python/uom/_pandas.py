"""The accessors `frame.uom` and `series.uom`, registered when pandas is loaded, before or after this package.

What a column is in stands in `attrs["units"]`, as _stated.py says.
"""

from __future__ import annotations

import sys
from collections.abc import Mapping
from types import MappingProxyType

from ._arrays import convert_column
from ._catalogue import Catalogue, shipped
from ._core import Conversion
from ._errors import UnitError
from ._stated import Stated, check_stated, put_column, put_frame, result_of, stated_of

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from importlib.machinery import ModuleSpec
    from types import ModuleType
    from typing import Any

    import pandas

Wanted = str | tuple[str, str] | tuple[str, str, str]


def _conversion_of(wanted: Wanted, stated: Stated | None, label: object, catalogue: Catalogue) -> Conversion:
    if not isinstance(wanted, str):
        texts = tuple(wanted)
        if len(texts) not in (2, 3):
            raise TypeError(f"the column {label!r} wants (from, to) or (from, to, quantity), not {wanted!r}")
        conversion = catalogue._prepared(texts[0], texts[1], texts[2] if len(texts) == 3 else None)
    elif stated is None:
        raise UnitError(f"The units of the column {label!r} are not known: name them in front.", wanted)
    else:
        conversion = catalogue._prepared(stated.units, wanted, stated.quantity or None)
    check_stated(conversion, stated, label)
    return conversion


class FrameUnits:
    """Conversion of columns, and the units that are known of them."""

    def __init__(self, frame: pandas.DataFrame) -> None:
        self._frame = frame

    @property
    def units(self) -> Mapping[Any, str]:
        """The units that are known, by column; attrs["units"] has them. Set a mapping to state others.

        A single text there is that of the only column. UnitError for one of a frame of several, and for what is no text.
        """
        return MappingProxyType({label: stated.units for label, stated in self._stated().items()})

    @units.setter
    def units(self, units: Mapping[Any, str]) -> None:
        put_frame(self._frame.attrs, {label: Stated(_checked_units(text)) for label, text in units.items()})

    def _stated(self) -> dict[Any, Stated]:
        attrs = self._frame.attrs
        held = attrs.get("units", {})
        by_column = isinstance(held, Mapping)
        if not by_column and (len(self._frame.columns) != 1 or not isinstance(held, str)):
            raise UnitError(f'attrs["units"] of the frame is {held!r}, and no mapping by column.')
        labels = held if by_column else self._frame.columns
        return {label: stated for label in labels if (stated := stated_of(attrs, label))}

    def convert(self, columns: Mapping[Any, Wanted], *, catalogue: Catalogue | None = None) -> pandas.DataFrame:
        """A new frame with some columns converted; the others, and the index, are as they were.

        columns    by label (from, to), (from, to, quantity), or the wanted units alone where attrs["units"] has the others
        catalogue  whose units and atmospheric pressure count

        The new units stand in attrs["units"], the quantities beside them. Raises KeyError for a column that is not there,
        UnitError for units, also for a column that attrs["units"] has in others than those given.
        """
        if not hasattr(columns, "items"):
            raise TypeError(f'columns is a mapping, {{"P": ("psig", "kPa")}}, not {columns!r}')
        known = self._stated()
        result = self._frame.copy()
        for label, wanted in columns.items():
            conversion = _conversion_of(wanted, known.get(label), label, catalogue or shipped)
            place = self._place(label)
            result.isetitem(place, convert_column(conversion, self._frame.iloc[:, place], label))
            known[label] = result_of(conversion)
        put_frame(result.attrs, known)
        return result

    def _place(self, label: Any) -> int:
        places = [i for i, column in enumerate(self._frame.columns) if column == label]
        if len(places) != 1:
            raise KeyError(label) if not places else ValueError(f"there are {len(places)} columns {label!r}")
        return places[0]


class SeriesUnits:
    """Conversion of a Series, and the units that are known of it."""

    def __init__(self, series: pandas.Series[Any]) -> None:
        self._series = series

    @property
    def units(self) -> str | None:
        """The units that are known: attrs["units"], of a column of a frame those of its name. Set a text to state others."""
        stated = self._stated()
        return stated.units if stated else None

    @units.setter
    def units(self, units: str) -> None:
        put_column(self._series.attrs, Stated(_checked_units(units)))

    def _stated(self) -> Stated | None:
        return stated_of(self._series.attrs, self._series.name)

    def convert(self, *wanted: str, catalogue: Catalogue | None = None) -> pandas.Series[Any]:
        """A new Series: convert(from_, to, quantity), or convert(to) where attrs["units"] has the others."""
        given: Any = wanted[0] if len(wanted) == 1 else wanted
        conversion = _conversion_of(given, self._stated(), self._series.name, catalogue or shipped)
        return conversion(self._series)


def _checked_units(units: str) -> str:
    if not isinstance(units, str):
        raise TypeError(f"units are a text, not {type(units).__name__}")
    return units


def _register(pandas: Any) -> None:
    pandas.api.extensions.register_dataframe_accessor("uom")(FrameUnits)
    pandas.api.extensions.register_series_accessor("uom")(SeriesUnits)


class _WhenLoaded:
    """A finder that finds nothing by itself: it registers the accessors behind the loading of pandas, and is gone."""

    def __init__(self) -> None:
        self._asks = False

    def find_spec(self, name: str, path: Any = None, target: ModuleType | None = None) -> ModuleSpec | None:
        if name != "pandas" or self._asks:
            return None
        from importlib.util import find_spec

        self._asks = True
        try:
            found = find_spec(name)
        finally:
            self._asks = False
        loader: Any = found and found.loader
        if not hasattr(loader, "exec_module"):
            return found
        load = loader.exec_module

        def load_and_register(module: ModuleType) -> None:
            load(module)
            _register(module)
            if self in sys.meta_path:
                sys.meta_path.remove(self)

        loader.exec_module = load_and_register
        return found


def register() -> None:
    pandas = sys.modules.get("pandas")
    if pandas is None:
        sys.meta_path.insert(0, _WhenLoaded())
    elif hasattr(pandas, "api"):
        _register(pandas)
