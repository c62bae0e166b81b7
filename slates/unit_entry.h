// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_SLATES_UNIT_ENTRY_H
#define UOM_SLATES_UNIT_ENTRY_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

int32_t uom_FillStructFromString(const Catalogue &catalogue, UomStruct chain, const char *uomString, int32_t style);
int32_t uoms_ValidateUOM(const Catalogue &catalogue, const char *classString, const char *uomString);
int32_t uoms_GetDifferenceUOM(const Catalogue &catalogue, const char *classString, const char *uomString, char *out,
                              int32_t size);

} // namespace uom

#endif
