#include "support/fma.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace uom {

#if defined(__SIZEOF_INT128__)

namespace {

__extension__ using Whole = __int128;
__extension__ using Magnitude = unsigned __int128;

constexpr int MANTISSA = 53;          // bits of a double
constexpr int LEAST_EXPONENT = -1074; // of the smallest double

// mantissa * 2^exponent, without an error.
struct Scaled {
    Whole mantissa;
    int exponent;
};

Scaled scaledOf(double x) {
    int exponent;
    const double mantissa = std::frexp(x, &exponent);
    return {static_cast<Whole>(std::ldexp(mantissa, MANTISSA)), exponent - MANTISSA};
}

// Divided by 2^bits. What is no whole number becomes the odd one beside it, so that a later rounding to fewer bits knows
// on which side of the middle it was.
Whole shiftedToOdd(Whole x, int bits) {
    const int shift = std::min(bits, 126);
    const Whole down = x >> shift;
    return (down << shift) == x ? down : down | 1;
}

// Of a term's mantissa of 53 bits so many may stand in front of those of the product, which has 106 bits.
constexpr int REACH = 72;

Scaled sumOf(const Scaled &product, const Scaled &term) {
    const int exponent = std::max(product.exponent, term.exponent - REACH);
    const Whole first = shiftedToOdd(product.mantissa, exponent - product.exponent);
    const Whole second = term.exponent >= exponent ? term.mantissa * (Whole{1} << (term.exponent - exponent))
                                                   : shiftedToOdd(term.mantissa, exponent - term.exponent);
    return {first + second, exponent};
}

int bitsOf(Magnitude x) {
    const auto high = static_cast<uint64_t>(x >> 64), low = static_cast<uint64_t>(x);
    return high != 0 ? 128 - __builtin_clzll(high) : low != 0 ? 64 - __builtin_clzll(low) : 0;
}

// To the nearest double, of two as near to the even one.
double rounded(Magnitude x, int exponent) {
    const int dropped = std::max(bitsOf(x) - MANTISSA, LEAST_EXPONENT - exponent);
    if (dropped <= 0)
        return std::ldexp(static_cast<double>(x), exponent);
    if (dropped > bitsOf(x))
        return 0.0;
    auto kept = static_cast<uint64_t>(x >> dropped);
    const Magnitude rest = x - (Magnitude{kept} << dropped), half = Magnitude{1} << (dropped - 1);
    if (rest > half || (rest == half && kept % 2 == 1))
        ++kept;
    return std::ldexp(static_cast<double>(kept), exponent + dropped);
}

} // namespace

double fma_Exact(double a, double b, double c) {
    if (a == 0.0 || b == 0.0 || !std::isfinite(a) || !std::isfinite(b))
        return a * b + c;
    if (!std::isfinite(c))
        return c;
    if (c == 0.0)
        return a * b;
    const Scaled x = scaledOf(a), y = scaledOf(b);
    const Scaled sum = sumOf({x.mantissa * y.mantissa, x.exponent + y.exponent}, scaledOf(c));
    return sum.mantissa < 0 ? -rounded(static_cast<Magnitude>(-sum.mantissa), sum.exponent)
                            : rounded(static_cast<Magnitude>(sum.mantissa), sum.exponent);
}

#else

double fma_Exact(double a, double b, double c) {
    return std::fma(a, b, c);
}

#endif

} // namespace uom
