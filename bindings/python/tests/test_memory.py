"""Exhausted memory: whatever is called raises MemoryError, or does all of it; and works when there is memory again."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

import pytest

# Run in a process of its own, in which the library's requests for memory can be made to fail.
CHILD = """
import ctypes, sys
import numpy, uom
failing = ctypes.CDLL(sys.argv[1])
small = sys.argv[2]
values = numpy.array([0.0, 36.5, 250.0])
site = uom.Catalogue(data=small)

def used():
    with uom.Catalogue(data=small, gauge=83.5, aliases="bucket = 10 m3") as mine:
        plant = mine.slate("Plant", "Metric", Mass="lb")
        return mine.convert(1.0, "kPag", "bar"), plant["Mass"], str(mine.read("2 bucket"))

answers = {
    "a number": lambda: uom.Conversion("kPag", "psia")(250),
    "an array": lambda: uom.Conversion("psig", "kPa", "Pres")(values).tolist(),
    "units": lambda: [str(unit) for unit in uom.units("Pres")],
    "classes": lambda: len(uom.classes()),
    "a search": lambda: [str(found) for found in uom.search("pund", 3)],
    "quantities": lambda: uom.quantities("kPag"),
    "slates": lambda: [str(slate) for slate in site.slates()],
    "a catalogue": used,
}
for what, run in answers.items():
    whole = run()
    refused = requests = 0
    number = 1
    while True:
        failing.fail_request(number)
        try:
            found = run()
        except MemoryError:
            found = None
            refused += 1
        requests = failing.requests()
        failing.fail_request(0)
        assert found is None or found == whole, (what, number, found, whole)
        if requests < number:
            break
        number += 1
    assert run() == whole, what
    assert refused > 0, what
    print(what, requests, refused)
"""

SMALL = """BEGINUOMLIST
none NONE "No Unit" 0 0.0 1.0
kPa KPA "Kilopascal" 0 0.0 1000.0
bar BAR "Bar" 0 0.0 100000.0
kPag KPAG "Gauge" 0 101.325 1000.0
m3 M3 "Cubic Meter" 0 0.0 1.0
lb LB "Pound" 1 0.0 0.45359237
kg KG "Kilogram" 1 0.0 1.0
ENDUOMLIST
BEGINLIST
Pres
kPa
bar
kPag
ENDLIST
BEGINLIST
StdLiqVol
m3
ENDLIST
BEGINLIST
Mass
kg
lb
ENDLIST
BEGINSLATE
Metric
Mass=kg
ENDSLATE
BEGINSLATE
Current
BasedOn=Metric
ENDSLATE
"""


@pytest.mark.skipif(not sys.platform.startswith("linux") or not shutil.which("cc"), reason="needs LD_PRELOAD and a C compiler")
def test_each_request_may_fail(tmp_path):
    library = tmp_path / "failing_memory.so"
    source = Path(__file__).with_name("failing_memory.c")
    subprocess.run(["cc", "-O1", "-shared", "-fPIC", "-o", library, source, "-ldl"], check=True)
    small = tmp_path / "small.txt"
    small.write_text(SMALL)
    child = subprocess.run(
        [sys.executable, "-c", CHILD, str(library), str(small)],
        env=os.environ | {"LD_PRELOAD": str(library)},
        capture_output=True,
        text=True,
        timeout=300,
    )
    assert child.returncode == 0, child.stdout + child.stderr
