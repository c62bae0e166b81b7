"""Catalogues and slates: their own atmospheres, lives, changes, threads; what of them a pickle takes along."""

import copy
import functools
import gc
import multiprocessing
import pickle
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import numpy
import pytest
import uom


@pytest.fixture
def site():
    with uom.Catalogue(gauge=83.5) as catalogue:
        yield catalogue


def test_an_atmosphere_of_its_own(site):
    assert site.convert(250, "kPag", "kPa", "Pres") == 333.5 and uom.convert(250, "kPag", "kPa", "Pres") == 351.325
    assert site.read("250 kPag").to("kPa").value == 333.5
    assert uom.Conversion("kPag", "kPa", "Pres", catalogue=site).offset == 83.5 == site.conversion("barg", "kPa").offset * 100
    assert site.read("250 kPag") != uom.read("250 kPag")
    for gauge in (0, -1, 5e-324, 83500, float("nan"), "83.5", True, [1]):
        with pytest.raises((ValueError, TypeError)):
            uom.Catalogue(gauge=gauge)


def test_slates(site):
    plant = site.slate("Plant", based_on="SI", Pres="kPa (g)", MassRate="kg/hr")
    assert plant["Pres"] == "kPag" and plant.display("Density") == "kg/m3" and plant.display("PresDiff") == "kPa"
    assert plant.convert(1000, "MassRate", from_="English") == 453.59237
    assert plant.convert(453.59237, "MassRate", to=site.slate("English")) == pytest.approx(1000, rel=1e-15)
    assert plant.convert(numpy.array([1.0]), "MassRate", from_="t/d")[0] == pytest.approx(1000 / 24)
    assert plant.convert(250, "Pres", to="kPa") == 333.5 and plant.convert(2, "Dimensionless", to="SI") == 2
    assert set(plant) == {"Pres", "PresAbs", "PresDiff", "MassRate"} and len(plant) == 4 and "Temp" not in plant
    plant["Temp"] = "°F"
    assert plant["Temp"] == "F" and plant.display("TempAbs") == "R"
    del plant["Temp"]
    assert plant.get("Temp") is None and site.slate("plant").display("Temp") == "K"
    assert 5 not in plant and copy.deepcopy(plant)["Pres"] == "kPag" and "<td>kPag</td>" in plant._repr_html_()
    assert site.slate("plant", based_on="si", Pres="bar")["Pres"] == "bar"  # again, as of a notebook's cell
    plant["Pres"] = "kPag"
    line = site.slate("Line", based_on=plant)
    assert line.display("Pres") == "kPag" and ("Line", "Plant") in site.slates()


def test_slates_that_are_refused(site):
    plant = site.slate("Plant", based_on="SI", Pres="kPag")
    names = site.slates()
    for call, text, suggestion in (
        (lambda: site.slate("Other", based_on="Englsh"), "Englsh", "English"),
        (lambda: site.slate("Plnat"), "Plnat", "Plant"),
        (lambda: site.slate("Plnat", Pres="kPag"), "Plnat", "Plant"),
        (lambda: site.slate("Other", based_on="SI", Pres="kPs"), "kPs", "kPa"),
        (lambda: site.slate("Other", based_on="SI", Prez="kPa"), "Prez", "Pres"),
        (lambda: site.slate("Other", based_on="SI", Leng="m", Pres="m"), "m", ""),
        (lambda: site.slate("Other", based_on="SI", Pres="5 kPa"), "5 kPa", ""),
        (lambda: site.slate("Other", based_on="SI", Leng="100 ft"), "100 ft", ""),
        (lambda: site.slate("Other", based_on="SI", **{"Pres/Leng": "kPa/m"}), "Pres/Leng", ""),
        (lambda: site.slate("Other", based_on="SI", GaugePresBasis="90"), "GaugePresBasis", ""),
        (lambda: site.slate("bar", based_on="SI"), "bar", ""),
        (lambda: site.slate("Plant", based_on="English"), "Plant", ""),
        (lambda: plant.__setitem__("Prez", "kPa"), "Prez", "Pres"),
        (lambda: plant.display("Densit"), "Densit", "Density"),
        (lambda: plant.display("Pres/"), "Pres/", ""),
        (lambda: plant.convert(1, "Prez", to="SI"), "Prez", "Pres"),
        (lambda: plant.convert(1, "Pres", from_="Engish"), "Engish", "English"),
    ):
        with pytest.raises(uom.UnitError) as raised:
            call()
        assert (raised.value.text, raised.value.suggestion) == (text, suggestion)
    with pytest.raises(uom.UnitError, match="needs a name"):
        site.slate("", based_on="SI")
    with pytest.raises(KeyError):
        site.slate("Plant")["Prs"]
    for arguments in ({}, {"from_": "kPa", "to": "kPa"}):
        with pytest.raises(TypeError):
            site.slate("Plant").convert(1, "Pres", **arguments)
    assert site.slates() == names and site.slate("Plant")["Pres"] == "kPag"
    with pytest.raises(ValueError, match="don't change"):
        uom.slate("SI")["Pres"] = "kPag"
    with pytest.raises(ValueError, match="don't change"):
        uom.slate("New", based_on="SI")


