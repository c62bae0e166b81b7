// The units of a chain as arrays: assigned, fixed for a root slate, resolved from a slate.
#include "slates/working_units.h"

#include <array>

#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

using Units = std::array<int32_t, 6>;

class WorkingUnitsTest : public ShippedTest {
protected:
    static std::string Texts(const Units &units) {
        std::string text;
        for (const int32_t unit : units)
            text += (unit == -1 ? "?" : UnitText(unit)) + "|";
        return text;
    }
    static std::string InUse(UomStruct chain) {
        Units units;
        units.fill(-1);
        uom_GetCurrentUnits(chain, 6, units.data());
        return Texts(units);
    }
    static std::string Defaults(UomStruct chain, const char *slate) {
        Units units;
        units.fill(-1);
        uom_GetDefaultUnits(chain, uom_GetSetType(slate), 6, units.data());
        return Texts(units);
    }
};

TEST_F(WorkingUnitsTest, DefaultsComeFromTheFirstSlateThatStatesThem) {
    NewSlate("Plant", "Metric");
    NewSlate("Unit", "plant");
    NewSlate("RingA", "RingB");
    NewSlate("RingB", "RingA");
    ASSERT_TRUE(State("Plant", "Mass", "k*g"));
    ASSERT_TRUE(State("Unit", "Time", "day"));
    ASSERT_TRUE(State("Unit", "Density", "lb/ft3"));
    ASSERT_TRUE(State("RingB", "Leng", "ft"));
    const struct {
        const char *slate, *classString, *units;
        int32_t multipliers[3];
    } cases[] = {{"Unit", "Time", "day||||||", {}},
                 {"Unit", "Mass / Time", "g|day|||||", {3}},
                 {"Plant", "Mass / Time", "g|hr|||||", {3}},
                 {"Unit", "Density", "lb|ft3|||||", {}},
                 {"Plant", "Density", "kg|m3|||||", {}},
                 {"RingA", "Leng Mass", "ft||||||", {}}, // nobody in the ring states a mass
                 {"Nosuch", "Leng", "||||||", {}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.slate << " " << c.classString);
        const Chain chain(c.classString);
        EXPECT_EQ(Defaults(chain.head, c.slate), c.units);
        int32_t multipliers[4] = {9, 9, 9, 9};
        uom_GetDefaultMults(chain.head, uom_GetSetType(c.slate), 3, multipliers);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(multipliers[i], c.multipliers[i]);
        EXPECT_EQ(multipliers[3], 9);
    }
    int32_t unit = 9, multiplier = 9;
    uom_GetBaseDefault(ClassOf("Mass"), uom_GetSetType("Unit"), &unit, &multiplier);
    EXPECT_EQ(UnitText(unit), "g");
    EXPECT_EQ(multiplier, 3); // of the slate that has the unit
    uom_GetBaseDefault(ClassOf("Mass"), uom_GetSetType("RingA"), &unit, &multiplier);
    EXPECT_EQ(unit, UOM_NULL);
    EXPECT_EQ(multiplier, 0);
    const int32_t density = ClassOf("Density"), here = uom_GetSetType("Unit");
    uom_GetCompositeDefault(density, ClassOf("StdLiqVol"), here, &unit, &multiplier);
    EXPECT_EQ(UnitText(unit), "ft3");
    uom_GetCompositeDefault(density, ClassOf("Mole"), here, &unit, &multiplier);
    EXPECT_EQ(unit, UOM_NULL); // matched by class, not by place
    uom_GetNodeDefault(density, ClassOf("Mole"), here, &unit, &multiplier);
    EXPECT_EQ(UnitText(unit), "kg-mol"); // falls through to the plain default
    EXPECT_EQ(UnitText(uom_GetSlateClassUnit(density, ClassOf("Mass"), here)), "lb");
    EXPECT_EQ(uom_GetSlateClassUnit(density, ClassOf("Mole"), here), UOM_NULL); // of this slate alone
    EXPECT_EQ(UnitText(uom_GetSlateClassUnit(ClassOf("Time"), 0, here)), "day");
    EXPECT_EQ(uom_GetSlateClassUnit(ClassOf("Time"), 0, 0), UOM_NULL);
}

