"""Arrays of every kind: each element becomes what it becomes by itself."""

import array
import tracemalloc
import warnings
from decimal import Decimal
from fractions import Fraction

import numpy
import pytest
import uom
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as arrays

to_psi = uom.Conversion("kPag", "psia", "Pres")
TYPES = ["f8", ">f8", "f4", ">f4", "f2", "g", "i1", "u1", ">i2", "u2", "i4", ">u4", "i8", "u8", ">i8"]


def one_by_one(values):
    """What the array becomes, element by element, as Python numbers."""
    flat = [to_psi(float(value)) for value in values.ravel()]
    wanted = numpy.array(flat, dtype=numpy.float64).reshape(values.shape)
    small = values.dtype.kind == "f" and values.dtype.itemsize <= 4
    return wanted.astype(numpy.float32) if small else wanted


def same(found, wanted):
    return found.dtype == wanted.dtype and found.shape == wanted.shape and found.tobytes() == wanted.tobytes()


@st.composite
def views(draw):
    """An array of any type, and of strides that are none of a new array's."""
    kind = numpy.dtype(draw(st.sampled_from(TYPES)))
    shape = draw(arrays.array_shapes(min_dims=1, max_dims=4, max_side=9))
    numbers = numpy.random.default_rng(draw(st.integers(0, 99))).integers(0, 120, size=shape)
    steps = tuple(slice(None, None, draw(st.sampled_from([1, -1, 2, -2]))) for _ in shape)
    return numbers.astype(kind)[steps].transpose(draw(st.permutations(range(len(shape)))))


@settings(max_examples=300)
@given(views())
def test_any_type_shape_and_stride(values):
    before = values.copy()
    assert same(to_psi(values), one_by_one(values)) and numpy.array_equal(values, before)
    for kind in ("f8", ">f8", "f4"):
        out = numpy.full(values.shape[::-1], 7.0, dtype=kind).T
        assert to_psi(values, out=out) is out
        wanted = to_psi(values.astype(numpy.float64))
        assert numpy.array_equal(out.astype("f8"), wanted.astype(kind).astype("f8"))


@settings(max_examples=300)
@given(st.data())
def test_memory_that_overlaps(data):
    memory = numpy.arange(64.0)
    count = data.draw(st.integers(1, 20))

    def piece():
        step = data.draw(st.sampled_from([1, 2, 3, -1, -2]))
        start = data.draw(st.integers(0, 63 - (count - 1) * abs(step)))
        return memory[start : start + (count - 1) * abs(step) + 1][:: step if step > 0 else step]

    values, out = piece(), piece()
    wanted = one_by_one(values.copy())
    to_psi(values, out=out)
    assert numpy.array_equal(out, wanted)


def test_overlap_of_axes_and_of_types():
    square = numpy.arange(2500.0).reshape(50, 50)
    wanted = to_psi(square.T.copy())
    assert numpy.array_equal(to_psi(square.T, out=square), wanted)
    doubles = numpy.arange(3000.0)
    wanted = to_psi(doubles).astype("f4")
    assert numpy.array_equal(to_psi(doubles, out=doubles.view("f4")[:3000]), wanted)


def test_long_arrays_and_many_axes():
    long = numpy.linspace(-50, 500, 300_000)
    assert same(to_psi(long), one_by_one(long))
    assert same(to_psi(long.reshape(3, -1).T), one_by_one(long.reshape(3, -1).T))
    many = numpy.arange(2.0**16).reshape((2,) * 16).transpose(range(15, -1, -1))
    assert same(to_psi(many), one_by_one(many))
    records = numpy.zeros(3000, dtype=[("tag", "u1"), ("P", "f8"), ("T", "f4")])
    records["P"] = numpy.arange(3000)
    to_psi(records["P"], out=records["P"])  # not aligned
    assert numpy.array_equal(records["P"], to_psi(numpy.arange(3000))) and not records["T"].any()


def test_empty_and_single():
    for empty in (numpy.zeros(0), numpy.zeros((3, 0, 2), dtype="f4"), []):
        assert same(to_psi(empty), to_psi(numpy.asarray(empty))) and to_psi(empty).shape == numpy.shape(empty)
    assert type(to_psi(numpy.array(3))) is numpy.float64 and type(to_psi(numpy.float32(3))) is numpy.float32
    out = numpy.zeros(())
    assert to_psi(250, out=out) is out and out == to_psi(250.0)
    assert same(to_psi(numpy.broadcast_to(2.0, (3, 4))), one_by_one(numpy.broadcast_to(2.0, (3, 4))))


def test_numbers_and_sequences():
    assert type(to_psi(3)) is float and to_psi(Decimal("0.5")) == to_psi(Fraction(1, 2)) == to_psi(0.5)
    for values in ([1, 2.5], (1, 2.5), range(3), [[1, 2], [3, 4]], array.array("f", [1, 2.5]), memoryview(b"abc")):
        assert same(to_psi(values), one_by_one(numpy.asarray(values)))

    class Columns:
        def __array__(self, dtype=None):
            return numpy.arange(3.0)

    assert same(to_psi(Columns()), one_by_one(numpy.arange(3.0)))
    assert to_psi([numpy.float32(1)]).dtype == to_psi([numpy.zeros(2, "f4"), [1, 2]]).dtype == "f8"


