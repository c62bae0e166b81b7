// The walk of two chains: groups with powers, the running pair, gravities, null values.
#include "conversion/engine.h"

#include <cmath>

#include "support/numbers.h"
#include "tests/library_fixture.h"

namespace {

class EngineTest : public ShippedTest {};

double Near(double value) {
    return 1e-12 * std::fabs(value);
}

// The specific gravity of a degree API, and what a further walk over a gravity node makes of any value.
double Gravity(double api) {
    return 141.5 / (api + 131.5);
}

// Length from meters to centimeters has the factor 100, Temp from C to F the pair 17.77.. and 1.8.
TEST_F(EngineTest, PowersOfLinearGroups) {
    const double o = 32 / 1.8;
    const struct {
        const char *classString;
        std::initializer_list<const char *> from, to;
        double value, expected, offset, factor;
    } cases[] = {{"(Leng)", {"m"}, {"cm"}, 3, 300, 0, 100},
                 {"(Leng) 0", {"m"}, {"cm"}, 3, 300, 0, 100},
                 // From here the pair lacks one factor: the group's forward pass.
                 {"(Leng) 2", {"m"}, {"cm"}, 3, 3e4, 0, 1e2},
                 {"(Leng) 3", {"m"}, {"cm"}, 3, 3e6, 0, 1e4},
                 {"(Leng) -1", {"m"}, {"cm"}, 3, 3e-2, 0, 1e-4},
                 {"1 / (Leng) 2", {"m"}, {"cm"}, 3, 3e-4, 0, 1e-6},
                 {"(Leng / Time) 2", {"m", "hr"}, {"cm", "sec"}, 36, 1 / 36.0, 0, 1 / 36.0},
                 {"(Leng / Time) -1", {"m", "sec"}, {"cm", "sec"}, 3, 3e-2, 0, 1e-4},
                 {"Mass (Leng) 2", {"g", "m"}, {"kg", "cm"}, 3, 30, 0, 0.1},
                 {"(Leng) 2 Mass", {"m", "g"}, {"cm", "kg"}, 3, 30, 0, 0.1},
                 {"(Leng) 2 (Mass) -1", {"m", "g"}, {"cm", "kg"}, 3, 3e7, 0, 1e8},
                 {"((Leng) 2) 3", {"m"}, {"cm"}, 3, 3e8, 0, 1e4}, // the outer power sees the inner pair
                 {"(Temp)", {"C"}, {"F"}, 10, 50, o / 1.8, 1.8},
                 {"(Temp) 2", {"C"}, {"F"}, 10, 122, o / 1.8, 1.8},
                 {"(Temp) 3", {"C"}, {"F"}, 10, (122 + o) * 1.8, 2 * o / 1.8, 3.24},
                 {"(Temp) -1", {"C"}, {"F"}, 10, -22 / 1.8, -32 - 32 * 1.8, 1 / 3.24}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << *c.from.begin());
        const Chain from(c.classString, c.from), to(c.classString, c.to);
        EXPECT_NEAR(uom_ConvertFromTo(c.value, from.head, to.head), c.expected, Near(c.expected));
        EXPECT_NE(uomRunLinear, 0);
        EXPECT_NEAR(uomRunFactor, c.factor, Near(c.factor));
        EXPECT_NEAR(uomRunOffset, c.offset, 1e-11);
    }
}

TEST_F(EngineTest, GravitiesAndGroups) {
    const double d = Gravity(35) * 999.016;
    // A further round takes the first inner node alone: a gravity to a mass in kg per cubic centimeter.
    const auto again = [](double value) { return Gravity(value) * 0.000999016; };
    const struct {
        const char *classString;
        std::initializer_list<const char *> from, to;
        double expected;
    } cases[] = {
        {"PetroDensity", {"API"}, {"kg", "m3"}, d},
        {"PetroDensity (Leng) 2", {"API", nullptr, "m"}, {"kg", "m3", "cm"}, d * 1e4},
        {"PetroDensity (Leng) -1", {"API", nullptr, "m"}, {"kg", "m3", "cm"}, d / 100},
        {"PetroDensity (Leng)", {"API", nullptr, "m"}, {"kg", "m3", "cm"}, d * 100},
        {"(PetroDensity)", {"API"}, {"kg", "m3"}, d},
        {"(PetroDensity) 0", {"API"}, {"kg", "m3"}, d},
        {"(PetroDensity) -1", {"API"}, {"kg", "m3"}, d},
        {"(PetroDensity) -3", {"API"}, {"kg", "m3"}, d},
        {"(PetroDensity) 2", {"API"}, {"kg", "m3"}, again(d)},
        {"(PetroDensity) 3", {"API"}, {"kg", "m3"}, again(again(d))},
        {"(PetroMass) 3", {"API"}, {"kg"}, again(35)} // one inner node: no further walk
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.classString);
        const Chain from(c.classString, c.from), to(c.classString, c.to);
        EXPECT_NEAR(uom_ConvertFromTo(35, from.head, to.head), c.expected, Near(c.expected));
        EXPECT_EQ(uomRunLinear, 0);
    }
}

