// What counts as a number, as no value, and as equal.
#ifndef UOM_SUPPORT_NUMBERS_H
#define UOM_SUPPORT_NUMBERS_H

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace uom {

struct NumberConstants {
    double nullDouble = -1.5e35;    // stands for no value
    double nullDoubleLimit = -1e35; // anything below is a null value
    float nullFloat = std::bit_cast<float>(0xF9E71C91u);
    float nullFloatLimit = std::bit_cast<float>(0xF99A130Cu);
    uint32_t nullUnsigned = 0x822B0039u;
    int32_t nullInt = static_cast<int32_t>(nullUnsigned);
    double zeroLimit = 1.0 / 1e15;  // magnitudes below count as zero
    double relativeTol = 1.0 / 1e6; // relative tolerance of equality
    float zeroLimitF = static_cast<float>(1.0 / 1e6);
    float relativeTolF = static_cast<float>(1.0 / 1e6);
    bool operator==(const NumberConstants &) const = default;
};

// Good from the first call on: who uses the tables of the static library alone has no part of it that runs at load.
extern NumberConstants numConstants;

// Takes back what was set. Runs at load and at each start-up.
void num_InitConstants();

inline double num_NullDouble() {
    return numConstants.nullDouble;
}
inline double num_NullDoubleLimit() {
    return numConstants.nullDoubleLimit;
}
inline float num_NullFloat() {
    return numConstants.nullFloat;
}
inline float num_NullFloatLimit() {
    return numConstants.nullFloatLimit;
}
inline int32_t num_NullInt() {
    return numConstants.nullInt;
}
inline uint32_t num_NullUnsigned() {
    return numConstants.nullUnsigned;
}
inline double num_ZeroLimit() {
    return numConstants.zeroLimit;
}
inline double num_RelativeTol() {
    return numConstants.relativeTol;
}
inline float num_ZeroLimitF() {
    return numConstants.zeroLimitF;
}
inline float num_RelativeTolF() {
    return numConstants.relativeTolF;
}

inline void num_SetNullDouble(double value) {
    numConstants.nullDouble = value;
}
inline void num_SetNullDoubleLimit(double value) {
    numConstants.nullDoubleLimit = value;
}
inline void num_SetNullFloat(float value) {
    numConstants.nullFloat = value;
}
inline void num_SetNullFloatLimit(float value) {
    numConstants.nullFloatLimit = value;
}
inline void num_SetNullInt(int32_t value) {
    numConstants.nullInt = value;
}
inline void num_SetNullUnsigned(uint32_t value) {
    numConstants.nullUnsigned = value;
}
inline void num_SetZeroLimit(double value) {
    numConstants.zeroLimit = value;
}
inline void num_SetRelativeTol(double value) {
    numConstants.relativeTol = value;
}
inline void num_SetZeroLimitF(float value) {
    numConstants.zeroLimitF = value;
}
inline void num_SetRelativeTolF(float value) {
    numConstants.relativeTolF = value;
}

// With the constants of a moment, which whoever must not see them change keeps a copy of.
inline bool num_IsNull(const NumberConstants &numbers, double value) {
    return value < numbers.nullDoubleLimit;
}
inline bool num_IsNull(double value) {
    return num_IsNull(numConstants, value);
}
inline bool num_IsNullFloat(float value) {
    return value < numConstants.nullFloatLimit;
}
inline bool num_IsNullInt(int32_t value) {
    return value == numConstants.nullInt;
}
inline bool num_IsNullUnsigned(uint32_t value) {
    return value == numConstants.nullUnsigned;
}

// Equality relative to the first argument: not symmetric near its limits, so the order of arguments counts.
inline bool num_EqualTol(const NumberConstants &numbers, double a, double b, double tolerance) {
    if (std::fabs(a) < numbers.zeroLimit)
        return std::fabs(b) < numbers.zeroLimit;
    return std::fabs(a - b) / std::fabs(a) < tolerance;
}
inline bool num_Equal(const NumberConstants &numbers, double a, double b) {
    return a == b || num_EqualTol(numbers, a, b, numbers.relativeTol);
}
bool num_Equal(double a, double b);
bool num_EqualTol(double a, double b, double tolerance);
bool num_EqualF(float a, float b);
bool num_EqualTolF(float a, float b, float tolerance);

// x multiplied by itself as often as the magnitude of n says, left to right; the sign of n is ignored.
double num_PowInt(double x, int32_t n);

// 1 for an empty text, a lone sign, and digits with an optional sign that fit 32 bits; else 0.
int32_t num_IsIntegerText(const char *text);

// Scans a whole text as a number: 1, or 0 with `used` at the position of the bad character. The mantissa's
// digits are not required. An exponent too large for its output is held at the output's bound.
int32_t num_ScanNumber(const char *text, int32_t *hasDigits, int32_t *hasExponent, int32_t *exponent, int32_t *used);

// 0 with the number stored, the 1-based position of the first bad character, or -1 for null arguments and
// numbers out of range.
int32_t num_TextToDouble(const char *text, double *out);

// The leading number of a text as atof and atoi read it, in the "C" locale whatever the host has set; 0
// without one.
double num_LeadingDouble(const char *text);
int32_t num_LeadingInt(const char *text);

// Formats one double with a printf format ("%.6g") in the "C" locale.
#if defined(__GNUC__)
__attribute__((format(printf, 3, 0)))
#endif
void num_FormatDouble(char *out, size_t size, const char *format, double value);

// The low 32 bits of a product and a sum: exponents come from texts and may be anything.
inline int32_t num_Multiply(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<int64_t>(a) * b));
}
inline int32_t num_Add(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

// The same number bit for bit: a repeated step that changes nothing changes nothing for ever.
inline bool num_Same(double a, double b) {
    return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

// The magnitude, also of the smallest integer.
inline int64_t num_Magnitude(int32_t n) {
    return n < 0 ? -static_cast<int64_t>(n) : n;
}

// x multiplied by itself n times, left to right, for as long as more() says.
template <class More> double num_PowWhile(double x, int64_t n, More more) {
    double power = 1.0;
    for (; n > 0 && more(); --n) {
        const double next = power * x;
        // A product that no longer changes (1, 0, infinity) stays as it is however often x comes.
        if (num_Same(next, power))
            return next;
        power = next;
    }
    return power;
}

} // namespace uom

#endif
