#include "tools/uom/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

std::string written(double value, int digits) {
    char text[LONGEST_NUMBER_TEXT];
    return {text, writeNumber(text, value, digits)};
}

std::string expected(double value, int digits) {
    char text[64];
    const auto end = digits == FULL_PRECISION
                         ? std::to_chars(text, text + sizeof text, value)
                         : std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits);
    return {text, end.ptr};
}

double anyBits(std::mt19937_64 &random) {
    const uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

TEST(NumberText, IsThatOfTheStandardLibrary) {
    std::vector<double> values = {
        0.0,   -0.0,   1.0,    -1.0,     100.0,     1000.0,   10000.0, 99999.5, 0.5,  0.25,
        0.001, 1e-4,   1.5e-4, 1e-5,     9.9999e5,  999999.5, 1e15,    1e16,    1e17, 9007199254740993.0,
        1e300, 5e-324, NAN,    INFINITY, -INFINITY, 0.125,    2.5,     0.15,    1e22, 123456789012345678.0};
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponents(-8, 20);
    for (int i = 0; i < 5000; ++i) {
        const double decimals = std::pow(10.0, static_cast<double>(random() % 8)); // halves of a last digit among them
        values.insert(values.end(), {std::pow(10.0, exponents(random)), anyBits(random),
                                     static_cast<double>(random() % 1'000'000) / decimals,
                                     -static_cast<double>(random() % 10'000) - 0.5});
    }
    for (const double value : values)
        for (int digits = FULL_PRECISION; digits <= MOST_DIGITS; ++digits)
            ASSERT_EQ(written(value, digits), expected(value, digits)) << digits << " digits";
}

} // namespace
