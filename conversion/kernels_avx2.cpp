// The kernels for machines with AVX2 and FMA.
#include "conversion/kernels.h"

#if defined(__AVX2__) && defined(__FMA__)

#include "conversion/kernel_bodies.h"
#include "conversion/vectors_avx2.h"

namespace uom {

static constexpr Kernels kernels = kernelsOf<Avx2>;
const Kernels *const kernelsAvx2 = &kernels;

} // namespace uom

#else

namespace uom {
const Kernels *const kernelsAvx2 = nullptr;
}

#endif
