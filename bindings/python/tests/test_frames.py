"""pandas and Dask."""

import subprocess
import sys

import numpy
import pandas
import pytest
import uom

to_kpa = uom.Conversion("psig", "kPa", "Pres")


@pytest.fixture
def frame():
    columns = {"P": [1.0, 2.0, numpy.nan], "T": [32, 212, 50], "tag": ["a", "b", "c"]}
    return pandas.DataFrame(columns, index=pandas.Index([5, 7, 9], name="row"))


def test_series(frame):
    series = frame["P"]
    series.attrs["from"] = "test"
    found = uom.convert(series, "psig", "kPa", quantity="Pres")
    assert type(found) is pandas.Series and found.index is series.index and found.name == "P"
    assert numpy.array_equal(found, to_kpa(series.to_numpy()), equal_nan=True)
    assert found.attrs == {"from": "test", "units": "kPa", "quantity": "Pres"} and series.attrs == {"from": "test"}
    assert to_kpa(series.astype("f4")).dtype == "f4" and to_kpa(frame["T"]).dtype == "f8"
    assert found.uom.units == "kPa" and found.uom.convert("kPa", "bar").tolist()[0] == found.uom.convert("bar").iloc[0]


@pytest.mark.parametrize("kind, wanted", [("Int64", "Float64"), ("UInt8", "Float64"), ("Float32", "Float32"), ("Float64", "Float64")])
def test_series_with_missing_values(kind, wanted):
    found = to_kpa(pandas.Series([1, None, 3], dtype=kind))
    assert found.dtype == wanted and found.isna().tolist() == [False, True, False]
    assert found[2] == (numpy.float32(to_kpa(3.0)) if wanted == "Float32" else to_kpa(3.0))
    values = pandas.array([1, None, 3], dtype=kind)
    assert to_kpa(values).dtype == to_kpa(pandas.Index(values)).dtype == wanted
    assert to_kpa(values).equals(found.array) and to_kpa(pandas.Index(values)).array.equals(found.array)


def test_other_series():
    assert to_kpa(pandas.Series([1, None], dtype=object))[0] == to_kpa(1.0)
    assert to_kpa(pandas.Series([1.0, 2.0], dtype="Sparse[float]"))[1] == to_kpa(2.0)
    for series in (["a"], [True], pandas.Categorical([1]), pandas.to_datetime(["2020-01-01"]), [1j], pandas.array([True])):
        with pytest.raises(TypeError, match="Series.*number"):
            to_kpa(pandas.Series(series))
    with pytest.raises(TypeError, match="Categorical.*number"):
        to_kpa(pandas.Categorical([1, 2]))
    with pytest.raises(TypeError, match="out is for arrays"):
        to_kpa(pandas.Series([1.0]), out=numpy.zeros(1))
    with pytest.raises(TypeError, match="out is an array"):
        to_kpa(numpy.zeros(1), out=pandas.Series([1.0]))


def test_frame_and_index(frame):
    numbers = frame[["P", "T"]].set_axis(["same", "same"], axis=1)
    found = to_kpa(numbers)
    assert list(found.columns) == ["same", "same"] and found.index.equals(frame.index)
    assert found.iloc[:, 1].tolist() == to_kpa([32, 212, 50]).tolist()
    with pytest.raises(TypeError, match="'tag'"):
        to_kpa(frame)
    index = to_kpa(pandas.Index([1, 2], name="P"))
    assert isinstance(index, pandas.Index) and index.name == "P" and index[1] == to_kpa(2.0)
    with pytest.raises(TypeError, match="MultiIndex"):
        to_kpa(pandas.MultiIndex.from_tuples([(1, 2)]))


