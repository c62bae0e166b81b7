"""Conversion of everything that is no float and no int.

Arrays are converted by the extension, which takes any memory with the buffer protocol; here their results are made.
Nothing is imported that the caller has not imported: NumPy, pandas and Dask are looked up among the loaded modules, and
NumPy alone is loaded, for sequences.
"""

from __future__ import annotations

import sys

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from typing import Any

    import numpy
    import pandas

    from ._core import Conversion


def _name(value: object) -> str:
    return type(value).__name__


# --- NumPy


def _number_of(element: Any, place: int) -> float:
    """One element of an array of objects. None and pandas' NA are missing values."""
    if element is None or _name(element) == "NAType":
        return float("nan")
    if isinstance(element, (bool, str, bytes, complex)) or not hasattr(element, "__float__"):
        raise TypeError(f"element {place} is no real number but of the type {_name(element)}")
    return float(element)


def _as_real(array: numpy.ndarray[Any, Any]) -> numpy.ndarray[Any, Any]:
    """The array, or a copy of it, with elements that the extension reads."""
    import numpy

    kind, size = array.dtype.kind, array.dtype.itemsize
    if kind in "iu" or (kind == "f" and size in (4, 8)):
        return array
    if kind == "f":  # a half has no room for pascals; what is longer than a double gets no longer constants
        return array.astype(numpy.float32 if size < 4 else numpy.float64)
    if kind == "O":
        numbers = [_number_of(element, place) for place, element in enumerate(array.ravel())]
        return numpy.array(numbers, dtype=numpy.float64).reshape(array.shape)
    raise TypeError(f"an array of {array.dtype} holds no real numbers")


def _convert_array(conversion: Conversion, array: numpy.ndarray[Any, Any], out: Any) -> Any:
    import numpy

    source = _as_real(array)
    if out is not None:
        _check_out(out)
        conversion._into(source, out)
        return out
    result_type = numpy.float32 if source.dtype.kind == "f" and source.dtype.itemsize == 4 else numpy.float64
    result = numpy.empty_like(source, dtype=result_type, subok=False)
    conversion._into(source, result)
    return result if result.ndim > 0 else result[()]


def _check_out(out: Any) -> None:
    numpy = sys.modules.get("numpy")
    if numpy is not None and isinstance(out, numpy.ma.MaskedArray):
        raise TypeError("out is a masked array, and the values are not")
    if _is_pandas(out):
        raise TypeError(f"out is an array, not a {_name(out)}")


def _convert_masked(conversion: Conversion, array: numpy.ma.MaskedArray[Any, Any], out: Any) -> Any:
    """The mask goes along; what is below it is converted, too."""
    import numpy

    ma: Any = numpy.ma
    mask = ma.getmask(array)
    if out is None:
        data = _convert_array(conversion, array.data, None)
        return ma.masked if data.ndim == 0 and mask else ma.MaskedArray(data, mask=mask.copy())
    if not isinstance(out, numpy.ma.MaskedArray):
        raise TypeError("the values are a masked array, and out is not")
    _convert_array(conversion, array.data, out.data)
    out.mask = mask
    return out


# --- pandas


def _is_pandas(values: Any) -> bool:
    pandas = sys.modules.get("pandas")
    return pandas is not None and isinstance(values, (pandas.Series, pandas.DataFrame, pandas.Index))


def _convert_column(conversion: Conversion, column: pandas.Series[Any] | pandas.Index[Any], name: object) -> Any:
    """The values of a Series or Index: an array, or one with missing values where pandas has them beside the values."""
    import numpy
    import pandas

    dtype: Any = column.dtype
    try:
        if isinstance(dtype, numpy.dtype):
            return _convert_array(conversion, column.to_numpy(), None)
        if getattr(dtype, "kind", "O") not in "iuf":
            raise TypeError(f"{dtype} is no type of real numbers")
    except TypeError as error:
        where = "" if name is None else f" {name!r}"
        raise TypeError(f"{_name(column)}{where}: {error}") from None
    wanted = numpy.float32 if str(dtype).lower() == "float32" else numpy.float64
    values = _convert_array(conversion, column.to_numpy(dtype=wanted, na_value=numpy.nan), None)
    if isinstance(column.array, (pandas.arrays.IntegerArray, pandas.arrays.FloatingArray)):
        return pandas.arrays.FloatingArray(values, column.isna().astype(bool).to_numpy())
    return values