def test_cache_is_bounded_and_forgets(site):
    assert site._prepared("ft", "m", None) is site._prepared("ft", "m", None)
    for factor in range(1, 2000):
        assert site.convert(1.0, f"{factor} ft", "ft", "Leng") == factor
        assert site._prepared_count <= 512
    kept = site._prepared("ft", "m", None)
    site.slate("Plant", based_on="SI")
    assert site._prepared_count == 0 and site._prepared("ft", "m", None) is not kept


def test_closed(site):
    conversion, quantity, slate = site.conversion("kPag", "kPa"), site.read("1 kPag"), site.slate("SI")
    assert repr(site) == "<uom.Catalogue: gauge=83.5>"
    site.close()
    site.close()
    assert repr(site) == "<uom.Catalogue: closed, gauge=83.5>"
    assert site.closed and conversion(250) == 333.5
    assert pickle.loads(pickle.dumps(conversion))(250) == 333.5 and conversion.inverse()(333.5) == 250
    for call in (
        lambda: site.convert(1, "ft", "m"),
        lambda: site.read("1 ft"),
        lambda: site.search("ft"),
        lambda: quantity.to("kPa"),
        lambda: slate.display("Pres"),
        lambda: uom.Conversion("ft", "m", catalogue=site),
        lambda: site.__enter__(),
    ):
        with pytest.raises(ValueError, match="closed"):
            call()
    with pytest.raises(ValueError, match="__init__"):
        uom.Catalogue.__new__(uom.Catalogue).convert(1, "ft", "m")


def test_lives():
    """A slate, a quantity and a bound method each keep their catalogue; nothing keeps it longer."""
    slate = uom.Catalogue(gauge=83.5).slate("SI")
    quantity = uom.Catalogue(gauge=83.5).read("250 kPag")
    convert = uom.Catalogue(gauge=83.5).convert
    gc.collect()
    assert slate.display("Pres") == "kPa" and quantity.to("kPa").value == convert(250, "kPag", "kPa") == 333.5


def test_data_of_its_own(tmp_path):
    from uom import _catalogue

    with open(_catalogue.data_file(), "rb") as file:
        shipped = file.read()
    path = tmp_path / "own µ.txt"
    path.write_bytes(shipped.replace(b"\n", b"\r\n"))
    own = uom.Catalogue(data=path, gauge=90, aliases="[Leng Leng]\nspan = 9 in")
    assert own.convert(10, "kPag", "kPa") == 100 and own.convert(1, "span", "in") == 9
    with pytest.raises(uom.UnitError):
        uom.convert(1, "span", "in")
    remade = pickle.loads(pickle.dumps(own.conversion("span", "in")))
    assert remade(2) == 18 and remade == own.conversion("span", "in") and hash(remade) == hash(own.conversion("span", "in"))
    path.write_bytes(b"no data")
    with pytest.raises(uom.UnitError):
        uom.Catalogue(data=path)
    with pytest.raises(OSError):
        uom.Catalogue(data=tmp_path / "none.txt")
    with pytest.raises(TypeError):
        uom.Catalogue(data=0)


@pytest.mark.parametrize(
    "lines, number, message",
    [
        ("foo=kPa", 1, 'no "alias = unit text"'),
        ("// more\nfoo bar baz", 2, 'no "alias = unit text"'),
        ("foo = ", 1, 'no "alias = unit text"'),
        ("[Pres]\nfoo = kPa\n[Presure]", 3, '"Presure" is no class'),
        ("[Pres\nfoo = kPa", 1, '"]"'),
        ("\n\nfoo = kPs // ?", 3, '"kPs" is no unit.*Did you mean "kPa"'),
        ("[Pres]\nkPa = psi", 2, "another way"),
        ("kPa = psi", 1, "another way"),
        ("foo = kPa\nfoo = psi", 1, "another way"),
        ("foo\0 = kPa", 0, "zero character"),
    ],
)
def test_aliases_that_are_refused(lines, number, message):
    with pytest.raises(uom.UnitError, match=(f"Line {number} of.*" if number else "") + message):
        uom.Catalogue(aliases=lines)


