"""Numbers: against exact fractions of the definitions, and bit by bit against the library that C hosts use."""

import ctypes
import math
import os
import struct
from fractions import Fraction as F

import numpy
import pytest
import uom
from hypothesis import given, settings
from hypothesis import strategies as st

INCH, FOOT, POUND, GRAVITY = F("0.0254"), F("0.3048"), F("0.45359237"), F("9.80665")
PSI = POUND * GRAVITY / INCH**2  # Pa
GALLON = 231 * INCH**3
BTU = F("1055.05585262")

# from, to, quantity, and y = (x + offset) * factor of the definitions. Constants that are no short decimals stand rounded
# in the catalogue: each of those costs half a unit in the last place, and they may come together in a power.
DEFINED = [
    ("ft", "m", "Leng", 0, FOOT),
    ("lb/hr", "kg/s", "MassRate", 0, POUND / 3600),
    ("gpm", "m3/h", "VolRate", 0, GALLON * 60),
    ("bbl/d", "m3/s", "VolRate", 0, 42 * GALLON / 86400),
    ("psia", "kPa", "Pres", 0, PSI / 1000),
    ("kPag", "psia", "Pres", F("101.325"), 1000 / PSI),
    ("psig", "kPa", "Pres", F(101325) / PSI, PSI / 1000),
    ("F", "K", "Temp", F("459.67"), F(5, 9)),
    ("F", "C", "TempDiff", 0, F(5, 9)),
    ("C", "F", "Temp", F(160, 9), F(9, 5)),
    ("BTU/hr", "W", "Power", 0, BTU / 3600),
    ("lb/ft3", "kg/m3", "Density", 0, POUND / FOOT**3),
    ("kpa/(m3/sec)2", "psi/(ft3/min)2", "Pres/VolRate 2", 0, 1000 / PSI * (FOOT**3 / 60) ** 2),
    ("psi/100ft", "kPa/m", "PresGradient", 0, PSI / 1000 / (100 * FOOT)),
]
values = st.floats(min_value=-1e30, max_value=1e30, allow_subnormal=False).filter(lambda x: x == 0 or abs(x) > 1e-250)


@pytest.mark.parametrize("source, target, quantity, offset, factor", DEFINED)
@given(value=values)
def test_definitions(source, target, quantity, offset, factor, value):
    exact = (F(value) + offset) * factor
    size = float(max(abs(F(value) * factor), abs(offset * factor)))
    found = uom.convert(value, source, target, quantity)
    rounded = 2 if "ps" in source + target or target == "kg/m3" else 0
    assert abs(F(found) - exact) <= (1 + rounded) * F(math.ulp(size))
    back = uom.convert(found, target, source, quantity)
    assert abs(F(back) - F(value)) <= 4 * F(math.ulp(max(abs(value), float(abs(offset)))))
    if abs(value) < 2**52 and value == int(value):
        assert uom.convert(int(value), source, target, quantity) == found


def test_constants_tell_the_conversion():
    to_celsius = uom.Conversion("F", "C", quantity="Temp")
    assert to_celsius.linear and to_celsius.offset == -32 and to_celsius.factor == 5 / 9
    gravity = uom.Conversion("API", "kg/m3", "PetroDensity")
    assert round(gravity(35), 4) == 849.0136 and not gravity.linear
    assert gravity.inverse()(gravity(35.0)) == pytest.approx(35, rel=1e-14)
    for constant in ("factor", "offset"):
        with pytest.raises(uom.UnitError, match="not linear"):
            getattr(gravity, constant)


def test_inverse_takes_the_same_quantity():
    difference = uom.Conversion("F", "C", "TempDiff")
    assert difference.inverse()(1.0) == 1.8 and difference.inverse().quantity == "TempDiff"
    amounts = uom.Conversion("SCFM", "lbmol/h")
    assert amounts.inverse().factor == pytest.approx(1 / amounts.factor, rel=1e-15)


def test_values_that_are_none():
    to_psi = uom.Conversion("kPag", "psia", "Pres")
    assert to_psi(-1.5e35) == -1.5e35 and math.isnan(to_psi(math.nan)) and to_psi(math.inf) == math.inf
    assert list(to_psi([-1.5e35, 0.0])) == [-1.5e35, to_psi(0.0)]


# --- the library itself

CASES = [("kPag", "psia", b"Pres"), ("API", "kg/m3", b"PetroDensity"), ("ft", "in", b"Leng"), ("F", "R", b"Temp")]


@pytest.fixture(scope="module")
def library():
    path = os.environ.get("UOM_TEST_LIBRARY")
    if not path:
        pytest.skip("UOM_TEST_LIBRARY names no libuom.so; scripts/python does")
    library = ctypes.CDLL(path)
    library.uom_ConvertOne.restype = ctypes.c_double
    library.uom_ConvertOne.argtypes = [ctypes.c_void_p, ctypes.c_double]
    assert library.uom_Init() == 0
    return library


@pytest.mark.filterwarnings("ignore:overflow")
@pytest.mark.parametrize("source, target, quantity", CASES)
def test_bit_for_bit(library, source, target, quantity):
    conversion = ctypes.c_void_p()
    assert library.uoms_NewConversion(quantity, source.encode(), target.encode(), ctypes.byref(conversion)) == 0
    here = uom.Conversion(source, target, quantity.decode())

    @settings(max_examples=300)
    @given(st.lists(st.floats(width=64), min_size=1, max_size=40))
    def compare(numbers):
        wanted = [struct.pack("d", library.uom_ConvertOne(conversion, number)) for number in numbers]
        found = [struct.pack("d", here(number)) for number in numbers]
        pairs = zip(numbers, wanted, found, [struct.pack("d", number) for number in here(numpy.array(numbers))])
        assert all(a == b == c or math.isnan(number) for number, a, b, c in pairs)

    compare()
    library.uom_FreeConversion(conversion)
