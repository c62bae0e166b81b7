// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_UOMSTRUCT_CLASS_AND_UNIT_H
#define UOM_UOMSTRUCT_CLASS_AND_UNIT_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

int32_t uom_FillStruct(const Catalogue &catalogue, UomStruct chain, int32_t classId, const char *text, int32_t style);
UomStruct uom_StringToStruct(const Catalogue &catalogue, const char *text, int32_t classId, int32_t style);
int32_t uom_SetClassandUnit(const Catalogue &catalogue, UomStruct *chain, int32_t classId, const char *text,
                            int32_t style);
UomStruct uom_ClassAndUnitToStruct(const Catalogue &catalogue, const char *text, int32_t style);
int32_t unit_ToStandard(char *out, const char *in);

} // namespace uom

#endif