TEST_F(EngineTest, GravityAtTheEndWaitsForTheNextConversion) {
    const Chain kg("PetroMass", "kg"), api("PetroMass", "API"), m("Leng", "m");
    EXPECT_NEAR(uom_ConvertFromTo(0.000999016, kg.head, api.head), 1.0, 1e-12);
    EXPECT_EQ(uomApiPending, 1);
    EXPECT_EQ(uom_ConvertFromTo(-1.5e35, m.head, m.head), -1.5e35); // refused: it goes on waiting
    EXPECT_EQ(uomApiPending, 1);
    EXPECT_NEAR(uom_ConvertFromTo(0.5, m.head, m.head), 283 - 131.5, 1e-12);
    EXPECT_NEAR(uom_ConvertFromTo(0.5, m.head, m.head), 0.5, 1e-12);
}

// A round over the group that leaves the value as it was is not the last while a gravity waits: this is what all
// rounds give, worked out step by step.
TEST_F(EngineTest, EveryRoundOfAGroupIsWalked) {
    double value = 1.0;
    ASSERT_EQ(0, uoms_ConvertArray(&value, 1, "Leng", "ft", "m")); // nothing waits any more
    value = 10.0;
    ASSERT_EQ(0, uoms_ConvertArray(&value, 1, "(PetroMass (VaporDensity)3)4", "(API (API)3)4", "(spgr (API)3)4"));
    EXPECT_DOUBLE_EQ(1.0673817558164274, value);
}

TEST_F(EngineTest, NullValuesAndNullChains) {
    const Chain m("Leng / Time", {"m", "hr"}), cm("Leng / Time", {"cm", "sec"});
    uomRunFactor = 7, uomRunOffset = 8, uomRunLinear = 9;
    EXPECT_EQ(uom_ConvertFromTo(num_NullDouble(), m.head, cm.head), -1.5e35);
    EXPECT_EQ(uom_ConvertFromTo(-1.0000001e35, m.head, cm.head), -1.0000001e35);
    EXPECT_EQ(uom_ConvertFromTo(3, nullptr, cm.head), 3);
    EXPECT_EQ(uom_ConvertFromTo(3, m.head, nullptr), 3);
    // A value that is turned into a null one on the way is converted no further.
    EXPECT_NEAR(uom_ConvertFromTo(-9e34, m.head, cm.head), -9e36, 1e24);
    EXPECT_NEAR(uom_ConvertFromTo(9e34, m.head, cm.head), 2.5e33, 1e21);
}

TEST_F(EngineTest, OffsetsOnTheWayBack) {
    const Chain k("Temp", "K"), c("Temp", "C"), f("Temp", "F");
    EXPECT_EQ(uom_ConvertFromTo(273.15, k.head, c.head), 0.0);
    EXPECT_EQ(uom_ConvertFromTo(273.1501, k.head, c.head), 0.0); // equal within the tolerance of a millionth
    EXPECT_NEAR(uom_ConvertFromTo(273.16, k.head, c.head), 0.01, 1e-12);
    EXPECT_NEAR(uom_ConvertFromTo(451, f.head, c.head), 419 / 1.8, 1e-11);
    EXPECT_NEAR((451 + uomRunOffset) * uomRunFactor, 419 / 1.8, 1e-11);
    // A negated offset is added on the way to the base and not taken off on the way back, but for the pair.
    const Chain perK("1 / TempAbs", {"K"}), perC("1 / TempAbs", {"C"});
    EXPECT_NEAR(uom_ConvertFromTo(300, perC.head, perK.head), 26.85, 1e-11);
    EXPECT_NEAR(uom_ConvertFromTo(300, perK.head, perC.head), 300, 1e-11);
    EXPECT_NEAR(uomRunOffset, 273.15, 1e-11);
    // So it is with an offset below zero that a host sets.
    ASSERT_EQ(uom_SetConvConstants(uom_GetUnitType("C"), -10, 2), 0);
    EXPECT_NEAR(uom_ConvertFromTo(30, c.head, k.head), 40, 1e-12);
    EXPECT_NEAR(uom_ConvertFromTo(40, k.head, c.head), 20, 1e-12);
    EXPECT_NEAR((40 + uomRunOffset) * uomRunFactor, 30, 1e-12);
}

} // namespace
