"""Texts: what is read, what is refused, and where."""

import copy
import pickle
import warnings

import pytest
import uom
from hypothesis import given
from hypothesis import strategies as st


def test_read():
    read = uom.read("250 kPag")
    assert (read.value, read.units, read.quantity) == (250.0, "kPag", "Pres")
    assert f"{read:.1f}" == "250.0 kPag" and f"{read.to('psia'):.4f}" == "50.9554 psia"
    scaled = uom.read("3 psi/100ft", "PresGradient")
    assert (scaled.value, scaled.units) == (0.03, "psi/ft")
    alone = uom.read("kPag")
    assert alone.value != alone.value and str(read) == "250.0 kPag"
    assert read == uom.read("250  kPag") != uom.read("251 kPag") and hash(read) == hash(uom.read("250 kPag"))
    assert pickle.loads(pickle.dumps(read)) == copy.deepcopy(read) == read
    for change in (lambda: setattr(read, "value", 3.0), lambda: delattr(read, "units")):
        with pytest.raises(AttributeError):
            change()
    assert str(uom.read("9 F", "Temp").to("C", "TempDiff")) == "5.0 C"
    assert uom.read("5", "Dimensionless").value == 5 and uom.search("barrel per day")[0].kind == "text"
    assert uom.convert(100, "BTU/(hr·ft²·°F)", "W/m²/K", "Htco") == pytest.approx(567.826, abs=1e-3)


@pytest.mark.parametrize(
    "text, position, length, suggestion, message",
    [
        ("5 kPs", 2, 3, "5 kPa", '"kPs" is no unit'),
        ("µ µ 5 kPs", 0, 1, "", ""),
        ("250 kPa µx", 8, 2, "", ""),
        ("kPa\0", 3, 1, "", "zero character"),
        ("°\0", 1, 1, "", "zero character"),
        ("k\ud800", 1, 1, "", "surrogate"),
        ("𝒳 kPa", 0, 1, "", "𝒳"),
        ("", 0, 0, "", "missing"),
        ("x" * 1_000_000, 0, 0, "", "longer"),
        ("5 mw", 2, 2, "", "can mean"),
    ],
)
def test_places(text, position, length, suggestion, message):
    with pytest.raises(uom.UnitError) as raised:
        uom.read(text)
    error = raised.value
    assert (error.text, error.suggestion) == (text, suggestion) and message in error.message
    if message:
        assert (error.position, error.length) == (position, length)
    assert 0 <= error.position <= error.position + error.length <= len(text)
    again = pickle.loads(pickle.dumps(error))
    assert (str(again), again.text, again.position) == (str(error), error.text, error.position)
    assert error.message in str(error) and isinstance(error, ValueError)


@given(st.text(st.characters(), max_size=40), st.text(st.characters(), max_size=10))
def test_any_text(text, quantity):
    for call in (
        lambda: uom.read(text),
        lambda: uom.read(text, quantity),
        lambda: uom.Conversion(text, "kPa"),
        lambda: uom.Conversion("kPa", text, quantity),
        lambda: uom.units(text),
        lambda: uom.slate(text),
        lambda: uom.search(text),
        lambda: uom.quantities(text),
    ):
        try:
            call()
        except uom.UnitError as error:
            assert error.message and error.position + error.length <= len(error.text)
        except ValueError as error:
            assert "don't change" in str(error)  # a slate of another name


@pytest.mark.parametrize(
    "arguments, text",
    [
        (("kPs", "psi", None), "kPs"),
        (("kPa", "psj", "Pres"), "psj"),
        (("kPa", "psi", "Pss"), "Pss"),
        (("kPa", "psi", "Pres/"), "Pres/"),
        (("kPa", "psi", "Pres / / Leng"), "Pres / / Leng"),
        (("kPa", "psi", ""), ""),
        (("kPa", "m", None), "m"),
        (("Sm3/h", "m3/h", None), "m3/h"),
        (("m3/fortnigh", "m3/h", "VolRate"), "m3/fortnigh"),
    ],
)
def test_refused_conversions(arguments, text):
    with pytest.raises(uom.UnitError) as of_conversion:
        uom.Conversion(*arguments)
    with pytest.raises(uom.UnitError) as of_convert:
        uom.convert(1.0, *arguments)
    assert of_conversion.value.text == of_convert.value.text == text
    assert str(of_conversion.value) == str(of_convert.value)


@pytest.mark.parametrize("bad", [None, 5, b"kPa", ["kPa"]], ids=repr)
def test_what_is_no_text(bad):
    for call in (
        lambda: uom.convert(1.0, bad, "kPa"),
        lambda: uom.convert(1.0, "kPa", bad),
        lambda: uom.Conversion(bad, "kPa"),
        lambda: uom.read(bad),
        lambda: uom.search(bad),
        lambda: uom.units(bad),
        lambda: uom.slate(bad),
        lambda: uom.Conversion("kPa", "psi", catalogue=bad or 1),
    ):
        with pytest.raises(TypeError):
            call()
    if bad is not None:
        with pytest.raises(TypeError):
            uom.convert(1.0, "kPa", "psi", bad)


def test_what_could_mean_two_things_is_told():
    uom.Conversion("F", "C", "Temp")
    with pytest.warns(uom.UnitWarning, match="as TempDiff, 1 F is 0.555556 C.*quantity="):
        conversion = uom.Conversion("F", "C")
    assert "TempDiff" in conversion.note and conversion.quantity == "Temp"
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        assert uom.Conversion("kPag", "psia").quantity == "Pres"  # a gauge tells it
        pickle.loads(pickle.dumps(conversion)).inverse()
        with pytest.raises(uom.UnitWarning):
            uom.convert(1.0, "C", "F")  # and nothing is kept of it
        with pytest.raises(uom.UnitWarning):
            uom.convert(1.0, "C", "F")


def test_lists():
    units = uom.units("Pres")
    assert "kPag" in dict(units) and all(row.description for row in units)
    assert "gal/min" in dict(uom.units("VolRate")) and len(uom.classes()) > 65
    assert ("Pres", "Pressure") in [row[:2] for row in uom.classes()]
    assert uom.search("SCFM", most=1)[0].quantity == "VapVolRate"
    assert uom.quantities("kPag")[0] == "Pres" and uom.quantities("kPa/(m3/sec)2") == []
    for call, text, suggestion in ((uom.quantities, "kPs", "kPa"), (uom.units, "VolRat", "VolRate"), (uom.units, "Pres/", "")):
        with pytest.raises(uom.UnitError) as raised:
            call(text)
        assert (raised.value.text, raised.value.suggestion) == (text, suggestion)
    for most in (0, -1, 1001):
        with pytest.raises(ValueError):
            uom.search("SCFM", most=most)
    found = uom.search("bar")
    assert str(found).splitlines()[0].split() == ["kind", "quantity", "name", "description"]
    assert found[:2]._repr_html_().count("<tr>") == 3 and found[0] in found[:2]
    assert "&lt;" in uom.Table(("a",), [("<b>",)])._repr_html_()


def test_every_unit_of_every_class_is_read():
    assert all(uom.units(row.quantity) for row in uom.classes())
    for row in uom.classes():
        for unit in uom.units(row.quantity):
            assert uom.Conversion(unit.units, unit.units, row.quantity)(3.0) == 3.0
