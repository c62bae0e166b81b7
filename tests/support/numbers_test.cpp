// What counts as a number, as no value and as equal, in whatever locale the host has set.
#include "support/numbers.h"

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>

#include "support/fma.h"
#include "tests/library_fixture.h"

namespace {

class SupportNumbers : public ::testing::Test {
protected:
    void SetUp() override { num_InitConstants(); }
};

TEST_F(SupportNumbers, EqualityIsRelativeToTheFirst) {
    const char cases[] = R"(
        0 | 1e-16 | 1; 1e-16 | 2e-16 | 1; 1e-16 | 1 | 0; 1 | 1e-16 | 0; 1 | 1 | 1; 1e300 | 1e300 | 1; 1e-15 | 0 | 0
        100 | 100.00005 | 1; 100 | 100.001 | 0; -1 | 1 | 0; 1 | 1.0000010000005 | 0; 1.0000010000005 | 1 | 1
    )";
    expectAnswers(cases, [](const Cells &c) { return joined(num_Equal(std::stod(c[0]), std::stod(c[1]))); });
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(num_Equal(infinity, infinity));
    EXPECT_TRUE(num_EqualTol(100.0, 101.0, 0.02));
}

TEST_F(SupportNumbers, ConstantsHaveValuesThatCanBeSetAndTakenBack) {
    // -1.5e35 and -1e35 as floats, and the integer of the same kind, as other programs store them
    EXPECT_EQ(std::bit_cast<uint32_t>(num_NullFloat()), 0xF9E71C91u);
    EXPECT_EQ(std::bit_cast<uint32_t>(num_NullFloatLimit()), 0xF99A130Cu);
    EXPECT_EQ(joined(num_NullDouble(), num_NullDoubleLimit(), num_NullInt(), num_NullUnsigned(), num_ZeroLimit(),
                     num_RelativeTol(), num_ZeroLimitF(), num_RelativeTolF()),
              "-1.5e+35 -1e+35 -2111111111 2183856185 1e-15 1e-06 1e-06 1e-06");

    num_SetNullDouble(1), num_SetNullDoubleLimit(2), num_SetNullFloat(3), num_SetNullFloatLimit(4), num_SetNullInt(5);
    num_SetNullUnsigned(6), num_SetZeroLimit(7), num_SetRelativeTol(8), num_SetZeroLimitF(9), num_SetRelativeTolF(10);
    EXPECT_EQ(joined(num_NullDouble(), num_NullDoubleLimit(), num_NullFloat(), num_NullFloatLimit(), num_NullInt(),
                     num_NullUnsigned(), num_ZeroLimit(), num_RelativeTol(), num_ZeroLimitF(), num_RelativeTolF()),
              "1 2 3 4 5 6 7 8 9 10");
    EXPECT_EQ("1 0 1 0 1 0 1 0",
              joined(num_IsNull(1.9), num_IsNull(2), num_IsNullFloat(3.9f), num_IsNullFloat(4), num_IsNullInt(5),
                     num_IsNullInt(4), num_IsNullUnsigned(6), num_IsNullUnsigned(7)));
    EXPECT_EQ("1 1 0", joined(num_Equal(6, -6), num_Equal(7, -48), num_Equal(7, -49))) << "zero below 7, 8 times";
    EXPECT_EQ("1 1 0 0", joined(num_EqualF(8, -8), num_EqualF(9, -80), num_EqualF(9, -81), num_EqualF(8, 9)));

    num_InitConstants();
    EXPECT_EQ("0 1", joined(num_Equal(6, -6), num_IsNull(-1.5e35)));
}

TEST_F(SupportNumbers, WholeNumbersAreThoseOf32Bits) {
    const char cases[] = R"(
        | 1 0; + | 1 0; -7 | 1 -7; +12 | 1 12; 2147483647 | 1 2147483647; -2147483648 | 1 -2147483648; 2147483648 | 0
        -2147483649 | 0; 99999999999999999999 | 0; 1.5 | 0; 1x | 0; ~1 | 0; -+1 | 0; 0012 | 1 12
    )";
    expectAnswers(cases, [](const Cells &c) {
        const int32_t whole = num_IsIntegerText(c[0].c_str());
        return whole ? joined(whole, num_LeadingInt(c[0].c_str())) : "0";
    });
    EXPECT_EQ("1 0 0", joined(num_IsIntegerText(nullptr), num_LeadingInt(nullptr), num_LeadingDouble(nullptr)));
}

TEST_F(SupportNumbers, ScansWithoutReading) {
    // accepted, digits, exponent mark, exponent, characters used
    const char cases[] = R"(
        1.5e-12 | 1 1 1 -12 7; -e3 | 1 0 1 3 3; 1e | 1 1 1 0 2; 7,1 | 0 1 0 0 1; 1e99999999999 | 1 1 1 2147483647 13
        +.5 | 1 1 0 0 3; 1e5.0 | 0 1 1 5 3; 1ee | 0 1 1 0 2
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t digits, mark, exponent, used;
        const int32_t good = num_ScanNumber(c[0].c_str(), &digits, &mark, &exponent, &used);
        return joined(good, digits, mark, exponent, used);
    });
    int32_t digits, mark, exponent, used = 9;
    EXPECT_EQ(1, num_ScanNumber(nullptr, &digits, &mark, &exponent, &used));
    EXPECT_EQ(0, used);
    EXPECT_EQ("8 8 1 1", joined(num_PowInt(2, 3), num_PowInt(2, -3), num_PowInt(5, 0), num_PowInt(1, 2147483647)));
}