def _convert_series(conversion: Conversion, series: pandas.Series[Any]) -> Any:
    import pandas

    values = _convert_column(conversion, series, series.name)
    result = pandas.Series(values, index=series.index, name=series.name, copy=False).__finalize__(series)
    result.attrs["units"] = conversion.to
    return result


def _convert_frame(conversion: Conversion, frame: pandas.DataFrame) -> Any:
    import pandas

    columns = {i: _convert_column(conversion, frame.iloc[:, i], label) for i, label in enumerate(frame.columns)}
    result = pandas.DataFrame(columns, index=frame.index, copy=False)
    result.columns = frame.columns
    result = result.__finalize__(frame)
    result.attrs["units"] = {label: conversion.to for label in frame.columns}
    return result


def _convert_index(conversion: Conversion, index: pandas.Index[Any]) -> Any:
    import pandas

    if isinstance(index, pandas.MultiIndex):
        raise TypeError("a MultiIndex holds no real numbers: convert one of its levels")
    return pandas.Index(_convert_column(conversion, index, index.name), name=index.name)


def _convert_pandas(conversion: Conversion, values: Any, out: Any) -> Any:
    import pandas

    if out is not None:
        raise TypeError(f"a {_name(values)} is converted into a new one: out is for arrays")
    if isinstance(values, pandas.Series):
        return _convert_series(conversion, values)
    if isinstance(values, pandas.DataFrame):
        return _convert_frame(conversion, values)
    return _convert_index(conversion, values)


# --- Dask


def _is_dask(values: Any) -> bool:
    return type(values).__module__.startswith("dask.") and hasattr(values, "__dask_graph__")


def _convert_dask(conversion: Conversion, values: Any, out: Any) -> Any:
    """The conversion goes to the workers; here it meets an empty piece, so what is no number is told at once."""
    if out is not None:
        raise TypeError(f"a Dask {_name(values)} is converted into a new one: out is for arrays")
    meta = conversion(values._meta)
    if hasattr(values, "map_blocks"):
        return values.map_blocks(conversion, dtype=meta.dtype, meta=meta)
    if hasattr(values, "map_partitions"):
        return values.map_partitions(conversion, meta=meta)
    raise TypeError(f"a Dask {_name(values)} holds no real numbers")


# --- all


def _as_array(values: Any) -> Any:
    """What NumPy makes of a number, sequence or object with __array__."""
    try:
        import numpy
    except ModuleNotFoundError:
        raise TypeError(f"a value of the type {_name(values)} is no number, and arrays need NumPy") from None
    array = numpy.asarray(values)
    if array.ndim == 0 and array.dtype.kind == "O":
        raise TypeError(f"a value of the type {_name(values)} is no real number")
    return array


def convert_other(conversion: Conversion, values: Any, out: Any) -> Any:
    """Called by the extension for what it does not convert by itself."""
    numpy = sys.modules.get("numpy")
    if numpy is not None and isinstance(values, numpy.ndarray):
        if isinstance(values, numpy.ma.MaskedArray):
            return _convert_masked(conversion, values, out)
        return _convert_array(conversion, values, out)
    if values is None or isinstance(values, (bool, complex, bytes, bytearray)):
        raise TypeError(f"a value of the type {_name(values)} is no real number")
    if isinstance(values, str):
        raise TypeError(f"a text is no number: uom.read({values!r}).to(...) reads one with its unit")
    if _is_pandas(values):
        return _convert_pandas(conversion, values, out)
    if _is_dask(values):
        return _convert_dask(conversion, values, out)
    is_number = hasattr(values, "__float__") and not hasattr(values, "__array__")
    if is_number and out is None:
        return conversion(float(values))
    if numpy is None and out is not None and not is_number:
        conversion._into(values, out)  # two objects with the buffer protocol
        return out
    return _convert_array(conversion, _as_array(values), out)
