// The units that classes recognise, narrowed and restored, and lists for interfaces.
#include "slates/lists.h"

#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class ListsTest : public ShippedTest {
protected:
    static Lines Units(const char *className) { return takeLines(uom_GetUnitList(classOf(className))); }
    static int32_t Choose(const char *className, const Lines &tokens) {
        UomTable *table = tableOf(tokens);
        const int32_t status = uoms_SetUOMChoices(className, table);
        tbl_Free(table);
        return status;
    }
    static Lines Take(char **texts) {
        if (!texts)
            return {"null"};
        Lines result;
        for (char **text = texts; *text; ++text)
            result.emplace_back(*text);
        EXPECT_EQ(uoms_FreeArray(texts), 0);
        return result;
    }
    static Lines UomList(const char *text) {
        int32_t count = 77;
        char **texts = uoms_GetUOMList(text, &count);
        const Lines result = Take(texts);
        EXPECT_EQ(static_cast<size_t>(count), texts ? result.size() : 0u);
        return result;
    }
};

TEST_F(ListsTest, ChoicesNarrowAndRestore) {
    const Lines all = Units("Mass");
    EXPECT_GT(all.size(), 8u);
    EXPECT_EQ(Choose("mass", {"LB", "nosuch", "", "g", "ft"}), 0); // the class of a unit is not looked at
    EXPECT_EQ(Units("Mass"), (Lines{"lb", "g", "ft"}));
    char kg[] = "kg", lb[] = "lb";
    EXPECT_EQ(uom_GetUnitFromString(CLASS_MASS, kg, 1), UOM_NULL);
    EXPECT_NE(uom_GetUnitFromString(CLASS_MASS, lb, 1), UOM_NULL);
    EXPECT_EQ(uoms_ValidateUOM("MassRate", "kg/hr"), 2); // wherever the class stands
    EXPECT_EQ(uoms_ValidateUOM("MassRate", "lb/hr"), 0);
    EXPECT_EQ(Choose("Mass", {"nosuch", "none at all"}), 0); // nothing known restores
    EXPECT_EQ(Units("Mass"), all);
    EXPECT_EQ(Choose("Mass", {"g"}), 0);
    EXPECT_EQ(uoms_SetUOMChoices("Mass", nullptr), 0);
    EXPECT_EQ(Units("Mass"), all);
    EXPECT_EQ(uoms_SetUOMChoices("Nosuch", nullptr), 1);
    EXPECT_EQ(Choose("Nosuch", {"lb"}), 1);
    const int32_t units[] = {uom_GetUnitType("g"), uom_GetUnitType("oz"), 0};
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, units), 0);
    EXPECT_EQ(Units("Mass"), (Lines{"g", "oz"}));
    for (const int32_t bad : {0, -1, uom_GetUOMClassCount()})
        EXPECT_EQ(uom_SetUOMChoices(bad, units), 1);
    UomTable *numbers = tbl_Create(2, TABLE_DOUBLE);
    EXPECT_EQ(uoms_SetUOMChoices("Mass", numbers), 1);
    tbl_Free(numbers);
    EXPECT_EQ(Units("Mass"), (Lines{"g", "oz"}));
    // The class's own list stands behind the choices.
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, nullptr), 0);
    UomTable *own = tableOf({"slug", "kg"});
    EXPECT_EQ(uoms_SetClassList("Mass", own), 0);
    EXPECT_EQ(uoms_SetClassList("Nosuch", own), 1);
    tbl_Free(own);
    EXPECT_EQ(Units("Mass"), (Lines{"slug", "kg"}));
}

TEST_F(ListsTest, ApplicationLists) {
    // What an application recognises; the one for Cake Resistance stays until others restore it.
    const char cases[] = R"(
        Rate | Time | 5 1; Rate | Mass | 5 1; Rate | Mole | 4 1; Rate | StdLiqVol | 7 1; Rate | StdVapVol | 7 1
        Cp | Cp | 11 1; Density | Mass | 3 1; Density | StdLiqVol | 7 1; PetroDensity | PetroMass | 5 1
        VaporDensity | StdVapVol | 7 1; SpVol | Mole | 3 1; VapSpVol | StdVapVol | 7 1; Velocity | Leng | 7 1
        Velocity | Time | 5 1; SpEnthalpy | Energy | 7 1; SpEnthalpy | Mole | 3 1; cakeRes | Mass | 3 0
        cakeRes | Leng | 5 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        const Lines all = Units(c[1].c_str());
        EXPECT_EQ(uoms_LoadApplicationList(c[0].c_str()), UOM_NULL);
        const size_t narrowed = Units(c[1].c_str()).size();
        EXPECT_EQ(uoms_LoadNormalList(c[0].c_str()), 0);
        const bool restored = Units(c[1].c_str()) == all;
        EXPECT_EQ(uoms_LoadNormalList("Rate") + uoms_LoadNormalList("Velocity"), 0);
        EXPECT_EQ(Units(c[1].c_str()), all);
        return joined(narrowed, restored);
    });
    const Lines all = Units("Mass");
    const Chain rate("Rate Leng"), massRate("MassRate");
    EXPECT_EQ(uom_LoadApplicationList(massRate.head), UOM_NULL); // has no lists
    EXPECT_EQ(uom_LoadApplicationList(rate.head), UOM_NULL);     // by the first node
    EXPECT_EQ(Units("Mass"), (Lines{"lb", "kg", "g", "tonne", "lton"}));
    EXPECT_EQ(uom_LoadNormalList(massRate.head), 0);
    EXPECT_EQ(Units("Mass").size(), 5u);
    EXPECT_EQ(uom_LoadNormalList(rate.head), 0);
    EXPECT_EQ(Units("Mass"), all);
}

