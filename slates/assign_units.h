// Kind 1 of uom_SetUnits: the units in use, with basis, gravity and power nodes kept consistent.
#ifndef UOM_SLATES_ASSIGN_UNITS_H
#define UOM_SLATES_ASSIGN_UNITS_H

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

void units_Assign(const Catalogue &catalogue, UomStruct chain, int32_t count, int32_t *units);

} // namespace uom

#endif