TEST_F(WorkingUnitsTest, WholeQuotientsSkipTheNextNode) {
    NewSlate("Plant", "English");
    ASSERT_TRUE(State("Plant", "PetroDensity", "spgr"));
    ASSERT_TRUE(State("Plant", "Power", "BTU/hr"));
    const Chain chain("PetroDensity Leng", {"kg", "m3", "m"});
    EXPECT_EQ(Defaults(chain.head, "Plant"), "spgr||ft||||");
    EXPECT_EQ(Defaults(chain.head, "English"), "API||ft||||");
    uom_InitializeUnits(chain.head, uom_GetSetType("Plant"));
    EXPECT_EQ(InUse(chain.head), "spgr||ft||||");
    Units units = {uom_GetUnitType("lb"), uom_GetUnitType("gal"), 0, 0, 0, 0};
    EXPECT_EQ(uom_SetCurrentUnits(chain.head, 6, units.data()), 6);
    EXPECT_EQ(InUse(chain.head), "lb|gal|ft||||");
    units = {uom_GetUnitType("API"), uom_GetUnitType("gal"), uom_GetUnitType("in"), 0, 0, 0};
    EXPECT_EQ(uom_SetUnits(1, 0, chain.head, 2, units.data()), 2); // only as many as asked for
    EXPECT_EQ(InUse(chain.head), "API||ft||||");
    for (const char *unit : {"HP", "MW", "kW", "VA", "KVA", "VAR", "KVAR", "W"}) {
        const Chain power("Power", "BTU/hr"), million("E6Power", "x 10^6 BTU/hr");
        Units entry = {uom_GetUnitType(unit), uom_GetUnitType("day"), 0, 0, 0, 0};
        uom_SetCurrentUnits(power.head, 2, entry.data());
        EXPECT_EQ(InUse(power.head), std::string(unit) + "||||||");
        const std::string e6 = std::string("x 10^6") + (std::string(unit) == "KVAR" ? "" : " ") + unit;
        entry[0] = uom_GetUnitType(e6.c_str());
        ASSERT_NE(entry[0], UOM_NULL) << e6;
        uom_SetCurrentUnits(million.head, 2, entry.data());
        EXPECT_EQ(InUse(million.head), e6 + "||||||");
    }
    // The multipliers skip by the unit that the chain has, not by the one of the slate.
    ASSERT_TRUE(State("Plant", "PetroDensity", "k*kg/k*m3"));
    int32_t multipliers[3];
    const Chain api("PetroDensity", {"API"}), kg("PetroDensity", {"kg", "m3"});
    uom_GetDefaultMults(api.head, uom_GetSetType("Plant"), 3, multipliers);
    EXPECT_EQ(multipliers[0] * 10 + multipliers[1], 30);
    uom_GetDefaultMults(kg.head, uom_GetSetType("Plant"), 3, multipliers);
    EXPECT_EQ(multipliers[0] * 10 + multipliers[1], 33);
}

TEST_F(WorkingUnitsTest, BasisNodesKeepTheirBasis) {
    NewSlate("Plant", "English");
    ASSERT_TRUE(State("Plant", "Rate", "M lb/day"));
    const Chain open("Rate"), mole("Rate (Mole)");
    EXPECT_EQ(Defaults(open.head, "Plant"), "Mass|lb|day||||"); // slots by the class of the row
    EXPECT_EQ(Defaults(mole.head, "Plant").substr(0, 5), "Mole|");
    int32_t basisMultipliers[3];
    uom_GetDefaultMults(mole.head, uom_GetSetType("Plant"), 3, basisMultipliers);
    EXPECT_EQ(basisMultipliers[0], 0);
    // Changing the basis, entries are written with what was derived.
    const Chain mass("Rate", "lb/hr");
    Units units = {UOM_BASMOLE, UOM_NULL, UOM_NULL, 0, 0, 0};
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(InUse(mass.head), "Mole|lb-mol|hr||||");
    EXPECT_EQ(UnitText(units[1]), "lb-mol");
    EXPECT_EQ(mass.Node(1)->unitStyle, 1);
    units = {UOM_BASMASS, uom_GetUnitType("tonne"), UOM_NULL, 0, 0, 0}; // a given unit goes first
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(InUse(mass.head), "Mass|tonne|hr||||");
    EXPECT_EQ(mass.Node(1)->unitStyle, 0);
    units = {uom_GetUnitType("m"), 1 << 30, -7, 0, 0, 0}; // no basis: the class becomes 0, the unit a default
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(mass.Node(1)->baseClass, 0);
    EXPECT_EQ(UnitText(mass.Node(2)->unit), "hr"); // bad entries leave what stands
}

