// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_SLATES_SLATE_DISPLAY_H
#define UOM_SLATES_SLATE_DISPLAY_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

char *uom_GetDisplayText(const Catalogue &catalogue, int32_t classId, int32_t *units, int32_t slate, char *out,
                         int32_t size, int32_t style);
char *uoms_GetDisplayUnits(const Catalogue &catalogue, const char *classString, const char *slateName, char *out,
                           int32_t size, int32_t style);

} // namespace uom

#endif
