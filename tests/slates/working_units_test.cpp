// The units of a chain as arrays: assigned, fixed for a root slate, resolved from a slate.
#include "slates/working_units.h"

#include <array>

#include "tests/library_fixture.h"

namespace {

using Units = std::array<int32_t, 6>;

class WorkingUnitsTest : public ShippedTest {
protected:
    static std::string Texts(const Units &units) {
        std::string text;
        for (const int32_t unit : units)
            text += (unit == -1 ? "?" : unitText(unit)) + "|";
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

TEST_F(WorkingUnitsTest, WholeQuotientsSkipTheNextNode) {
    newSlate("Plant", "English");
    ASSERT_TRUE(state("Plant", "PetroDensity", "spgr"));
    ASSERT_TRUE(state("Plant", "Power", "BTU/hr"));
    const Chain chain("PetroDensity Leng", {"kg", "m3", "m"});
    EXPECT_EQ(Defaults(chain.head, "Plant"), "spgr||ft||||");
    EXPECT_EQ(Defaults(chain.head, "English"), "API||ft||||");
    uom_InitializeUnits(chain.head, uom_GetSetType("Plant"));
    EXPECT_EQ(InUse(chain.head), "spgr||ft||||");
    Units units;
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
    ASSERT_TRUE(state("Plant", "PetroDensity", "k*kg/k*m3"));
    int32_t multipliers[3];
    const Chain api("PetroDensity", {"API"}), kg("PetroDensity", {"kg", "m3"});
    uom_GetDefaultMults(api.head, uom_GetSetType("Plant"), 3, multipliers);
    EXPECT_EQ(multipliers[0] * 10 + multipliers[1], 30);
    uom_GetDefaultMults(kg.head, uom_GetSetType("Plant"), 3, multipliers);
    EXPECT_EQ(multipliers[0] * 10 + multipliers[1], 33);
}

TEST_F(WorkingUnitsTest, BasisNodesKeepTheirBasis) {
    newSlate("Plant", "English");
    ASSERT_TRUE(state("Plant", "Rate", "M lb/day"));
    const Chain open("Rate"), mole("Rate (Mole)");
    EXPECT_EQ(Defaults(open.head, "Plant"), "Mass|lb|day||||"); // slots by the class of the row
    EXPECT_EQ(Defaults(mole.head, "Plant").substr(0, 5), "Mole|");
    // Changing the basis, entries are written with what was derived.
    const Chain mass("Rate", "lb/hr");
    Units units = {UOM_BASMOLE, UOM_NULL, UOM_NULL, 0, 0, 0};
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(InUse(mass.head), "Mole|lb-mol|hr||||");
    EXPECT_EQ(unitText(units[1]), "lb-mol");
    EXPECT_EQ(mass.node(1)->unitStyle, 1);
    units = {UOM_BASMASS, uom_GetUnitType("tonne"), UOM_NULL, 0, 0, 0}; // a given unit goes first
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(InUse(mass.head), "Mass|tonne|hr||||");
    EXPECT_EQ(mass.node(1)->unitStyle, 0);
    units = {uom_GetUnitType("m"), 1 << 30, -7, 0, 0, 0}; // no basis: the class becomes 0, the unit a default
    uom_SetUnits(1, 0, mass.head, 3, units.data());
    EXPECT_EQ(mass.node(1)->baseClass, 0);
    EXPECT_EQ(unitText(mass.node(2)->unit), "hr"); // bad entries leave what stands
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
    uom_InitializeCurrentUnits(chain.head);
    EXPECT_EQ(InUse(chain.head), "km|day|||||");
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 0);
    ASSERT_EQ(uom_InitializeCurrentSet(UOM_SET_SI), 0);
    uom_InitializeCurrentUnits(chain.head);
    EXPECT_EQ(InUse(chain.head), "m|sec|||||");
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 1);
    chain.head->multiplier = 3;
    EXPECT_EQ(uom_IsUnitDefault(chain.head), 0);
    EXPECT_EQ(uom_IsUnitDefault(nullptr), 1);
}

// class, component: the class's default, the component's within the class, what a node has, what the slate states
TEST_F(WorkingUnitsTest, OneDefault) {
    newSlate("Plant", "Metric");
    ASSERT_TRUE(state("Plant", "Leng", "k*ft") && state("Plant", "Velocity", "M*yd/day"));
    const char cases[] = R"(
        Leng | Leng | 3*ft none 3*ft ft; Velocity | Leng | none 6*yd 6*yd yd; Velocity | Time | none day day day
        Velocity | Mass | none none kg none; ActVol | Leng | ft3 none ft3 ft3; Time | Time | hr none hr none
        Nosuch | Leng | none none none none; Leng | Nosuch | 3*ft none 3*ft ft; Rate | Mass | none none kg none
    )";
    const int32_t plant = uom_GetSetType("Plant");
    expectAnswers(cases, [=](const Cells &c) {
        const int32_t classId = classOf(c[0].c_str()), component = classOf(c[1].c_str());
        std::string all;
        for (int32_t way = 0; way < 4; ++way) {
            int32_t unit = -5, multiplier = 0;
            way == 0   ? uom_GetBaseDefault(classId, plant, &unit, &multiplier)
            : way == 1 ? uom_GetCompositeDefault(classId, component, plant, &unit, &multiplier)
            : way == 2 ? uom_GetNodeDefault(classId, component, plant, &unit, &multiplier)
                       : void(unit = uom_GetSlateClassUnit(classId, component, plant));
            const std::string factor = multiplier > 0 ? std::to_string(multiplier) + "*" : "";
            all += factor + (unit > UOM_NULL ? unitText(unit) : "none") + " ";
        }
        return all;
    });
    EXPECT_EQ(joined(UOM_NULL, UOM_NULL), joined(uom_GetSlateClassUnit(classOf("Leng"), 0, -1),
                                                 uom_GetSlateClassUnit(classOf("Velocity"), 9999, plant)));
    const Chain chain("Leng");
    Units units = {7, 7, 7, 7, 7, 7};
    uom_GetDefaultMults(chain.head, plant, 2, units.data());
    EXPECT_EQ(joined(units[0], units[1], units[2]), "3 0 7");
    uom_GetDefaultMults(chain.head, plant, 2, nullptr);
    uom_GetUnits(0, plant, chain.head, 2, nullptr);
    uom_GetUnits(1, plant, nullptr, 3, units.data());
    EXPECT_EQ(joined(units[0], units[1], units[2], units[3]), "0 0 0 7");
    EXPECT_EQ(5, uom_SetUnits(1, plant, chain.head, 5, nullptr));
    uom_SetOverrideUnits(chain.head, UOM_SET_ENGLISH, 1, nullptr);
    EXPECT_EQ(0, chain.head->slateUnit[0]);
}

} // namespace
