// What counts as a number, as no value and as equal, in whatever locale the host has set.
#include "support/numbers.h"

#include <clocale>
#include <limits>

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
    const std::string before = std::setlocale(LC_ALL, nullptr);
    bool found = false;
    for (const char *name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "nl_NL.UTF-8"})
        found = found || std::setlocale(LC_ALL, name);
    if (!found)
        GTEST_SKIP() << "no locale with a decimal comma on this machine";
    expectNumbers();
    EXPECT_EQ(2.75, num_LeadingDouble(" 2.75 kg"));
    EXPECT_STREQ(",", std::localeconv()->decimal_point) << "the host's locale is as it was";
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace
