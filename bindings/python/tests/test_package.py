"""The package as a whole: the command line, its documents, its import, and that nothing leaks."""

import doctest
import inspect
import os
import pathlib
import subprocess
import sys
import tracemalloc

import numpy
import pytest
import uom

root = pathlib.Path(__file__).parents[3]


def run(*words, **names):
    done = subprocess.run([sys.executable, *words], capture_output=True, text=True, env={**os.environ, "PYTHONUTF8": "1", **names})
    return done.returncode, done.stdout, done.stderr


@pytest.mark.parametrize(
    "words, status, out, err",
    [
        ("250 kPag psia --precision 6", 0, "250 kPag = 50.9554 psia\n", ""),
        ("50 F C", 0, "50 F = 10 C\n", "uom: Read as Temp; as TempDiff, 1 F is"),
        ("100 gpm to m³/h --precision 6", 0, "100 gpm = 22.7125 m³/h\n", ""),
        ("-4e1 F C --quantity Temp", 0, "-40 F = -40 C\n", ""),
        ("kPa Pa --class Pres", 0, "1 kPa = 1000 Pa\n", ""),
        ("search SCFM", 0, "kind   quantity", ""),
        ("units VolRate", 0, "units      description\nBBL/day", ""),
        ("classes", 0, "quantity", ""),
        ("--help", 0, "python -m uom", ""),
        ("", 2, "python -m uom", ""),
        ("5 kPs psi", 2, "", 'uom: "kPs" is no unit that is known here. Did you mean "kPa"?\n'),
        ("5 kPa", 2, "", "uom: "),
        ("5 kPa psi --precision 0", 2, "", "uom: --precision"),
        ("5 kPa psi --digits 3", 2, "", "uom: there is no option --digits\n"),
        ("--quantity=Temp --precision full -- -5 C F", 0, "-5 C = 23 F\n", ""),
        ("0.1 kPa psi --precision full", 0, "0.1 kPa = 0.014503773773020921 psi\n", ""),
        ("1/min 1/hr", 0, "1/min = 60 1/hr\n", ""),
        ("--version", 0, f"uom {uom.__version__}\n", ""),
        ("1e400 kPa psi", 2, "", "uom: the number 1e400 is beyond"),
        ("1e308 MPa Pa", 2, "", "uom: the result is beyond"),
        ("٣ kPa psi", 2, "", 'uom: The sign "٣"'),
        ("search", 2, "", "uom: search wants words\n"),
        ("units", 2, "", "uom: units wants a class\n"),
        ("classes foo", 2, "", "uom: classes wants nothing"),
    ],
)
def test_command_line(words, status, out, err):
    found = run("-m", "uom", *words.split())
    assert found[0] == status and found[1].startswith(out) and found[2].startswith(err), found
    assert bool(found[2]) == bool(err) and "quantity= " not in found[2]


def test_command_line_and_its_output():
    assert run("-m", "uom", "5", "m³/h", "m³/h", PYTHONUTF8="0", PYTHONIOENCODING="ascii")[1] == "5 m\\xb3/h = 5 m\\xb3/h\n"
    shell = f"'{sys.executable}' -m uom classes"
    assert subprocess.run(f"{shell} | true", shell=True, capture_output=True, text=True).stderr == ""
    full = subprocess.run(f"{shell} > /dev/full", shell=True, capture_output=True, text=True)
    assert (full.returncode, full.stderr) == (1, "uom: Unable to write the output.\n")


@pytest.mark.filterwarnings("ignore")
@pytest.mark.parametrize("page", ["docs/python.md", "README.md"])
def test_documents(page):
    found = doctest.testfile(str(root / page), module_relative=False, optionflags=doctest.ELLIPSIS)
    assert found.attempted > 0 and found.failed == 0
    assert doctest.testmod(uom).failed == 0


def test_everything_has_its_docstring():
    for name in uom.__all__:
        thing = getattr(uom, name)
        assert thing.__doc__, name
        members = vars(thing) if inspect.isclass(thing) and thing not in (uom.Table,) else {}
        for member in members:
            assert member.startswith("_") or inspect.getdoc(getattr(thing, member)), f"{name}.{member}"


def test_import_takes_nothing_along():
    code = "import sys, numpy; a = set(sys.modules); import uom; print(*{m.split('.')[0] for m in set(sys.modules) - a})"
    assert run("-c", code)[1].split() == ["uom"]
    code = "import sys, uom; assert uom.convert(1, 'ft', 'm') == 0.3048; print('numpy' in sys.modules)"
    assert run("-c", code)[1] == "False\n"


def resident():
    with open("/proc/self/statm") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def refused(call, *arguments, **names):
    try:
        call(*arguments, **names)
    except (uom.UnitError, TypeError, ValueError):
        return
    raise AssertionError("not refused")


def test_nothing_leaks():
    to_psi, small, plant = uom.Conversion("kPag", "psia", "Pres"), numpy.arange(6.0), uom.slate("SI")
    masked = numpy.ma.array([1.0, 2.0], mask=[0, 1])

    def calls(count):
        for i in range(count):
            to_psi(float(i))
            uom.convert(i, "ft", "m")
            to_psi(small[::-1], out=small)
            small[:] = 1
            refused(to_psi, small, out=small[:2])
            refused(to_psi, "text")
            if i % 10 == 0:
                refused(uom.read, f"{i} kPs")
                uom.convert(1.0, f"{i % 1000 + 1} ft", "m")
                uom.read("250 kPag").to("psia")
                uom.Conversion("psig", "kPa", "Pres").inverse().__reduce__()
                to_psi(masked)
                to_psi([1, 2])
                plant.display("Density")
                refused(plant.display, "Densit")
                refused(uom.convert, 1.0, "ft", "m", "Leng/")
            if i % 1000 == 0:
                with uom.Catalogue(gauge=90) as site:
                    site.slate("Plant", based_on="SI", Pres="kPag").convert(1.0, "Pres", to="psia")
                    refused(site.slate, "bar", based_on="SI")

    calls(5_000)
    before = resident()
    calls(100_000)
    assert resident() - before < 4_000_000
    tracemalloc.start()
    calls(1_001)
    before = tracemalloc.get_traced_memory()[0]
    calls(5_001)
    grown = tracemalloc.get_traced_memory()[0] - before
    tracemalloc.stop()
    assert grown < 20_000
