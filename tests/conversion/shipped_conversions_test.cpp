// Conversions on the shipped data file, held against values that were worked out from public definitions: the
// inch of 25.4 mm, the pound of 0.45359237 kg, standard gravity, the gallon of 231 cubic inches, the
// International Table calorie, 760 torr to the atmosphere, 141.5 / (API + 131.5).
// What the engine makes of the numbers is the matter here; each of them by itself is that of
// catalogue/shipped_units_test.cpp.
#include <cmath>
#include <cstring>

#include "tests/library_fixture.h"

namespace {

class ShippedConversionTest : public ShippedTest {};

struct Case {
    const char *classString, *from, *to;
    double value, expected;
};

const Case cases[] = {
    // clang-format off
    {"Leng", "in", "cm", 1.0, 2.54}, {"FineArea", "darcy", "m2", 1.0, 9.8692326671601283000e-13},
    {"StdLiqVol", "BBL", "m3", 1.0, 0.158987294928}, {"StdVapVol", "SCF", "Nm3", 1.0, 0.026791125067617218620},
    {"Mass", "lb", "kg", 1.0, 0.45359237}, {"Mass", "tons", "lb", 1.0, 2000.0}, {"Temp", "C", "F", -40.0, -40.0},
    {"Temp", "F", "C", 98.6, 37.0}, {"TempAbs", "R", "K", 491.67, 273.15}, {"TempDiff", "C", "F", 1.0, 1.8},
    {"Pres", "atm", "psia", 1.0, 14.695948775513448726}, {"PresDiff", "ft H2O", "psi", 1.0, 0.43352750400100424970},
    {"Pres", "psig", "psia", 100.0, 114.69594877551344873},
    {"Pres", "psia", "psig", 114.695948775513451, 100.00000000000000227}, {"Pres", "barg", "bar", 10.0, 11.01325},
    {"Pres", "kPag", "kPa", -50.0, 51.325}, {"Pres", "ate", "ata", 2.0, 3.0332274527998857918},
    {"Pres", "kg/cm2g", "kPa", 1.0, 199.3915}, {"Pres", "mm Hgg", "Pa", 10.0, 102658.22387415},
    {"Energy", "BTU", "J", 1.0, 1055.05585262}, {"Power", "HP", "W", 1.0, 745.69987158227022},
    {"Power", "PS-hr/hr", "kW", 1.0, 0.73549875}, {"E6Power", "x 10^6 BTU/hr", "x 10^6 W", 1.0, 0.29307107017222222222},
    {"Visc", "lb/ft-hr", "cP", 1.0, 0.41337887321376494605},
    {"Htco", "BTU/hr-ft2-F", "W/m2-K", 1.0, 5.6782633411134877825},
    {"FlowConductance", "Kv", "Cv", 1.0, 1.1560992283536564595},
    {"Density", "lb/ft3", "kg/m3", 1.0, 16.018463373960139580}, {"PetroDensity", "API", "kg/m3", 10.0, 999.016},
    {"PetroDensity", "API", "lb/ft3", 35.0, 53.002187399433528652},
    {"PetroDensity", "spgr", "API", 0.85, 34.970588235294117647},
    {"PetroDensity", "kg/m3", "API", 850.0, 34.806781176470588235}, {"PetroDensity", "API", "API", 22.3, 22.3},
    {"VaporDensity", "spgr", "kg/m3", 1.0, 1.223}, {"Velocity", "mile/hr", "m/sec", 1.0, 0.44704},
    {"VolRate", "gal/min", "m3/hr", 1.0, 0.22712470704}, {"Rate", "M BBL/day", "m3/hr", 1.0, 6.624470622},
    {"Rate", "MM SCF/day", "k*Nm3/hr", 1.0, 1.1162968778173841091}, {"SpEnthalpy", "BTU/lb", "kJ/kg", 1.0, 2.326},
    {"HeatVal", "BTU/SCF", "kJ/m3", 1.0, 37.258945807831284662},
    {"Pres/VolRate 2", "psi/(gal/min)2", "kPa/(m3/hr)2", 1.0, 133.65654257999199038},
    {"(Mass Leng) 2 / Time", "(lb-ft)2/hr", "(kg-m)2/sec", 1.0, 0.0000053095645581971782082},
    {"Leng 3 / Time 2", "ft3/hr2", "m3/sec2", 1.0, 2.1849418666666666667e-9},
    {"1 / PresDiff", "1/psi", "1/kPa", 1.0, 0.14503773773020921515}, {"CostRate", "$/hr", "M $/year", 1.0, 8.76},
    {"Force", "lbf", "N", 1.0, 4.4482216152605}, {"Force Leng", "kN-m", "lbf-ft", 1.0, 737.56214927726536388},
    {"Force/Area", "kip/ft2", "kN/m2", 1.0, 47.880258980335842616},
    {"ElecConductivity", "mS/cm", "umho/cm", 1.0, 1000.0}, {"SolubilityParam", "sqrtMPa", "sqrtPa", 1.0, 1000.0},
    {"Permeability", "darcy", "nanodarcy", 1.0, 1e9}, {"MomentOfArea", "in4", "cm4", 1.0, 41.6231425600},
    {"HeatRate", "BTU/kW-hr", "kJ/kW-hr", 10000.0, 10550.5585262}, {"ThermalResist", "K/W", "F/kW", 1.0, 1800.0},
    {"LeakRate", "mbar-liter/sec", "Pa-m3/sec", 1.0, 0.1}, {"Power", "ton-hr/hr", "kW", 1.0, 3.5168528420666666667},
    {"Power", "Gcal/hr", "MW", 1.0, 1.163}, {"VapVolRate", "MM SCF 14.73/day", "SCF/day", 1.0, 1002317.0483924990130},
    {"Pres", "ft H2Og", "Pa", 1.0, 104314.06692}, {"MassFrac", "grain/lb", "ppm", 7.0, 1000.0}};
// clang-format on

void ExpectNear(double value, double expected) {
    EXPECT_LE(std::fabs(value - expected), 1e-12 * std::fabs(expected)) << value << " for " << expected;
}

// There and back is the same; the pair of the conversion, where there is one, says the same as the value.
TEST_F(ShippedConversionTest, ValuesOfPublicDefinitions) {
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.from << " to " << c.to);
        double value = c.value, factor = 0, offset = 0;
        EXPECT_EQ(uoms_ConvertArray(&value, 1, c.classString, c.from, c.to), 0) << lastError();
        ExpectNear(value, c.expected);
        EXPECT_EQ(uoms_ConvertArray(&value, 1, c.classString, c.to, c.from), 0) << lastError();
        EXPECT_NEAR(value, c.value, 1e-11 * (1 + std::fabs(c.value)));
        const int32_t status = uoms_CalculateConvConstants(c.classString, c.from, c.to, &factor, &offset);
        EXPECT_EQ(status, std::strcmp(c.from, "API") == 0 || std::strcmp(c.to, "API") == 0 ? 5 : 0);
        if (status == 0 && !std::strchr(c.classString, '(')) { // of a powered group the pair falls short
            EXPECT_NEAR((c.value + offset) * factor, c.expected, 2e-12 * std::fabs(c.expected));
        }
    }
}

