"""Conversion of everything that is no float and no int.

Arrays are converted by the extension, which takes any memory with the buffer protocol; here their results are made.
Nothing is imported that the caller has not imported: NumPy, pandas and Dask are looked up among the loaded modules, and
NumPy alone is loaded, for sequences.
"""

from __future__ import annotations

import math
import sys

from ._errors import warn_caller
from ._stated import check_stated, put_column, put_frame, result_of, stated_of

TYPE_CHECKING = False  # that of typing, which costs an import of milliseconds
if TYPE_CHECKING:
    from typing import Any

    import numpy
    import pandas

    from ._core import Conversion


def _name(value: object) -> str:
    return type(value).__name__


def _is_masked(values: object) -> bool:
    numpy = sys.modules.get("numpy")
    return numpy is not None and isinstance(values, numpy.ma.MaskedArray)


# --- NumPy


def _number_of(element: Any, place: int) -> float:
    """One element of an array of objects. None and pandas' NA are missing values."""
    if element is None or _name(element) == "NAType":
        return math.nan
    kind = getattr(getattr(element, "dtype", None), "kind", "f")
    if isinstance(element, (bool, str, bytes, complex)) or kind not in "iuf" or not hasattr(element, "__float__"):
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
        if conversion._into(source, out):
            _tell_overflow(source, numpy.asarray(out))
        return out
    result_type = numpy.float32 if source.dtype.kind == "f" and source.dtype.itemsize == 4 else numpy.float64
    result = numpy.empty_like(source, dtype=result_type, subok=False)
    if conversion._into(source, result):
        _tell_overflow(source, result)
    return result if result.ndim > 0 else result[()]


def _tell_overflow(source: numpy.ndarray[Any, Any], result: numpy.ndarray[Any, Any]) -> None:
    """What numpy.errstate says of results that are infinite and come from numbers that are not."""
    import numpy

    way = numpy.geterr()["over"]
    if way == "ignore" or not (numpy.isinf(result) & (numpy.isfinite(source) | numpy.may_share_memory(source, result))).any():
        return
    if way == "raise":
        raise FloatingPointError("overflow encountered in a conversion")
    warn_caller("overflow encountered in a conversion", RuntimeWarning)


def _check_out(out: Any) -> None:
    """That the results go into an array which is none of an object that knows more of its values."""
    numpy = sys.modules.get("numpy")
    is_array = numpy is not None and isinstance(out, numpy.ndarray)
    if is_array:
        if _is_masked(out):
            raise TypeError("out is a masked array, and the values are not")
        if out.dtype.kind != "f" or out.dtype.itemsize not in (4, 8):
            raise TypeError(f"out is an array of float64 or float32, not of {out.dtype}")
    try:
        fixed = not out.flags.writeable if is_array else memoryview(out).readonly
    except TypeError:
        raise TypeError(f"out is an array of float64 or float32, not of the type {_name(out)}") from None
    if fixed:
        raise ValueError("out is read-only")


def _convert_masked(conversion: Conversion, array: numpy.ma.MaskedArray[Any, Any], out: Any) -> Any:
    """The mask goes along; what is below it is converted, too, where it is a number."""
    import numpy

    ma: Any = numpy.ma
    mask = ma.getmask(array)
    source = ma.filled(array, math.nan) if array.dtype.kind == "O" else array.data
    if out is None:
        data = _convert_array(conversion, source, None)
        if data.ndim == 0 and mask:
            return ma.masked
        fill = array.fill_value if array.dtype.kind in "iuf" else None
        return ma.MaskedArray(data, mask=mask.copy(), fill_value=fill, hard_mask=array.hardmask)
    if not _is_masked(out):
        raise TypeError("the values are a masked array, and out is not")
    _convert_array(conversion, source, out.data)
    out.mask = mask
    return out


# --- pandas


def _is_pandas(values: Any) -> bool:
    pandas = sys.modules.get("pandas")
    kinds = ("Series", "DataFrame", "Index")  # which pandas lacks while it is being imported
    return pandas is not None and hasattr(pandas, "api") and isinstance(
        values, (*(getattr(pandas, kind) for kind in kinds), pandas.api.extensions.ExtensionArray)
    )


def convert_column(conversion: Conversion, column: Any, name: object) -> Any:
    """The values of a Series, Index or array of pandas: an array, or one with missing values where pandas has them beside
    the values.
    """
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
    if isinstance(getattr(column, "array", column), (pandas.arrays.IntegerArray, pandas.arrays.FloatingArray)):
        return pandas.arrays.FloatingArray(values, numpy.array(column.isna(), dtype=bool))
    return values


def _convert_series(conversion: Conversion, series: pandas.Series[Any]) -> Any:
    import pandas

    check_stated(conversion, stated_of(series.attrs, series.name), series.name)
    values = convert_column(conversion, series, series.name)
    result = pandas.Series(values, index=series.index, name=series.name, copy=False).__finalize__(series)
    put_column(result.attrs, result_of(conversion))
    return result