def test_objects_and_masks():
    objects = numpy.array([1, 2.5, None, Decimal(4), numpy.float32(1)], dtype=object)
    assert numpy.array_equal(to_psi(objects), to_psi([1, 2.5, numpy.nan, 4, 1]), equal_nan=True)
    masked = numpy.ma.array([1, 2, 3], mask=[False, True, False])
    found = to_psi(masked)
    assert found.mask.tolist() == [False, True, False] and found[0] == to_psi(1.0) and masked.data.tolist() == [1, 2, 3]
    found.mask[0] = True
    assert not masked.mask[0]
    out = numpy.ma.zeros(3)
    assert to_psi(masked, out=out) is out and out.mask.tolist() == [False, True, False] and out[2] == to_psi(3.0)
    assert to_psi(numpy.ma.masked) is numpy.ma.masked and not to_psi(numpy.ma.zeros(2)).mask.any()
    for several in ([masked, [4, 5, 6]], [[masked], (masked,)], (1.0, numpy.ma.masked)):
        found = to_psi(several)
        assert found.mask.tolist() in ([False, True], [[False, True, False], [False] * 3], [[[False, True, False]]] * 2)
        assert found.ravel()[0] == to_psi(1.0)
    hard = to_psi(numpy.ma.array([1.0, 2.0], mask=[0, 1], fill_value=-9, hard_mask=True))
    assert hard.fill_value == -9 and hard.hardmask
    assert to_psi(numpy.ma.array([1, "bad"], mask=[0, 1], dtype=object)).tolist() == [to_psi(1.0), None]


@pytest.mark.parametrize("kind", ["f8", ">f8", "f4"])
def test_overflow(kind):
    """What numpy.errstate says of an infinite result, and nothing of values that pass as they are."""
    to_pa, large = uom.Conversion("MPa", "Pa", "Pres"), numpy.array([1, numpy.finfo(kind).max], dtype=kind)
    for call in (lambda: to_pa(large), lambda: to_pa(large.repeat(5000)[1::2]), lambda: to_pa(large, out=large.copy())):
        with pytest.warns(RuntimeWarning, match="overflow") as told:
            assert call()[-1] == numpy.inf
        assert told[0].filename == __file__
    with numpy.errstate(over="raise"), pytest.raises(FloatingPointError):
        to_pa(large)
    with warnings.catch_warnings(), numpy.errstate(over="ignore"):
        warnings.simplefilter("error")
        to_pa(large)
        with numpy.errstate(over="warn"):
            to_pa(numpy.array([numpy.inf, numpy.nan, -1e38, 1], dtype=kind))


NO_NUMBERS = [None, True, "1", b"1", 1j, {}, {1}, iter([1]), object(), numpy.bool_(True), ["1"], [1j], [True]]
NO_NUMBERS += [[True, 1.0], [[1, 2], (1, True)], [numpy.array([True]), [1.0]], numpy.array([1, numpy.bool_(True)], dtype=object)]
NO_NUMBERS += [numpy.array([numpy.datetime64("2020")], dtype=object), numpy.array(["2020-01-01"], dtype="M8[D]"), numpy.zeros(2, dtype="f8,f4"), numpy.array([[], "a"], dtype=object)]


@pytest.mark.parametrize("values", NO_NUMBERS, ids=repr)
def test_what_is_no_number(values):
    with pytest.raises(TypeError, match="number"):
        to_psi(values)
    with pytest.raises(TypeError):
        to_psi(values, out=numpy.zeros(2))


def test_outputs_that_are_none():
    fixed = numpy.zeros(3)
    fixed.flags.writeable = False
    for out, kind, message in [
        (numpy.zeros(4), ValueError, r"\(3,\), and out has \(4,\)"),
        (numpy.zeros((1, 3)), ValueError, "out has"),
        (numpy.zeros(3, dtype="i8"), TypeError, "float64 or float32, not of int64"),
        (numpy.zeros(3, dtype="f2"), TypeError, "float64 or float32"),
        (fixed, ValueError, "read-only"),
        ([0.0] * 3, TypeError, "list"),
        ((numpy.zeros(3),), TypeError, "tuple"),
        ("x", TypeError, "str"),
        (numpy.ma.zeros(3), TypeError, "masked"),
    ]:
        with pytest.raises(kind, match=message):
            to_psi(numpy.zeros(3), out=out)
    with pytest.raises(TypeError, match="masked"):
        to_psi(numpy.ma.zeros(3), out=numpy.zeros(3))
    with pytest.raises(ValueError, match="different lengths"):
        to_psi([[1], [2, 3]])
    with pytest.raises(OverflowError):
        to_psi(10**400)


@pytest.mark.parametrize("arguments, names", [((), {}), ((1, 2), {}), ((1,), {"into": 2}), ((1,), {"out": None, "x": 1})])
def test_calls_that_are_none(arguments, names):
    with pytest.raises(TypeError, match="is called as"):
        to_psi(*arguments, **names)
    with pytest.raises(TypeError, match="is called as"):
        uom.convert(*arguments, "ft", "m", None, 5, 6, **names)


def test_no_more_memory_than_the_result():
    values = numpy.zeros((1000, 1000), dtype="i4")[:, ::2]
    tracemalloc.start()
    to_psi(values)
    _, most = tracemalloc.get_traced_memory()
    tracemalloc.stop()
    assert most < 1.1 * 8 * values.size