// A site 1600 m high, at 82 kPa. The six units that follow the slate move, the others stay at sea level.
TEST_F(ShippedConversionTest, GaugePressuresFollowTheSite) {
    ASSERT_TRUE(state("Current", "GaugePresBasis", "82"));
    const Case gauge[] = {// clang-format off
        {"Pres", "psig", "psia", 0.0, 11.893094493877155643}, {"Pres", "psig", "bar", 50.0, 4.2673786465841806684},
        {"Pres", "barg", "bar", 10.0, 10.82}, {"Pres", "mbarg", "mbar", 5.0, 825.0},
        {"Pres", "kPag", "kPa", 100.0, 182.0}, {"Pres", "ate", "ata", 0.0, 0.83616729464190115891},
        {"Pres", "kg/cm2g", "kPa", 2.0, 278.133}, {"Pres", "kPa", "barg", 182.0, 1.0},
        {"Pres", "MPag", "MPa", 1.0, 1.101325}, {"Pres", "Pag", "Pa", 1.0, 101326.0},
        {"Pres", "mm Hgg", "kPa", 0.0, 101.325}, {"PresDiff", "kPag", "kPa", 7.0, 7.0}};
    // clang-format on
    for (const Case &c : gauge) {
        SCOPED_TRACE(testing::Message() << c.from << " to " << c.to);
        double value = c.value;
        EXPECT_EQ(uoms_ConvertArray(&value, 1, c.classString, c.from, c.to), 0) << lastError();
        ExpectNear(value, c.expected);
    }
}

} // namespace
