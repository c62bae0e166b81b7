#include "conversion/wide.h"

#include "conversion/decimal.h"

namespace uom {

namespace {

// Beyond this many powers of two apart the smaller of two terms is no part of their sum.
constexpr int64_t SUM_REACH = 200;

// What is smaller than this beside the operands is noise: above the error of hundreds of operations, and far below the
// last place of a double.
constexpr int64_t NOISE = -98;

// The exponent of a number's leading bit, that of a 0 below all others.
int64_t leadingBit(const Wide &a) {
    return a.high == 0.0 ? INT64_MIN / 2 : a.exponent;
}

Wide withoutNoise(Wide sum, int64_t operands) {
    if (leadingBit(sum) < operands + NOISE)
        return {};
    if (sum.low != 0.0 && sum.exponent + exact_Exponent(sum.low) < operands + NOISE)
        sum.low = 0.0;
    return sum;
}

} // namespace

Wide wide_Of(double x) {
    int exponent = exact_Exponent(x);
    if (exponent > -1000 && exponent < 1000)
        return wide_Normalised({x, 0.0}, 0);
    const double mantissa = std::frexp(x, &exponent);
    return wide_Normalised({mantissa, 0.0}, exponent);
}

Wide operator+(const Wide &a, const Wide &b) {
    if (a.high == 0.0 || b.high == 0.0)
        return a.high == 0.0 ? b : a;
    const Wide &larger = a.exponent >= b.exponent ? a : b;
    const Wide &smaller = a.exponent >= b.exponent ? b : a;
    const int64_t shift = larger.exponent - smaller.exponent;
    if (shift > SUM_REACH)
        return larger;
    const double scale = exact_PowerOfTwo(-static_cast<int>(shift));
    const ExactPair high = exact_Sum(larger.high, smaller.high * scale);
    const ExactPair low = exact_Sum(larger.low, smaller.low * scale);
    const ExactPair both = exact_QuickSum(high.value, high.rest + low.value);
    return wide_Normalised(exact_QuickSum(both.value, both.rest + low.rest), larger.exponent);
}

Wide wide_Power(Wide base, uint64_t power) {
    Wide result = {1.0, 0.0, 0};
    for (; power > 0; power >>= 1) {
        if (power & 1)
            result = result * base;
        if (power > 1)
            base = base * base;
    }
    return result;
}

double wide_Rounded(const Wide &a) {
    constexpr int64_t BEYOND = 4000; // any double, and what ldexp takes
    const int64_t exponent = a.exponent < -BEYOND ? -BEYOND : a.exponent > BEYOND ? BEYOND : a.exponent;
    return std::ldexp(a.high, static_cast<int>(exponent));
}

Wide wide_CleanSum(const Wide &a, const Wide &b) {
    const int64_t ofA = leadingBit(a), ofB = leadingBit(b);
    return withoutNoise(a + b, ofA > ofB ? ofA : ofB);
}

Wide wide_Clean(Wide a) {
    return withoutNoise(a, leadingBit(a));
}

// A whole number of any size that 64 bits hold.
static Wide ofInteger(int64_t number) {
    const double head = static_cast<double>(number);
    return wide_Of(head) + wide_Of(static_cast<double>(number - static_cast<int64_t>(head)));
}

Wide wide_OfConstant(double constant) {
    const double magnitude = std::fabs(constant);
    if (magnitude == 0.0)
        return {};
    Decimal decimal = decimal_Short(magnitude);
    Fraction fraction = {0, 1};
    if (decimal.digits == 0) {
        fraction = fraction_Of(magnitude);
        if (fraction.numerator == 0)
            decimal = decimal_Long(magnitude);
    }
    Wide result;
    if (fraction.numerator != 0) {
        result = ofInteger(fraction.numerator) / ofInteger(fraction.denominator);
    } else {
        result = ofInteger(decimal.digits);
        const uint64_t tens = static_cast<uint64_t>(decimal.exponent < 0 ? -decimal.exponent : decimal.exponent);
        if (tens != 0) {
            const Wide power =
                tens <= DECIMAL_EXACT_TENS ? wide_Of(decimalTens[tens]) : wide_Power(wide_Of(10.0), tens);
            result = decimal.exponent < 0 ? result / power : result * power;
        }
    }
    return constant < 0.0 ? -result : result;
}

} // namespace uom