def test_accessor(frame):
    before = frame.copy()
    found = frame.uom.convert({"P": ("psig", "kPa"), "T": ("F", "C", "Temp")})
    assert found["T"].tolist() == [0, 100, 10] and found["tag"].equals(frame["tag"]) and found.index.equals(frame.index)
    assert found.uom.units == found.attrs["units"] == {"P": "kPa", "T": "C"} and frame.uom.units == {}
    assert frame.equals(before) and frame.attrs == {}
    again = found.uom.convert({"T": ("C", "K", "Temp")})
    assert again["T"].iloc[0] == 273.15 and again.uom.units == {"P": "kPa", "T": "K"} and found.uom.units["T"] == "C"
    with pytest.raises(uom.UnitError, match='is in "kPa" and not in "psig"'):
        found.uom.convert({"P": ("psig", "kPa")})
    assert found.uom.convert({"P": ("kilopascal", "bar")})["P"].iloc[0] == found["P"].iloc[0] / 100
    with uom.Catalogue(gauge=83.5) as site:
        assert frame.uom.convert({"P": ("kPag", "kPa")}, catalogue=site)["P"].iloc[0] == 84.5


def test_what_is_known_of_a_column(frame):
    """No way leads to a second conversion, to that of another quantity or to that from another atmosphere."""
    with uom.Catalogue(gauge=83.5) as site:
        found = frame.uom.convert({"P": ("psig", "kPag", "Pres"), "T": ("F", "C", "TempDiff")}, catalogue=site)
        column, alone = found["P"], found["P"].uom.convert("kPag", "kPag", catalogue=site)
        assert column.uom.units == alone.uom.units == alone.to_frame().uom.units["P"] == "kPag"
        for held in (column, alone):
            assert held.uom.convert("psig", catalogue=site).tolist()[:2] == pytest.approx([1, 2])
            for call in (
                lambda: held.uom.convert("psig", "kPa"),
                lambda: uom.convert(held, "psig", "kPa"),
                lambda: uom.convert(held.to_frame(), "psig", "kPa"),
                lambda: to_kpa(held),
            ):
                with pytest.raises(uom.UnitError, match='is in "kPag" and not in "psig"'):
                    call()
            for call in (
                lambda: held.uom.convert("kPa"),
                lambda: held.to_frame().uom.convert({"P": "kPa"}),
                lambda: uom.convert(held, "kPag", "kPa"),
                lambda: found.uom.convert({"P": ("kPag", "kPa")}),
            ):
                with pytest.raises(uom.UnitError, match="atmosphere of 83.5 kPa, and not of 101.325"):
                    call()
            assert uom.convert(held, "kPag", "psi", "PresDiff").iloc[0] == uom.convert(held.iloc[0], "kPa", "psi")
    assert found.uom.convert({"T": "F"})["T"].tolist() == found["T"].uom.convert("F").tolist() == [32, 212, 50]
    with pytest.warns(uom.UnitWarning) as told, pytest.raises(uom.UnitError, match="is a TempDiff"):
        found.uom.convert({"T": ("C", "R")})
    assert told[0].filename == __file__
    assert found.uom.convert({"T": ("C", "F", "Temp")})["T"].iloc[0] == pytest.approx(64)  # it was asked for


def test_units_that_somebody_states(frame):
    numbers = frame[["P", "T"]]
    for held in ("bad", 5):
        numbers.attrs["units"] = held
        for call in (lambda: numbers.uom.units, lambda: numbers.uom.convert({"P": ("psig", "kPa")})):
            with pytest.raises(uom.UnitError, match=repr(held)):
                call()
        assert uom.convert(numbers, "ft", "m").uom.units == {"P": "m", "T": "m"}  # which say nothing
    numbers.attrs["units"] = "K"
    with pytest.raises(uom.UnitError, match='is in "K" and not in "ft"'):
        uom.convert(numbers, "ft", "m")
    numbers.uom.units = {"P": "kPa"}
    assert numbers.attrs == {"units": {"P": "kPa"}} and numbers["P"].uom.convert("Pa").iloc[0] == 1000
    with pytest.raises(TypeError):
        numbers.uom.units["P"] = "psig"
    column = to_kpa(frame["P"])
    column.uom.units = "bar"
    assert column.attrs == {"units": "bar"}
    with pytest.raises(TypeError, match="not int"):
        column.uom.units = 5


