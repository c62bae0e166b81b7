// The decimals and fractions that read as a double: what somebody meant who wrote a constant down.
#ifndef UOM_CONVERSION_DECIMAL_H
#define UOM_CONVERSION_DECIMAL_H

#include <cstdint>

namespace uom {

// digits * 10^exponent. No digits mean that there is none.
struct Decimal {
    int64_t digits = 0;
    int32_t exponent = 0;
};

struct Fraction {
    int64_t numerator = 0; // 0: there is none
    int64_t denominator = 1;
};

// The powers of ten that are doubles.
constexpr uint64_t DECIMAL_EXACT_TENS = 22;
extern const double decimalTens[DECIMAL_EXACT_TENS + 1];

// All of these take a finite number above 0.

// The decimal of up to 15 digits that reads as the number. There is at most one.
Decimal decimal_Short(double number);

// The shortest decimal that reads as the number, the nearest one of those.
// REQUIRES: decimal_Short() has none, which leaves 16 or 17 digits.
Decimal decimal_Long(double number);

// The fraction with the smallest denominator, up to 1000, that reads as the number.
Fraction fraction_Of(double number);

} // namespace uom

#endif