def _convert_frame(conversion: Conversion, frame: pandas.DataFrame) -> Any:
    import pandas

    for label in frame.columns:
        check_stated(conversion, stated_of(frame.attrs, label), label)
    columns = {i: convert_column(conversion, frame.iloc[:, i], label) for i, label in enumerate(frame.columns)}
    result = pandas.DataFrame(columns, index=frame.index, copy=False)
    result.columns = frame.columns
    result = result.__finalize__(frame)
    put_frame(result.attrs, dict.fromkeys(frame.columns, result_of(conversion)))
    return result


def _convert_index(conversion: Conversion, index: pandas.Index[Any]) -> Any:
    import pandas

    if isinstance(index, pandas.MultiIndex):
        raise TypeError("a MultiIndex holds no real numbers: convert one of its levels")
    return pandas.Index(convert_column(conversion, index, index.name), name=index.name)


def _convert_pandas(conversion: Conversion, values: Any, out: Any) -> Any:
    import pandas

    if out is not None:
        raise TypeError(f"a {_name(values)} is converted into a new one: out is for arrays")
    if isinstance(values, pandas.Series):
        return _convert_series(conversion, values)
    if isinstance(values, pandas.DataFrame):
        return _convert_frame(conversion, values)
    if isinstance(values, pandas.api.extensions.ExtensionArray):
        return convert_column(conversion, values, None)
    return _convert_index(conversion, values)


# --- Dask


def _is_dask(values: Any) -> bool:
    return type(values).__module__.startswith("dask.") and hasattr(values, "__dask_graph__")


def _convert_dask(conversion: Conversion, values: Any, out: Any) -> Any:
    """The conversion goes to the workers; here it meets an empty piece, so what is no number is told at once."""
    if not hasattr(values, "_meta"):
        raise TypeError(f"a Dask {_name(values)} holds no columns of real numbers: map a conversion over its elements")
    if out is not None:
        raise TypeError(f"a Dask {_name(values)} is converted into a new one: out is for arrays")
    meta = conversion(values._meta)
    if hasattr(values, "map_blocks"):
        return values.map_blocks(conversion, dtype=meta.dtype, meta=meta)
    if hasattr(values, "map_partitions"):
        return values.map_partitions(conversion, meta=meta)
    raise TypeError(f"a Dask {_name(values)} holds no real numbers")


# --- all


def _types(values: Any) -> set[type]:
    """The types of the elements of nested lists."""
    import numpy

    found: set[type] = set(map(type, values))
    for value in values if found & {list, tuple, numpy.ndarray} else ():
        if isinstance(value, (list, tuple)):
            found |= _types(value)
        elif isinstance(value, numpy.ndarray):
            found.add(value.dtype.type)
    return found


def _stacked(values: Any) -> Any:
    import numpy

    ma: Any = numpy.ma
    return ma.stack([_stacked(value) for value in values]) if isinstance(values, (list, tuple)) else values


PLAIN = {float, int}


def _array_of(values: Any) -> Any:
    """The array of a list, whose elements may be lists and arrays; doubles, unless they are objects."""
    import numpy

    if PLAIN.issuperset(map(type, values)):
        return numpy.array(values, dtype=numpy.float64)
    types = _types(values)
    if types & {bool, numpy.bool_}:
        raise TypeError("a list with booleans in it holds no real numbers")
    if any(issubclass(kind, numpy.ma.MaskedArray) for kind in types):
        array = _stacked(values)
    else:
        array = numpy.asarray(values)
    return array.astype(numpy.float64) if array.dtype.kind in "iuf" and array.dtype != numpy.float64 else array


def _as_array(values: Any) -> Any:
    """What NumPy makes of a number, sequence or object with __array__."""
    try:
        import numpy
    except ModuleNotFoundError:
        raise TypeError(
            f"a value of the type {_name(values)} is no number, and new arrays need NumPy: without it, give an out="
        ) from None
    try:
        if isinstance(values, (list, tuple)):
            return _array_of(values)
        array = numpy.asarray(values)
    except ValueError:
        raise ValueError("the values make no array: they are lists of different lengths") from None
    if array.ndim == 0 and array.dtype.kind == "O":
        raise TypeError(f"a value of the type {_name(values)} is no real number")
    return array


def convert_other(conversion: Conversion, values: Any, out: Any) -> Any:
    """Called by the extension for what it does not convert by itself."""
    numpy = sys.modules.get("numpy")
    if numpy is not None and isinstance(values, numpy.ndarray):
        return (_convert_masked if _is_masked(values) else _convert_array)(conversion, values, out)
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
    if out is not None and not _is_masked(out):
        _check_out(out)
    if numpy is None and out is not None and not is_number:
        conversion._into(values, out)  # two objects with the buffer protocol
        return out
    array = _as_array(values)
    return (_convert_masked if _is_masked(array) else _convert_array)(conversion, array, out)