// From a petro mass to moles the unit's own number stands in the place of its class.
TEST_F(LibraryTest, PetroMassToMolesGoesByTheNumberOfTheUnit) {
    for (const int fillers : {10, 9}) {
        std::string text = "BEGINUOMLIST\nnone N N 0 0 1\nMole MOLE M 0 0 1\nMolar MR M 0 0 1\nMass WT M 0 0 1\n"
                           "StdLiqVol L L 0 0 1\nVol V V 0 0 1\nStdVapVol G G 0 0 1\nx-mol X X 0 0 1\n";
        for (int i = 0; i < fillers; ++i)
            text += "filler" + std::to_string(i) + " F F 0 0 1\n";
        // With ten fillers the next number is 18, which is that of the class Mass.
        text += "kg K K 0 0 1\nkg-mol KM KM 0 0 "
                "1\nENDUOMLIST\nBEGINSLATE\nEnglish\nENDSLATE\nBEGINSLATE\nMetric\n"
                "ENDSLATE\nBEGINSLATE\nSI\nENDSLATE\nBEGINLIST\nMole\nx-mol\nENDLIST\nBEGINSLATE\nCurrent\n"
                "Mole=x-mol\nENDSLATE\n";
        ASSERT_EQ(Start(WriteData(text)), 0);
        const int32_t classes[] = {CLASS_BASIS, CLASS_PETRO_MASS}, exponents[] = {1, 1};
        const Chain chain(uom_BuildStruct(2, classes, exponents, nullptr));
        chain.Node(0)->unit = UOM_BASMASS;
        chain.Node(1)->unit = uom_GetUnitType("kg");
        EXPECT_EQ(chain.Node(1)->unit == CLASS_MASS, fillers == 10);
        EXPECT_EQ(uom_SetBasis(chain.head, UOM_BASMOLE), 0);
        EXPECT_EQ(chain.Node(1)->baseClass, CLASS_MOLE);
        // Otherwise nothing is related; a plain node then asks for the default of its declared class.
        EXPECT_EQ(UnitText(chain.Node(1)->unit), fillers == 10 ? "kg-mol" : "kg");
        uom_Cleanup();
    }
}

TEST_F(WorkingUnitsTest, KindsOfUnits) {
    const Chain chain("Leng / Time", {"km", "sec"});
    const int32_t ft = uom_GetUnitType("ft"), day = uom_GetUnitType("day");
    int32_t fixed[] = {ft, day, 9};
    uom_SetUnits(2, UOM_SET_METRIC, chain.head, 2, fixed);
    EXPECT_EQ(InUse(chain.head), "km|sec|||||");
    const struct {
        int32_t kind, slate;
        const char *units;
    } cases[] = {{1, 0, "km|sec|||||"},
                 {1, -5, "km|sec|||||"},
                 {2, UOM_SET_METRIC, "ft|day|||||"},
                 {2, UOM_SET_ENGLISH, "||||||"},
                 {2, UOM_SET_INTERNAL, "||||||"},
                 {2, 0, "||||||"},
                 {3, UOM_SET_METRIC, "m|hr|||||"},
                 {3, UOM_SET_MAX, "||||||"},
                 {3, 0, "||||||"},
                 {4, UOM_SET_METRIC, "||||||"},
                 {0, UOM_SET_METRIC, "||||||"}};
    for (const auto &c : cases) {
        Units units;
        units.fill(-1);
        uom_GetUnits(c.kind, c.slate, chain.head, 6, units.data());
        EXPECT_EQ(Texts(units), c.units) << c.kind << " " << c.slate;
    }
    for (const int32_t kind : {0, 3, 4}) // read only, or nothing at all
        EXPECT_EQ(uom_SetUnits(kind, UOM_SET_METRIC, chain.head, 2, fixed), 2);
    EXPECT_EQ(InUse(chain.head), "km|sec|||||");
    EXPECT_EQ(uom_SetUnits(1, 0, nullptr, 7, fixed), 7);
}