def test_accessor_refuses(frame):
    for columns, error in [
        ({"Q": ("psig", "kPa")}, KeyError),
        ({"P": "kPa"}, uom.UnitError),
        ({"P": ("psig", "m")}, uom.UnitError),
        ({"P": ("psig",)}, TypeError),
        ("P", TypeError),
        ({"tag": ("psig", "kPa")}, TypeError),
    ]:
        with pytest.raises(error):
            frame.uom.convert(columns)
    with pytest.raises(ValueError, match="2 columns"):
        frame.set_axis(["P", "P", "tag"], axis=1).uom.convert({"P": ("psig", "kPa")})


ASKED = "import uom, importlib.util as u; u.find_spec('pandas'); import pandas"


@pytest.mark.parametrize("order", ["import uom, pandas", "import pandas, uom", ASKED])
def test_accessor_in_either_order(order):
    code = f"{order}; print(pandas.DataFrame({{'P': [1]}}).uom.convert({{'P': ('kPa', 'Pa')}})['P'][0])"
    assert subprocess.run([sys.executable, "-c", code], capture_output=True, text=True).stdout == "1000.0\n"


# --- Dask

dask = pytest.importorskip("dask")
dask_bag = pytest.importorskip("dask.bag")
dask_array = pytest.importorskip("dask.array")
dask_frame = pytest.importorskip("dask.dataframe")


def test_dask_is_lazy(frame):
    values = numpy.arange(1000.0).reshape(50, 20)
    lazy = to_kpa(dask_array.from_array(values, chunks=(7, 20)))
    assert isinstance(lazy, dask_array.Array) and lazy.dtype == "f8" and lazy.chunks[0][0] == 7
    assert numpy.array_equal(lazy.compute(scheduler="sync"), to_kpa(values))
    assert to_kpa(dask_array.zeros(3, dtype="f4")).dtype == "f4"
    pieces = dask_frame.from_pandas(frame, npartitions=2)
    series = uom.convert(pieces["P"], "psig", "kPa", "Pres")
    assert isinstance(series, dask_frame.Series) and series.compute(scheduler="sync").equals(to_kpa(frame["P"]))
    assert to_kpa(pieces[["P", "T"]]).compute(scheduler="sync").equals(to_kpa(frame[["P", "T"]]))
    for bad in (dask_array.zeros(3, dtype=bool), pieces["T"] > 5, dask.delayed(5.0), dask_bag.from_sequence([1])):
        with pytest.raises(TypeError, match="number"):
            to_kpa(bad)
    with pytest.raises(TypeError, match="out is for arrays"):
        to_kpa(dask_array.zeros(3), out=numpy.zeros(3))
    same = [to_kpa(dask_array.from_array(values)).name for _ in range(2)]
    assert same[0] == same[1] != uom.convert(dask_array.from_array(values), "psig", "bar", "Pres").name


def test_cluster_of_processes():
    """10,000,000 rows in partitions, converted by other processes with the site's atmosphere, and by this one."""
    distributed = pytest.importorskip("distributed")
    values = dask_array.arange(10_000_000, chunks=1_000_000, dtype="f8")
    column = dask_frame.from_dask_array(values, columns="P")
    with uom.Catalogue(gauge=83.5) as site:
        to_pa = site.conversion("barg", "Pa", "Pres")
    options = {"n_workers": 2, "threads_per_worker": 1, "processes": True, "dashboard_address": None}
    with distributed.LocalCluster(**options) as cluster, distributed.Client(cluster) as client:
        assert len({worker["id"] for worker in client.scheduler_info()["workers"].values()}) == 2
        of_array, of_column = client.gather(client.compute([to_pa(values), to_pa(column)]))
    here = to_pa(numpy.arange(10_000_000, dtype="f8"))
    assert here[0] == 83_500 and numpy.array_equal(of_array, here) and numpy.array_equal(of_column.to_numpy(), here)
