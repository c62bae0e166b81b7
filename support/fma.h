// a * b + c, rounded once.
#ifndef UOM_SUPPORT_FMA_H
#define UOM_SUPPORT_FMA_H

#if !defined(__GNUC__)
#include <math.h>
#endif

namespace uom {

// By whole numbers, for all arguments: for systems whose C library rounds twice.
double fma_Exact(double a, double b, double c);

// The machine's instruction where a file is compiled for it, else a function. Of each file its own, as they differ.
static inline double fma_Once(double a, double b, double c) {
#if defined(__MINGW32__) && !defined(__FMA__)
    return fma_Exact(a, b, c);
#elif defined(__GNUC__)
    return __builtin_fma(a, b, c);
#else
    return fma(a, b, c);
#endif
}

} // namespace uom

#endif
