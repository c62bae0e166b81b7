// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_SLATES_GAUGE_PRESSURE_H
#define UOM_SLATES_GAUGE_PRESSURE_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

int32_t uom_SetGaugePressureBasis(Catalogue &catalogue, int32_t slate);

} // namespace uom

#endif
