#include "conversion/decimal.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "conversion/wide.h"
#include "support/numbers.h"

namespace uom {

const double decimalTens[DECIMAL_EXACT_TENS + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

namespace {

constexpr double SHORT_END = 1e15; // the first whole number of 16 digits
constexpr int32_t SHORT_DIGITS = 15;
constexpr int32_t MOST_DIGITS = 17; // as many tell any two doubles apart
constexpr int64_t MOST_DENOMINATOR = 1000;
constexpr int32_t MOST_PLACES = static_cast<int32_t>(DECIMAL_EXACT_TENS);

// The nearest whole number. REQUIRES: |x| < 2^51.
double wholeOf(double x) {
    const double magic = 0x1.8p52;
    return (x + magic) - magic;
}

// The most places behind the point with which a number below 1e15 stays below it, and at most 22.
int32_t placesOf(double number) {
    constexpr double LOG10_OF_2 = 0.30102999566398120;
    const double magnitude = LOG10_OF_2 * exact_Exponent(number); // at most 0.31 below the logarithm
    int32_t places = std::clamp(SHORT_DIGITS - 2 - static_cast<int32_t>(std::floor(magnitude)), 0, MOST_PLACES);
    while (places < MOST_PLACES && number * decimalTens[places + 1] < SHORT_END)
        ++places;
    return places;
}

// Printed with so many digits; true when it reads back.
bool print(double number, int32_t count, Decimal *out) {
    char format[8] = "%.14e", text[40];
    format[3] = static_cast<char>('0' + (count - 11)); // "%.14e" has 15 digits
    num_FormatDouble(text, sizeof text, format, number);
    if (num_LeadingDouble(text) != number)
        return false;
    const char *c = text;
    out->digits = 0;
    for (; *c && *c != 'e'; ++c)
        if (*c >= '0' && *c <= '9')
            out->digits = out->digits * 10 + (*c - '0');
    out->exponent = (*c ? num_LeadingInt(c + 1) : 0) - (count - 1);
    return true;
}

// The nearest decimal with so many places behind the point, and how far it is away, in units of its last place.
// REQUIRES: it has 16 or 17 digits, and there is an exact double for the power of ten.
Decimal nearest(double number, int32_t places, double *distance) {
    const ExactPair product = exact_Product(number, decimalTens[places]);
    const double whole = std::floor(product.value);
    const double rest = (product.value - whole) + product.rest;
    const double step = std::floor(rest + 0.5);
    *distance = rest - step;
    return {static_cast<int64_t>(whole) + static_cast<int64_t>(step), -places};
}

// Half the distance to the nearer of the doubles beside this one.
double reach(double number) {
    const uint64_t bits = std::bit_cast<uint64_t>(number);
    return (number - std::bit_cast<double>(bits - 1)) / 2;
}

bool readsAs(int64_t numerator, int64_t denominator, double number) {
    return static_cast<double>(numerator) / static_cast<double>(denominator) == number;
}

} // namespace

// With all of its 15 digits, the last of which may be zeros, it is the nearest of its kind or there is none.
Decimal decimal_Short(double number) {
    if (number >= SHORT_END) {
        Decimal printed;
        return print(number, SHORT_DIGITS, &printed) ? printed : Decimal();
    }
    const int32_t places = placesOf(number);
    const double tens = decimalTens[places];
    const double whole = wholeOf(number * tens);
    if (whole / tens == number)
        return {static_cast<int64_t>(whole), -places};
    Decimal printed;
    return number * tens < SHORT_END / 10 && print(number, SHORT_DIGITS, &printed) ? printed : Decimal();
}

Decimal decimal_Long(double number) {
    const int32_t places = number < SHORT_END ? placesOf(number) + 1 : 0;
    if (places < MOST_PLACES && number < 10 * SHORT_END && number * decimalTens[places] >= SHORT_END) {
        double distance;
        const Decimal sixteen = nearest(number, places, &distance);
        if (std::fabs(distance) < reach(number) * decimalTens[places])
            return sixteen;
        return nearest(number, places + 1, &distance);
    }
    Decimal printed;
    for (int32_t count = SHORT_DIGITS; count <= MOST_DIGITS && !print(number, count, &printed); ++count) {
    }
    return printed;
}

// Of a number from 2^32 on, which has at most 20 binary places: several fractions may read as it, and the nearest counts.
static Fraction fractionOfLarge(double number) {
    constexpr int32_t PLACES = 20;
    const double whole = std::floor(number);
    const int64_t rest = static_cast<int64_t>(std::ldexp(number - whole, PLACES));
    Fraction best = {0, 1};
    int64_t least = INT64_MAX;
    for (int64_t q = 1; q <= MOST_DENOMINATOR; ++q) {
        const int64_t p = (rest * q + (int64_t{1} << (PLACES - 1))) >> PLACES;
        const int64_t distance = std::abs(rest * q - (p << PLACES));
        if (least != INT64_MAX && distance * best.denominator >= least * q)
            continue;
        best = {p, q};
        least = distance;
    }
    const double room = std::ldexp(reach(number) * static_cast<double>(best.denominator), PLACES);
    if (static_cast<double>(least) >= room)
        return {};
    return {static_cast<int64_t>(whole) * best.denominator + best.numerator, best.denominator};
}

// Such a fraction is so near to a number below 2^32 that it must be one of its convergents.
Fraction fraction_Of(double number) {
    if (number >= 0x1p52 || number < 0.9 / MOST_DENOMINATOR)
        return {};
    if (number >= 0x1p32)
        return fractionOfLarge(number);
    Fraction before = {1, 0}, now = {static_cast<int64_t>(number), 1};
    double rest = number - static_cast<double>(now.numerator);
    while (!readsAs(now.numerator, now.denominator, number)) {
        if (rest * static_cast<double>(MOST_DENOMINATOR) < 0.5)
            return {}; // the next denominator is too great
        const double inverse = 1.0 / rest;
        const int64_t whole = static_cast<int64_t>(inverse);
        const Fraction next = {whole * now.numerator + before.numerator, whole * now.denominator + before.denominator};
        if (next.denominator > MOST_DENOMINATOR)
            return {};
        rest = inverse - static_cast<double>(whole);
        before = now;
        now = next;
    }
    return now;
}

} // namespace uom
