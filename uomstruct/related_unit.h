// The neighbour of a unit in another class, found by the arithmetic of names: "ft" to "ft2", "lb" to
// "lb-mol".
#ifndef UOM_UOMSTRUCT_RELATED_UNIT_H
#define UOM_UOMSTRUCT_RELATED_UNIT_H

#include <cstdint>
#include "catalogue/catalogue.h"

namespace uom {

// 0 with the related unit, or 1 with UOM_NULL when the pair of classes has no rule or the file no such unit.
int32_t uom_FindRelatedUnit(const Catalogue &catalogue, int32_t fromClass, int32_t unit, int32_t toClass,
                            int32_t *relatedUnit);

// The unit named like this one with a text behind it; UOM_NULL when there is none or the unit has no name.
int32_t unit_NamedWith(const Catalogue &catalogue, int32_t unit, const char *suffix);

// The unit named like this one cut at the first, or the last, place of a character. A name without it stays
// whole.
int32_t unit_NamedUpToFirst(const Catalogue &catalogue, int32_t unit, char mark);
int32_t unit_NamedUpToLast(const Catalogue &catalogue, int32_t unit, char mark);

// The unit for millions of this one: "BTU" to "x 10^6 BTU", "ft-lb" to "x 10^6 ftlb".
int32_t unit_NamedInMillions(const Catalogue &catalogue, int32_t unit);

} // namespace uom

#endif