void expectNumbers() {
    const char cases[] = R"(
        | 0 0; - | 0 0; . | 0 0; 12.5 | 0 12.5; -0.25 | 0 -0.25; +7 | 0 7; 5. | 0 5; .5 | 0 0.5; 1e3 | 0 1000
        1E-3 | 0 0.001; E0 | 0 1; -E0 | 0 -1; E | 0 1; -E3 | 0 -1000; E307 | 0 1e+307; E-2 | 0 0.01; -.E2 | 0 -100
        1E | 0 1; 2.5e+ | 0 2.5; 3e- | 0 3; 1.7e308 | 0 1.7e+308; 12x | 3; x | 1; ~1 | 1; 1~ | 2; 1.2.3 | 4; 1,5 | 2
        0x10 | 2; nan | 1; inf | 1; E308 | 1; E-307 | 1; 1e999 | -1; -1e999 | -1; 1e-999 | -1
    )";
    expectAnswers(cases, [](const Cells &c) {
        double value = -77.0;
        const int32_t status = num_TextToDouble(c[0].c_str(), &value);
        char text[32] = "";
        if (value != -77.0)
            num_FormatDouble(text, sizeof text, "%.10g", value);
        return joined(status, text);
    });
}

TEST_F(SupportNumbers, TextsBecomeDoubles) {
    expectNumbers();
    double value;
    EXPECT_EQ(-1, num_TextToDouble(nullptr, &value));
    EXPECT_EQ(-1, num_TextToDouble("1", nullptr));
    EXPECT_EQ(-1, num_TextToDouble(std::string(10000, '7').c_str(), &value));
    EXPECT_EQ(0, num_TextToDouble(("0." + std::string(10000, '3')).c_str(), &value));
    EXPECT_DOUBLE_EQ(1.0 / 3.0, value);
}

TEST_F(SupportNumbers, AreTheSameUnderADecimalComma) {
#if defined(UOM_TEST_LOCALES) || defined(_WIN32)
    const std::string before = std::setlocale(LC_ALL, nullptr);
#ifdef _WIN32
    const char *const found = std::setlocale(LC_ALL, "German");
#else
    setenv("LOCPATH", UOM_TEST_LOCALES, 1);
    const char *const found = std::setlocale(LC_ALL, "de_DE.UTF-8");
    unsetenv("LOCPATH");
#endif
    ASSERT_NE(found, nullptr) << "no locale with a decimal comma";
    expectNumbers();
    EXPECT_EQ(2.75, num_LeadingDouble(" 2.75 kg"));
    EXPECT_EQ(1.0, num_LeadingDouble("1,5"));
    EXPECT_EQ(0x1.8p-3, num_LeadingDouble("0x1.8p-3"));
    char text[16];
    num_FormatDouble(text, sizeof text, "%9.2e|", 1.5e-7);
    EXPECT_STREQ(" 1.50e-07|", text);
    EXPECT_STREQ(",", std::localeconv()->decimal_point) << "the host's locale is as it was";
    std::setlocale(LC_ALL, before.c_str());
#else
    GTEST_SKIP() << "built on a machine without the sources of a locale";
#endif
}

// Against the C library, where that rounds once: numbers of all sizes, near to each other, and what cancels.
TEST_F(SupportNumbers, FusedProductsAreRoundedOnce) {
    EXPECT_EQ(-0x1p-54, fma_Exact(1 + 0x1p-27, 1 - 0x1p-27, -1));
    EXPECT_EQ(0x1p-1074, fma_Exact(0x1p-537, 0x1.8p-538, 0x0p0)) << "three quarters of the smallest";
    EXPECT_EQ(0.0, fma_Exact(0x1p-1074, 0.5, -0x1p-1074 * 0.5));
    EXPECT_EQ(0x1.8p53 + 4, fma_Exact(0x1.8p53 + 2, 1, 1 + 0x1p-52)) << "just above the middle";
    EXPECT_TRUE(std::isnan(fma_Exact(INFINITY, 0, 1)));
#ifndef __MINGW32__
    std::mt19937_64 random(7);
    const auto number = [&](int spread) {
        const uint64_t exponent = spread > 0 ? 1023 + random() % static_cast<uint64_t>(spread) : random() % 2048;
        return std::bit_cast<double>((random() & 0x800FFFFFFFFFFFFF) | exponent << 52);
    };
    for (int i = 0; i < 1000000; ++i) {
        const int spread = std::vector{0, 1, 60, 200}[static_cast<size_t>(i % 4)];
        const double a = number(spread), b = number(spread);
        const double c = i % 3 == 0 ? -a * b * (1 + i % 5 * 0x1p-52) : number(2 * spread);
        const double expected = std::fma(a, b, c), found = fma_Exact(a, b, c);
        const bool same = std::bit_cast<uint64_t>(expected) == std::bit_cast<uint64_t>(found);
        ASSERT_TRUE(same || (std::isnan(expected) && std::isnan(found))) << std::hexfloat << a << " " << b << " " << c;
    }
#endif
}

} // namespace
