"""The accessors `frame.uom` and `series.uom`, registered when pandas is loaded, before or after this package.

What a column is in stands in `attrs["units"]`: of a Series a text, of a frame a mapping by column.
"""

from __future__ import annotations

import sys

from ._catalogue import Catalogue, shipped
from ._core import Conversion
from ._errors import UnitError

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from collections.abc import Mapping, Sequence
    from importlib.machinery import ModuleSpec
    from types import ModuleType
    from typing import Any

    import pandas

Wanted = str | tuple[str, str] | tuple[str, str, str]


def _check_stated(conversion: Conversion, stated: object, label: object, catalogue: Catalogue) -> None:
    """A column whose units are known is not converted from others."""
    if not isinstance(stated, str) or stated == conversion.from_:
        return
    try:
        same = Conversion(stated, conversion.from_, conversion.quantity, catalogue=catalogue, _quiet=True)
        is_same = same.linear and (same.factor, same.offset) == (1.0, 0.0)
    except UnitError:
        is_same = False
    if not is_same:
        raise UnitError(f'The column {label!r} is in "{stated}" and not in "{conversion.from_}".', conversion.from_)


def _conversion_of(wanted: Wanted, stated: object, label: object, catalogue: Catalogue) -> Conversion:
    if isinstance(wanted, str):
        if not isinstance(stated, str):
            raise UnitError(f"The units of the column {label!r} are not known: name them in front.", wanted)
        wanted = (stated, wanted)
    texts = tuple(wanted)
    if len(texts) not in (2, 3):
        raise TypeError(f"the column {label!r} wants (from, to) or (from, to, quantity), not {wanted!r}")
    conversion = catalogue._prepared(texts[0], texts[1], texts[2] if len(texts) == 3 else None)
    _check_stated(conversion, stated, label, catalogue)
    return conversion


class FrameUnits:
    """Conversion of columns, and the units that are known of them."""

    def __init__(self, frame: pandas.DataFrame) -> None:
        self._frame = frame

    @property
    def units(self) -> dict[Any, str]:
        """The units that are known, by column: a copy of attrs["units"]."""
        return dict(self._frame.attrs.get("units", {}))

    def convert(self, columns: Mapping[Any, Wanted], *, catalogue: Catalogue | None = None) -> pandas.DataFrame:
        """A new frame with some columns converted; the others, and the index, are as they were.

        columns    by label (from, to), (from, to, quantity), or the wanted units alone where attrs["units"] has the others
        catalogue  whose units and atmospheric pressure count

        The new units stand in attrs["units"]. Raises KeyError for a column that is not there, UnitError for units, also
        for a column that attrs["units"] has in others than those given.
        """
        known = self.units
        result = self._frame.copy()
        for label, wanted in columns.items():
            conversion = _conversion_of(wanted, known.get(label), label, catalogue or shipped)
            places = self._places(label)
            result.isetitem(places[0], conversion(self._frame.iloc[:, places[0]]))
            known[label] = conversion.to
        result.attrs["units"] = known
        return result

    def _places(self, label: Any) -> Sequence[int]:
        places = [i for i, column in enumerate(self._frame.columns) if column == label]
        if len(places) != 1:
            raise KeyError(label) if not places else ValueError(f"there are {len(places)} columns {label!r}")
        return places


class SeriesUnits:
    """Conversion of a Series, and the units that are known of it."""

    def __init__(self, series: pandas.Series[Any]) -> None:
        self._series = series

    @property
    def units(self) -> str | None:
        """The units that are known: attrs["units"]."""
        units: str | None = self._series.attrs.get("units")
        return units

    def convert(self, *wanted: str, catalogue: Catalogue | None = None) -> pandas.Series[Any]:
        """A new Series: convert(from_, to, quantity), or convert(to) where attrs["units"] has the others."""
        given: Any = wanted[0] if len(wanted) == 1 else wanted
        conversion = _conversion_of(given, self.units, self._series.name, catalogue or shipped)
        return conversion(self._series)


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