def test_aliases():
    with uom.Catalogue(aliases="\ufefffoo = kPa // a comment\r\n[]\r\ndegg = F\nbarrg = barg\nres = kPa/(m3/sec)2") as own:
        assert own.convert(1, "foo", "Pa") == 1000 and own.convert(212, "degg", "C", "Temp") == 100
        assert own.convert(0, "barrg", "kPa") == 101.325 and own.convert(1, "res", "Pa/(m3/sec)2") == 1000
    with pytest.raises(TypeError, match="not bytes"):
        uom.Catalogue(aliases=b"foo = kPa")


def test_pickles(site):
    conversion = site.conversion("kPag", "psia")
    again = pickle.loads(pickle.dumps(conversion))
    assert again == conversion != uom.Conversion("kPag", "psia") and again(250.1) == conversion(250.1)
    assert (again.from_, again.to, again.quantity, repr(again)) == ("kPag", "psia", "Pres", repr(conversion))
    remake, parts = conversion.__reduce__()
    with pytest.raises(uom.UnitError, match="other constants"):
        remake(*parts[:4], (1.0, 2.0, 3.0))
    for kept in (site, site.convert, site.read):
        with pytest.raises(TypeError, match="does not pickle"):
            pickle.dumps(kept)
    for name in ("convert", "read", "units", "search", "classes", "quantities", "slate", "slates"):
        assert pickle.loads(pickle.dumps(getattr(uom, name))) == getattr(uom, name)
    for gauge in range(70, 110):  # more sites than are kept
        with uom.Catalogue(gauge=gauge) as other:
            data = pickle.dumps(other.conversion("kPag", "kPa"))
        assert pickle.loads(data)(0) == gauge


def test_pickles_in_a_new_process(site):
    with multiprocessing.get_context("spawn").Pool(1) as pool:
        assert pool.map(site.conversion("kPag", "kPa"), [250.0, 0.0]) == [333.5, 83.5]
        assert pool.map(functools.partial(uom.convert, from_="ft", to="m"), [1.0]) == [0.3048]


def test_eight_threads():
    """Two atmospheres, made, used and closed by all of them, give what one thread gives."""
    gauges = [83.5, 101.325] * 4
    values = numpy.linspace(0, 500, 50_000)
    shared = {gauge: uom.Catalogue(gauge=gauge) for gauge in set(gauges)}
    conversion = uom.Conversion("kPag", "psia", "Pres")
    start = threading.Barrier(len(gauges))

    def work(gauge):
        results = []
        start.wait()
        for i in range(60):
            site = shared[gauge]
            results.append(site.convert(float(i), "kPag", f"{i + 1} kPa", "Pres"))
            results.append(float(site.conversion("barg", "psia")(values).sum()))
            results.append(float(conversion(values, out=values.copy())[i]))
            with uom.Catalogue(gauge=gauge) as own:
                own.slate("Plant", based_on="SI", Pres="kPag")
                site.slate(f"Plant {i}", based_on="SI")
                results.append(own.slate("Plant").convert(float(i), "Pres", to="Pa"))
        return results

    interval = sys.getswitchinterval()
    sys.setswitchinterval(1e-5)
    try:
        with ThreadPoolExecutor(len(gauges)) as pool:
            together = list(pool.map(work, gauges))
    finally:
        sys.setswitchinterval(interval)
    start = threading.Barrier(1)
    assert together[:2] == [work(gauge) for gauge in gauges[:2]] and together == together[:2] * 4


def test_the_interpreter_lock_is_released():
    """Another thread has turns in the middle of the conversion of a long array."""
    values, out = numpy.zeros(4_000_000, dtype=">i4"), numpy.empty(4_000_000)
    conversion, stop, turns = uom.Conversion("ft", "m"), threading.Event(), []

    def take_turns():
        while not stop.wait(1e-4):
            turns.append(time.perf_counter())

    thread = threading.Thread(target=take_turns)
    thread.start()
    middles = 0
    for _ in range(20):
        begin = time.perf_counter()
        conversion(values, out=out)
        span = time.perf_counter() - begin
        middles += any(begin + 0.1 * span < turn < begin + 0.6 * span for turn in turns[-1000:])
    stop.set()
    thread.join()
    assert middles > 5
