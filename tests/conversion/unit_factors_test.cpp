// The pair of numbers that takes a value of one node to base units.
#include "conversion/unit_factors.h"

#include "tests/library_fixture.h"

namespace {

class UnitFactorsTest : public ShippedTest {};

struct Case {
    const char *classToken, *baseToken, *unit;
    int32_t exponent, baseExponent, multiplier;
    double offset, factor;
};

TEST_F(UnitFactorsTest, PairOfANode) {
    const double f = 0.5555555555555556, o = 459.67, lb = 0.45359237, ft = 0.3048;
    const Case cases[] = {
        {"Temp", "Temp", "F", 1, 1, 0, o, f},
        {"TempDiff", "TempDiff", "F", 1, 1, 0, 0, f}, // the class takes no offset
        {"Energy", "TempDiff", "F", 1, -1, 0, 0, 1 / f},
        {"Temp", "Temp", "F", -1, -1, 0, -o, 1 / f},
        {"Leng", "Leng", "ft", 2, 2, 0, 0, ft * ft},
        {"Leng", "Leng", "ft", -3, -3, 0, 0, 1 / (ft * ft * ft)},
        {"Leng", "Leng", "ft", 0, 0, 0, 0, ft},
        // A class with an offset under a power n: the sum of the powers of f over f to n, and f to n + 2.
        {"Temp", "Temp", "F", 2, 2, 0, (1 + f + f * f) / (f * f) * o, f * f * f * f},
        {"Temp", "Temp", "F", 3, 3, 0, (1 + f + f * f + f * f * f) / (f * f * f) * o, f * f * f * f * f},
        {"Temp", "Temp", "F", -2, -2, 0, -(1 + f + f * f) / (f * f) * o, 1 / (f * f * f * f)},
        {"Leng", "Leng", "ft", 1, 1, 3, 0, ft * 1000},
        {"Leng", "Leng", "ft", -1, -1, 3, 0, 1 / (ft * 1000)},
        {"Leng", "Leng", "ft", 2, 2, 3, 0, ft * ft * 1000}, // a simple class: once, outside the power
        {"Temp", "Temp", "F", 1, 1, 3, o / 1000, f * 1000},
        // In a composite class the multiplier is raised along with the class.
        {"Density", "Mass", "lb", 2, 2, 3, 0, lb * 1000 * lb * 1000},
        {"Density", "StdLiqVol", "ft3", 2, -2, 6, 0, 1 / (28316.846592e6 * 28316.846592e6)},
        {"Inertia", "Leng", "ft", 1, 2, 3, 0, ft * ft * 1000},
        {"Inertia", "Leng", "ft", -2, -4, 3, 0, 1 / (ft * ft * 1000 * ft * ft * 1000)},
        {"Density", "Mass", "lb", 2, 2, 0, 0, lb * lb}};
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classToken << " " << c.unit << " " << c.baseExponent);
        double offset = 9, factor = 9;
        EXPECT_EQ(uom_UnitScale(ClassOf(c.classToken), c.exponent, ClassOf(c.baseToken), uom_GetUnitType(c.unit),
                                c.baseExponent, c.multiplier, &offset, &factor),
                  0);
        EXPECT_NEAR(factor, c.factor, 1e-14 * c.factor);
        EXPECT_NEAR(offset, c.offset, 1e-14 * (c.offset < 0 ? -c.offset : c.offset));
    }
}

TEST_F(UnitFactorsTest, RefusesBadClassesAndUnits) {
    const int32_t classes = uom_GetUOMClassCount(), units = uomUnitCount;
    const struct {
        int32_t classId, baseClass, unit, status;
    } cases[] = {{0, 11, 1, 1},       {11, 0, 1, 1},  {-1, 11, 1, 1},     {11, -5, 1, 1},      {classes, 11, 1, 1},
                 {11, classes, 1, 1}, {11, 11, 0, 2}, {11, 11, units, 2}, {11, 11, -1, 2},     {11, 11, 1, 0},
                 {0, 11, 0, 1},       {1, 2, 1, 0},   {71, 71, 1, 0},     {11, 11, 1 << 30, 2}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classId << " " << c.baseClass << " " << c.unit);
        double offset = 9, factor = 9;
        EXPECT_EQ(uom_UnitScale(c.classId, 1, c.baseClass, c.unit, 1, 0, &offset, &factor), c.status);
        EXPECT_EQ(offset, 0.0);
        EXPECT_EQ(factor, 1.0); // also the factor of unit 1, a basis
    }
}

TEST_F(UnitFactorsTest, SurvivesAnExponentOfZeroUnderAMultiplier) {
    double offset = 9, factor = 9;
    EXPECT_EQ(uom_UnitScale(ClassOf("Density"), 0, ClassOf("Mass"), uom_GetUnitType("lb"), 0, 3, &offset, &factor), 0);
    EXPECT_GT(factor, 0);
}

} // namespace
