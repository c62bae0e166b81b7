// One entry of class and unit for each node of a chain, as an interface shows them: "Mass:lb". Arrays as in
// lists.h.
#ifndef UOM_SLATES_UNIT_PAIRS_H
#define UOM_SLATES_UNIT_PAIRS_H

#include <cstdint>
#include "catalogue/catalogue.h"

namespace uom {

// The pairs "class:multiplier unit" of a class string filled from a unit string or a slate; null on failure.
char **uoms_GetClassUnitPairs(const Catalogue &catalogue, const char *classString, const char *unitString,
                              int32_t *count);

// The way back: a class string and unit text, "Rate(Mass):lb/hr", from one pair a node, the class string in a
// style. 1 for a bad argument, 2 when the class string fails, else what the last unit gave.
int32_t uoms_PutClassUnitPairs(const Catalogue &catalogue, const char *classString, const char *const *pairs,
                               const char *styleName, int32_t size, char *out);

// The class string with another basis; one without a basis comes back as it is. 1 for a bad argument, else 0.
int32_t uoms_GetClassWithBasis(const Catalogue &catalogue, const char *classString, const char *basis, int32_t size,
                               char *out);

// The basis unit of a class string filled from a unit string, and its name for a sentence ("mass").
int32_t uoms_GetBasisWord(const Catalogue &catalogue, const char *classString, const char *unitString, int32_t size,
                          char *out);

// Display units of a class in a slate, or of a unit text. 1 for a bad argument, 2 for a bad class, or the
// status of uom_FillStructFromString.
int32_t uoms_FormatUnits(const Catalogue &catalogue, const char *classString, const char *text, const char *styleName,
                         int32_t size, char *out);

} // namespace uom

#endif