TEST_F(WorkingUnitsTest, OverridesOfTheActiveRoot) {
    const Chain chain("Leng / Time", {"m", "sec"});
    const int32_t yd = uom_GetUnitType("yd"), km = uom_GetUnitType("km"), day = uom_GetUnitType("day");
    const int32_t english[] = {yd, 0}, metric[] = {km, day};
    uom_SetOverrideUnits(chain.head, UOM_SET_ENGLISH, 2, english);
    uom_SetOverrideUnits(chain.head, UOM_SET_METRIC, 2, metric);
    uom_SetOverrideUnits(chain.head, UOM_SET_CURRENT, 2, english); // not one of the three: nothing
    // Before Current is initialised the words of English count.
    EXPECT_EQ(uom_GetCurrentSet(), 0);
    uom_InitializeCurrentUnits(chain.head);
    EXPECT_EQ(InUse(chain.head), "yd|hr|||||");
    ASSERT_EQ(uom_InitializeCurrentSet(UOM_SET_METRIC), 0);
    Units units;
    units.fill(-1);
    uom_GetOverrideUnits(chain.head, UOM_SET_CURRENT, 6, units.data());
    EXPECT_EQ(Texts(units), "km|day|||||");
    uom_GetUnits(2, UOM_SET_CURRENT, chain.head, 6, units.data());
    EXPECT_EQ(Texts(units), "km|day|||||");
    uom_InitializeCurrentUnits(chain.head);
    EXPECT_EQ(InUse(chain.head), "km|day|||||");
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 0);
    ASSERT_EQ(uom_InitializeCurrentSet(UOM_SET_SI), 0);
    uom_InitializeCurrentUnits(chain.head);
    EXPECT_EQ(InUse(chain.head), "m|sec|||||");
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 1);
    for (const int32_t slate : {UOM_SET_INTERNAL, 0, -1, UOM_SET_MAX}) {
        units.fill(-1);
        uom_GetOverrideUnits(chain.head, slate, 6, units.data());
        EXPECT_EQ(Texts(units), "||||||");
    }
    chain.head->multiplier = 3;
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 0);
    EXPECT_EQ(uom_IsUnitDefault(nullptr), 1);
}

TEST_F(WorkingUnitsTest, GlobalUnitsAndChainsOfManyNodes) {
    const int32_t plant = NewSlate("Plant", "Metric");
    int32_t units[71], multipliers[71];
    ASSERT_TRUE(State("Plant", "Mass", "M*g"));
    EXPECT_EQ(uom_GetGlobalUnits(plant, units, multipliers), 0);
    EXPECT_EQ(UnitText(units[CLASS_MASS]), "g");
    EXPECT_EQ(multipliers[CLASS_MASS], 6);
    EXPECT_EQ(units[CLASS_LENG], UOM_NULL);
    units[CLASS_TEMP] = uom_GetUnitType("F");
    EXPECT_EQ(uom_SetGlobalUnits(plant, units, multipliers), 0);
    EXPECT_EQ(Stated("Plant", "Temp"), "F");
    EXPECT_EQ(Stated("Plant", "TempAbs"), ""); // no rule runs
    for (const int32_t bad : {0, -1, UOM_SET_MAX}) {
        EXPECT_EQ(uom_GetGlobalUnits(bad, units, multipliers), 1);
        EXPECT_EQ(uom_SetGlobalUnits(bad, units, multipliers), 1);
    }
    const std::vector<int32_t> classes(25, CLASS_LENG), exponents(25, 1);
    const Chain chain(uom_BuildStruct(25, classes.data(), exponents.data(), nullptr));
    uom_InitializeUnits(chain.head, plant);
    EXPECT_EQ(UnitText(chain.Node(19)->unit), "m");
    EXPECT_EQ(chain.Node(20)->unit, UOM_NULL); // left alone
    std::vector<int32_t> all(25);
    uom_GetDefaultUnits(chain.head, plant, 25, all.data());
    EXPECT_EQ(UnitText(all[24]), "m");
}

} // namespace
