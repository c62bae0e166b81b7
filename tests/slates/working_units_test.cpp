// What a slate gives to a class, and to a component within it.
#include "slates/working_units.h"

#include <array>

#include "tests/library_fixture.h"

namespace {

using Units = std::array<int32_t, 6>;

class WorkingUnitsTest : public ShippedTest {};

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
            way == 0   ? uom_GetBaseDefault(catalogue(), classId, plant, &unit, &multiplier)
            : way == 1 ? uom_GetCompositeDefault(catalogue(), classId, component, plant, &unit, &multiplier)
            : way == 2 ? uom_GetNodeDefault(catalogue(), classId, component, plant, &unit, &multiplier)
                       : void(unit = uom_GetSlateClassUnit(catalogue(), classId, component, plant));
            const std::string factor = multiplier > 0 ? std::to_string(multiplier) + "*" : "";
            all += factor + (unit > UOM_NULL ? unitText(unit) : "none") + " ";
        }
        return all;
    });
    EXPECT_EQ(joined(UOM_NULL, UOM_NULL), joined(uom_GetSlateClassUnit(catalogue(), classOf("Leng"), 0, -1),
                                                 uom_GetSlateClassUnit(catalogue(), classOf("Velocity"), 9999, plant)));
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
