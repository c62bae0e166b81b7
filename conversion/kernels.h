// The loops over arrays of prepared conversions, for each width of vectors. All give the same, bit for bit: a fused
// multiplication and addition is rounded once, by the machine's instruction or by the C library's function.
#ifndef UOM_CONVERSION_KERNELS_H
#define UOM_CONVERSION_KERNELS_H

#include "conversion/prepared.h"

namespace uom {

struct Kernels {
    Operations product;     // x * factor, where the factor is a double
    Operations wideProduct; // x * factor
    Operations shifted;     // (x + offset) * factor
    Operations gravity;
    bool fused; // the machine has an instruction for a * b + c
};

// Those of one machine each, or null where this library was not compiled for it.
extern const Kernels *const kernelsPortable;
extern const Kernels *const kernelsAvx2;
extern const Kernels *const kernelsAvx512;

// The widest that this machine has.
const Kernels &kernels_Widest();

// One value of a WALK.
double walk_One(const UomConversion *conversion, double value);

} // namespace uom

#endif
