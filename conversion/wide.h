// Numbers of twice a double's precision and of any size, for the constants of a conversion: a chain of factors, offsets
// and powers is worked out in them and rounded once, at its end.
//
// Invariants
//   1. A Wide is (high + low) * 2^exponent, with 1 <= |high| < 2 and |low| at most half a unit in the last place of high,
//      so nothing runs over or under on the way; or all of it is 0.
//   2. Each operation is right to about 2^-103 of its result, a sum of two signs to that of its larger operand.
//   3. Operands are finite, and a divisor isn't 0: the callers see to that.
#ifndef UOM_CONVERSION_WIDE_H
#define UOM_CONVERSION_WIDE_H

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "support/fma.h"

namespace uom {

struct Wide {
    double high = 0.0;
    double low = 0.0;
    int64_t exponent = 0;
};

// A sum or product of two doubles: rounded, and what the rounding left out.
struct ExactPair {
    double value, rest;
};

// REQUIRES: |a| >= |b|, or a is 0.
inline ExactPair exact_QuickSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

inline ExactPair exact_Sum(double a, double b) {
    const double sum = a + b;
    const double ofB = sum - a;
    return {sum, (a - (sum - ofB)) + (b - ofB)};
}

inline ExactPair exact_Product(double a, double b) {
    const double product = a * b;
    return {product, fma_Once(a, b, -product)};
}

constexpr int EXPONENT_BIAS = 1023;
constexpr int MANTISSA_BITS = 52;

// 2^n. REQUIRES: the result is a normal double.
inline double exact_PowerOfTwo(int n) {
    return std::bit_cast<double>(static_cast<uint64_t>(n + EXPONENT_BIAS) << MANTISSA_BITS);
}

// The power of two that a normal double begins with.
inline int exact_Exponent(double x) {
    return static_cast<int>(std::bit_cast<uint64_t>(x) >> MANTISSA_BITS & 0x7FF) - EXPONENT_BIAS;
}

// Exponents stay within this: more than any constants make, and far enough from the end of their type for a sum.
constexpr int64_t WIDEST_EXPONENT = int64_t{1} << 60;

inline Wide wide_Normalised(ExactPair pair, int64_t exponent) {
    if (pair.value == 0.0)
        return {};
    const int shift = exact_Exponent(pair.value);
    const double scale = exact_PowerOfTwo(-shift);
    return {pair.value * scale, pair.rest * scale, std::clamp(exponent + shift, -WIDEST_EXPONENT, WIDEST_EXPONENT)};
}

// An exact copy of a finite double.
Wide wide_Of(double x);

// The number that a constant of the catalogue stands for: the shortest decimal that reads back as it or, where that has
// 16 digits and more, the fraction with a denominator up to 1000 that reads as it, if there is one.
Wide wide_OfConstant(double constant);

inline Wide operator-(const Wide &a) {
    return {-a.high, -a.low, a.exponent};
}

inline Wide operator*(const Wide &a, const Wide &b) {
    const ExactPair product = exact_Product(a.high, b.high);
    const double rest = product.rest + (a.high * b.low + a.low * b.high);
    return wide_Normalised(exact_QuickSum(product.value, rest), a.exponent + b.exponent);
}

inline Wide operator/(const Wide &a, const Wide &b) {
    const double quotient = a.high / b.high;
    const ExactPair product = exact_Product(quotient, b.high);
    const double rest = ((a.high - product.value) - product.rest + a.low) - quotient * b.low;
    return wide_Normalised(exact_QuickSum(quotient, rest / b.high), a.exponent - b.exponent);
}

Wide operator+(const Wide &a, const Wide &b);
inline Wide operator-(const Wide &a, const Wide &b) {
    return a + -b;
}

// 1 for a power of 0. Takes at most 64 steps.
Wide wide_Power(Wide base, uint64_t power);

// The same of a power of either sign; the base is not 0.
inline Wide wide_SignedPower(const Wide &base, int32_t power) {
    const Wide result = wide_Power(base, static_cast<uint64_t>(power < 0 ? -static_cast<int64_t>(power) : power));
    return power < 0 ? wide_Of(1.0) / result : result;
}

// The nearest double, infinite or 0 when it is beyond them.
double wide_Rounded(const Wide &a);

// A sum of which whatever is left when the operands cancel, and is too small to be more than the noise of their own
// making, is 0: what should come out whole comes out whole.
Wide wide_CleanSum(const Wide &a, const Wide &b);

// The same of a number that no sum made.
Wide wide_Clean(Wide a);

} // namespace uom

#endif
