#!/usr/bin/env python3
"""Speed of the Python package beside plain NumPy, pint and cf-units, as far as they are installed, in one run.

    build/python/venv/bin/python bench/python.py [--quick]

The yardstick of arrays is a loop in C, compiled here by cc -O3 -march=native: out = (in + offset) * factor for doubles, in
one pass. Ratios to that, and to the wanted bounds, say more than times of one machine.
"""

from __future__ import annotations

import ctypes
import importlib
import importlib.util
import os
import statistics
import subprocess
import sys
import tempfile
import timeit
from collections.abc import Callable
from typing import Any

import numpy
import uom

QUICK = "--quick" in sys.argv
COUNT = 1_000_000

LOOP = """
#include <stddef.h>
void loop(const double *in, double *out, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        out[i] = (in[i] + offset) * factor;
}
"""


def in_turns(calls: dict[str, Callable[[], object]]) -> dict[str, float]:
    """Median times of calls that take turns, so that all meet the same moments of a busy machine."""
    times: dict[str, list[float]] = {name: [] for name in calls}
    for _ in range(15 if QUICK else 151):
        for name, call in calls.items():
            times[name].append(timeit.timeit(call, number=1) * 1e9)
    return {name: statistics.median(found) for name, found in times.items()}


def loop_of(statement: str, names: dict[str, object]) -> float:
    """The best of some loops of a twentieth of a second, for one turn in nanoseconds."""
    timer = timeit.Timer(statement, globals=names)
    number = max(1, timer.autorange()[0] // 4)
    return min(timer.repeat(3 if QUICK else 15, number)) / number * 1e9


def bare(statement: str, **names: object) -> float:
    """A statement as a program has it, less the loop around it."""
    return loop_of(statement, names) - loop_of("pass", {})


def row(what: str, time: float, wanted: str = "", ratio: float | None = None) -> None:
    shown = f"{time:,.0f} ns" if time < 1e4 else f"{time / 1e3:,.0f} us"
    print(f"{what:<52} {shown:>12} {'' if ratio is None else f'{ratio:6.2f} x':>10}  {wanted}")


def peer(module: str) -> Any:
    """Another library of units, None where it is not installed."""
    return importlib.import_module(module) if importlib.util.find_spec(module) else None


pint, cf_units = peer("pint"), peer("cf_units")


def numbers() -> None:
    to_psi = uom.Conversion("kPag", "psia", "Pres")
    names: dict[str, object] = {"to_psi": to_psi, "uom": uom, "x": 250.0}
    row("conversion(float)", bare("to_psi(x)", **names), "at most 150 ns")
    row("uom.convert(float, text, text)", bare("uom.convert(x, 'kPag', 'psia')", **names), "at most 1 us")
    row("uom.convert(..., quantity=text)", bare("uom.convert(x, 'kPag', 'psia', quantity='Pres')", **names))
    row("uom.Conversion(text, text, text), read anew", bare("uom.Conversion('kPag', 'psia', 'Pres')", **names))
    if pint:
        registry = pint.UnitRegistry()
        gauge = registry.Quantity(250.0, "psi")
        row(f"pint {pint.__version__}: Quantity.to(unit)", bare("q.to(u)", q=gauge, u=registry.kPa))
        row("pint: registry.convert(float, text, text)", bare("c(250.0, 'psi', 'kPa')", c=registry.convert))
    if cf_units:
        psi, kpa = cf_units.Unit("psi"), cf_units.Unit("kPa")
        row("cf-units: Unit.convert(float, Unit)", bare("a.convert(250.0, b)", a=psi, b=kpa))


def compiled_loop(folder: str) -> Any:
    source, library = os.path.join(folder, "loop.c"), os.path.join(folder, "loop.so")
    with open(source, "w") as file:
        file.write(LOOP)
    subprocess.run(["cc", "-O3", "-march=native", "-shared", "-fPIC", source, "-o", library], check=True)
    loop = ctypes.CDLL(library).loop
    loop.argtypes = [ctypes.c_void_p, ctypes.c_void_p, ctypes.c_size_t, ctypes.c_double, ctypes.c_double]
    return loop


def arrays(loop: Any) -> None:
    values = numpy.linspace(1, 100, COUNT)
    out, fresh = numpy.empty_like(values), numpy.empty_like
    to_psi = uom.Conversion("kPag", "psia", "Pres")
    gravity = uom.Conversion("API", "kg/m3", "PetroDensity")
    big, floats = values.astype(">f8"), values.astype("f4")
    offset, factor, source = to_psi.offset, to_psi.factor, values.ctypes.data

    def by_hand(target: Any) -> None:
        loop(source, target.ctypes.data, COUNT, offset, factor)

    def by_numpy(target: Any) -> None:
        numpy.add(values, offset, out=target)
        numpy.multiply(target, factor, out=target)

    calls: dict[str, Callable[[], object]] = {
        "loop in C, new array": lambda: by_hand(fresh(values)),
        "conversion(array), new array": lambda: to_psi(values),
        "numpy.add and multiply, new array": lambda: (values + offset) * factor,
        "loop in C, out=": lambda: by_hand(out),
        "conversion(array, out=out)": lambda: to_psi(values, out=out),
        "numpy.add and multiply, out=": lambda: by_numpy(out),
        "numpy.copyto: the memory alone": lambda: numpy.copyto(out, values),
        "API gravity to kg/m3, out=": lambda: gravity(values, out=out),
        "float32, new array": lambda: to_psi(floats),
        "big-endian, new array": lambda: to_psi(big),
    }
    if pint:
        registry = pint.UnitRegistry()
        gauge = registry.Quantity(values, "psi")
        calls["pint: Quantity.to(unit)"] = lambda: gauge.to("kPa")
    if cf_units:
        psi, kpa = cf_units.Unit("psi"), cf_units.Unit("kPa")
        calls["cf-units: Unit.convert(array, Unit)"] = lambda: psi.convert(values, kpa)
    wanted = {
        "conversion(array), new array": "at most 1.05 x",
        "conversion(array, out=out)": "at most 1.05 x",
        "API gravity to kg/m3, out=": "at most 3 x",
    }
    found = in_turns(calls)
    for name, time in found.items():
        yardstick = "loop in C, new array" if "new" in name or ":" in name and "alone" not in name else "loop in C, out="
        row(name, time, wanted.get(name, ""), time / found[yardstick])


def small_arrays() -> None:
    ten = numpy.linspace(1, 100, 10)
    to_psi, out = uom.Conversion("kPag", "psia", "Pres"), numpy.empty(10)
    row("conversion(array of 10)", bare("c(a)", c=to_psi, a=ten))
    row("conversion(array of 10, out=)", bare("c(a, out=o)", c=to_psi, a=ten, o=out))
    row("numpy: (array of 10 + offset) * factor", bare("(a + 101.325) * 0.145", a=ten))


def imports() -> None:
    code = "import time, numpy; t = time.perf_counter(); import uom; print(time.perf_counter() - t)"
    times = [float(subprocess.run([sys.executable, "-c", code], capture_output=True, text=True).stdout) for _ in range(9)]
    row("import uom, over numpy's", statistics.median(times) * 1e9, "at most 10 ms")


def main() -> None:
    print(f"uom {uom.__version__}, numpy {numpy.__version__}, Python {sys.version.split()[0]}")
    print(f"{'':<52} {'time':>12} {'to the loop':>10}  wanted")
    numbers()
    small_arrays()
    print(f"-- {COUNT:,} doubles")
    with tempfile.TemporaryDirectory() as folder:
        arrays(compiled_loop(folder))
    imports()
    for name, module in {"pint": pint, "cf_units": cf_units}.items():
        if not module:
            print(f"{name} is not installed: left out")


if __name__ == "__main__":
    main()
