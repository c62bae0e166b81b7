// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_TEXT_DISPLAY_UNITS_H
#define UOM_TEXT_DISPLAY_UNITS_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

char *uom_GetDisplayUnits(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size, int32_t style);
int32_t uom_GetUOMMultiplierString(const Catalogue &catalogue, UomStruct node, char *out, int32_t size);

} // namespace uom

#endif
