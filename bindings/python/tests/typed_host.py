"""A host as mypy --strict sees it: run by scripts/python, not by pytest."""

from decimal import Decimal

import numpy
import uom
from numpy.typing import NDArray

number: float = uom.convert(250, "kPag", "psia")
array = numpy.zeros(3)
narrow: NDArray[numpy.float32] = uom.convert(numpy.zeros(3, dtype=numpy.float32), "ft", "m")
half: NDArray[numpy.float32] = uom.Conversion("ft", "m")(numpy.zeros(3, dtype=numpy.float16))
wide: NDArray[numpy.float64] = uom.convert([1, 2, 3], "ft", "m", quantity="Leng")
square: NDArray[numpy.float64] = uom.convert([[1.0, 2], [3, 4]], "ft", "m")
whole: NDArray[numpy.float64] = uom.convert(numpy.zeros(3, dtype=numpy.int32), "ft", "m")
exact: float = uom.convert(Decimal("0.5"), "ft", "m")
of_text: object = uom.convert("5", "ft", "m")  # type: ignore[arg-type]
of_set: object = uom.convert({1.0}, "ft", "m")  # type: ignore[call-overload]
of_complex: object = uom.convert(1j, "ft", "m")  # type: ignore[call-overload]
into_list: object = uom.convert([1.0], "ft", "m", out=[0.0])  # type: ignore[call-overload]
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
