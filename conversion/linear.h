// The whole of a linear conversion as one step, worked out without rounding.
#ifndef UOM_CONVERSION_LINEAR_H
#define UOM_CONVERSION_LINEAR_H

#include "catalogue/catalogue.h"
#include "conversion/wide.h"
#include "uom/uom.h"

namespace uom {

// A value x becomes (x + offset) * factor.
struct Linear {
    Wide offset;
    Wide factor = {1.0, 0.0, 0};
};

// What the walk makes of every value, but for its habit of taking what is nearly an offset for it. False when the chains
// hold an API gravity, or a constant that is not finite, or a factor of 0.
// REQUIRES: the chains are parallel.
bool linear_Compose(const Catalogue &catalogue, const UomStructNode *from, const UomStructNode *to, Linear *out);

} // namespace uom

#endif
