// Units of a numerator class that stand for a whole quotient: power units hold their own time, gravities
// their own volume. The node behind such a unit has no unit of its own.
#ifndef UOM_UOMSTRUCT_QUOTIENTS_H
#define UOM_UOMSTRUCT_QUOTIENTS_H

#include <cstdint>

#include "catalogue/catalogue.h"

namespace uom {

// Whether the unit, in a node of this base class, is a whole quotient.
bool unit_IsWholeQuotient(const Catalogue &catalogue, int32_t baseClass, int32_t unit);

} // namespace uom

#endif
