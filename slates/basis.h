// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_SLATES_BASIS_H
#define UOM_SLATES_BASIS_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

int32_t uom_SetBasis(const Catalogue &catalogue, UomStruct chain, int32_t basis);
UomStruct uom_AddBasisStruct(const Catalogue &catalogue, UomStruct chain, int32_t basis);
UomStruct uom_RemoveBasisStruct(const Catalogue &catalogue, UomStruct chain);
int32_t chain_HasBasis(UomStruct chain);
int32_t chain_BasisMatches(UomStruct a, UomStruct b);
int32_t uoms_GetBasis(const Catalogue &catalogue, const char *classString, const char *unitString);

} // namespace uom

#endif
