// The defaults that follow from a default: degrees F decide degrees R, a length its area and volumes.
//
// A slate is of one of two families. The HX family are the slates whose parent descends from HXENGLISH,
// HXMETRIC or HXSI; all others are ordinary. A rule writes to the same slate, and what it writes sets off no
// further rule.
#ifndef UOM_SLATES_PROPAGATION_H
#define UOM_SLATES_PROPAGATION_H

#include <cstdint>
#include "catalogue/catalogue.h"
#include "conversion/running.h"

namespace uom {

// Runs the rules of both families, unless rules are running; a slate is touched by one family. `units[0]` and
// `multipliers[0]` are what was just stored for the class. Always 0.
int32_t uom_PropagateClassDefault(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                                  const int32_t *units, const int32_t *multipliers);

// One family's rules. 0, or 1 on a bad slate (and, for the common rules, a bad class).
int32_t uom_PropagateCommonRules(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                                 const int32_t *units, const int32_t *multipliers);
int32_t uom_PropagateHXRules(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                             const int32_t *units, const int32_t *multipliers);

} // namespace uom

#endif
