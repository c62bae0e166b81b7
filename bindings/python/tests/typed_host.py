"""A host as mypy --strict sees it: run by scripts/python, not by pytest."""

import numpy
import uom
from numpy.typing import NDArray

number: float = uom.convert(250, "kPag", "psia")
array = numpy.zeros(3)
narrow: NDArray[numpy.float32] = uom.convert(numpy.zeros(3, dtype=numpy.float32), "ft", "m")
wide: NDArray[numpy.float64] = uom.convert([1, 2, 3], "ft", "m", quantity="Leng")
same: NDArray[numpy.float64] = uom.Conversion("ft", "m")(array, out=array)

with uom.Catalogue(gauge=83.5) as site:
    plant: uom.Slate = site.slate("Plant", based_on="SI", Pres="kPag")
    text: str = plant["Pres"] + plant.display("Density")
    other: float = site.conversion("kPag", "kPa").inverse()(1.0)
    rows: list[uom.Unit] = site.units("VolRate")

try:
    value: float = uom.read("250 kPag").to("psia").value
except uom.UnitError as error:
    place: int = error.position + error.length
    hint: str = error.message + error.text + error.suggestion
