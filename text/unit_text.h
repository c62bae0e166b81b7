// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_TEXT_UNIT_TEXT_H
#define UOM_TEXT_UNIT_TEXT_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

void uom_GetUnitText(const Catalogue &catalogue, int32_t unit, char *out, int32_t size, int32_t style);
void uom_GetClassText(const Catalogue &catalogue, int32_t classId, char *out, int32_t size, int32_t style);
UomTable *uom_GetClassList(const Catalogue &catalogue, int32_t style);
char *uom_GetBaseName(const Catalogue &catalogue, int32_t slate, char *out);
char *uom_GetBaseName2(const Catalogue &catalogue, int32_t slate, char *out, int32_t size);

} // namespace uom

#endif
