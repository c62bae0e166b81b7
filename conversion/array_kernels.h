// The one loop where speed counts.
#ifndef UOM_CONVERSION_ARRAY_KERNELS_H
#define UOM_CONVERSION_ARRAY_KERNELS_H

#include <cstddef>

namespace uom {

// values[i] = (values[i] + offset) * factor, in the widest vectors that the machine has; the results are the
// same bit for bit in every width.
void array_ConvertLinear(double *values, size_t count, double offset, double factor);

} // namespace uom

#endif