TEST_F(ListsTest, ForInterfaces) {
    int32_t count = 0;
    const Lines temps = {"C", "K", "F", "R"};
    EXPECT_EQ(Take(uoms_GetUnitNames("Temperature", &count)), temps);
    EXPECT_EQ(UomList("temp"), temps);
    EXPECT_EQ(UomList("freq"), (Lines{"1/sec", "1/min", "1/hr", "1/day"})); // the list of its own name
    EXPECT_EQ(UomList("TEMPcommon"), (Lines{"F", "C", "K", "R"}));          // a list without a class
    EXPECT_EQ(uoms_PutClassListName("Temp", "TempCommon"), 0);
    EXPECT_EQ(UomList("Temp"), (Lines{"F", "C", "K", "R"}));
    EXPECT_EQ(uoms_PutClassListName("Temp", "Absent"), 0);
    error_Clear();
    EXPECT_EQ(UomList("temp"), (Lines{"null"}));
    EXPECT_EQ(lastError(), "Unable to find UOM list \"temp\"."); // the text, not the name of the list
    EXPECT_EQ(uoms_PutClassListName("Temp", ""), 0);
    EXPECT_EQ(UomList(""), (Lines{"null"}));
    EXPECT_EQ(UomList(nullptr), (Lines{"null"}));
    EXPECT_EQ(uoms_GetUOMList("Temp", nullptr), nullptr);

    EXPECT_EQ(Take(uoms_GetCommonListNames(&count)).front(), "Quantity");
    const Lines slates = Take(uoms_GetSetNames(&count));
    EXPECT_EQ(count, UOM_SET_MAX);
    EXPECT_EQ(slates[0] + slates[1], "English");
}

TEST_F(ListsTest, FromArraysAndWithoutAny) {
    const int32_t time = classOf("Time"), units[] = {unitOf("day"), unitOf("hr"), 0}, none[] = {0};
    const char *const tokens[] = {"sec", "nosuch", "min"};
    const auto listed = [&](bool choices) {
        int32_t count = -1;
        std::string all;
        if (choices) {
            UomTable *const list = uom_GetUnitList(time);
            for (const std::string &line : takeLines(list))
                all += line + " ";
            return all;
        }
        char **const names = uoms_GetUnitNames("Time", &count);
        for (int32_t i = 0; names && i < count; ++i)
            all += std::string(names[i]) + " ";
        EXPECT_EQ(uoms_FreeArray(names), 0);
        return all;
    };
    const std::string shipped = listed(true);
    EXPECT_EQ(uoms_SetUOMChoiceArray("Time", 3, tokens), 0);
    EXPECT_EQ(listed(true), "sec min ");
    EXPECT_EQ(uoms_SetUOMChoiceArray("Time", 0, tokens), 0);
    EXPECT_EQ(listed(true), shipped);
    EXPECT_EQ(uoms_SetUOMChoiceArray("Time", 3, nullptr), 0);
    EXPECT_EQ(listed(true), shipped);
    EXPECT_EQ(uom_SetClassList(time, units), 0);
    EXPECT_EQ(listed(false), "day hr ");
    EXPECT_EQ(listed(true), "day hr ") << "offered where there are no choices";
    EXPECT_EQ("1 1 0", joined(uom_SetClassList(-1, units), uom_SetClassList(uomClassCount, units),
                              uom_SetClassList(time, none)));
    EXPECT_EQ(listed(false), "");
    EXPECT_EQ(uom_SetClassList(time, nullptr), 0);
    EXPECT_FALSE(uoms_GetUnitNames("Time", nullptr));
    int32_t count = 9;
    for (const char *text : {"Rate", "Nosuch", ""})
        EXPECT_FALSE(uoms_GetUnitNames(text, &count)) << text;
    EXPECT_FALSE(uoms_GetUOMList("Time", nullptr) || uoms_GetCommonListNames(nullptr) || uoms_GetSetNames(nullptr));
    EXPECT_EQ("1 1 0", joined(uoms_LoadApplicationList("No such"), uoms_LoadNormalList("(("), uoms_FreeArray(nullptr)));
}

} // namespace
