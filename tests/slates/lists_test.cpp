// The units that classes recognise, narrowed and restored, and lists for interfaces.
#include "slates/lists.h"

#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

using Texts = std::vector<std::string>;

class ListsTest : public ShippedTest {
protected:
    static Texts Units(const char *className) { return TakeLines(uom_GetUnitList(ClassOf(className))); }
    static int32_t Choose(const char *className, const Texts &tokens) {
        UomTable *table = TableOf(tokens);
        const int32_t status = uoms_SetUOMChoices(className, table);
        tbl_Free(table);
        return status;
    }
    static Texts Take(char **texts) {
        if (!texts)
            return {"null"};
        Texts result;
        for (char **text = texts; *text; ++text)
            result.emplace_back(*text);
        EXPECT_EQ(uoms_FreeArray(texts), 0);
        return result;
    }
    static Texts UomList(const char *text) {
        int32_t count = 77;
        char **texts = uoms_GetUOMList(text, &count);
        const Texts result = Take(texts);
        EXPECT_EQ(static_cast<size_t>(count), texts ? result.size() : 0u);
        return result;
    }
};

TEST_F(ListsTest, ChoicesNarrowAndRestore) {
    const Texts all = Units("Mass");
    EXPECT_GT(all.size(), 8u);
    EXPECT_EQ(Choose("mass", {"LB", "nosuch", "", "g", "ft"}), 0); // the class of a unit is not looked at
    EXPECT_EQ(Units("Mass"), (Texts{"lb", "g", "ft"}));
    char kg[] = "kg", lb[] = "lb";
    EXPECT_EQ(uom_GetUnitFromString(CLASS_MASS, kg, 1), UOM_NULL);
    EXPECT_NE(uom_GetUnitFromString(CLASS_MASS, lb, 1), UOM_NULL);
    EXPECT_EQ(uoms_ValidateUOM("MassRate", "kg/hr"), 2); // wherever the class stands
    EXPECT_EQ(uoms_ValidateUOM("MassRate", "lb/hr"), 0);
    EXPECT_EQ(Choose("Mass", {"oz"}), 0);
    EXPECT_EQ(Units("Mass"), (Texts{"oz"}));
    EXPECT_EQ(Choose("Mass", {"nosuch", "none at all"}), 0); // nothing known restores, too
    EXPECT_EQ(Units("Mass"), all);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Choose("Mass", {"g"}), 0);
        EXPECT_EQ(i == 0   ? uoms_SetUOMChoices("Mass", nullptr)
                  : i == 1 ? Choose("Mass", {})
                           : uoms_SetUOMChoiceArray("Mass", 0, nullptr),
                  0);
        EXPECT_EQ(Units("Mass"), all);
    }
    const char *tokens[] = {"lb", "?"};
    EXPECT_EQ(uoms_SetUOMChoiceArray("Mass", 2, tokens), 0);
    EXPECT_EQ(Units("Mass"), (Texts{"lb"}));
    EXPECT_EQ(uoms_SetUOMChoiceArray("Nosuch", 2, tokens), 0); // always
    EXPECT_EQ(uoms_SetUOMChoices("Nosuch", nullptr), 1);
    EXPECT_EQ(Choose("Nosuch", {"lb"}), 1);
    EXPECT_EQ(uoms_SetUOMChoices(nullptr, nullptr), 1);
    const int32_t units[] = {uom_GetUnitType("g"), uom_GetUnitType("oz"), 0}, none[] = {0};
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, units), 0);
    EXPECT_EQ(Units("Mass"), (Texts{"g", "oz"}));
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, none), 0);
    EXPECT_EQ(Units("Mass"), all);
    for (const int32_t bad : {0, -1, uom_GetUOMClassCount()})
        EXPECT_EQ(uom_SetUOMChoices(bad, units), 1);
    // The class's own list stands behind the choices.
    UomTable *own = TableOf({"slug", "kg"});
    EXPECT_EQ(uoms_SetClassList("Mass", own), 0);
    EXPECT_EQ(uoms_SetClassList("Nosuch", own), 1);
    tbl_Free(own);
    EXPECT_EQ(Units("Mass"), (Texts{"slug", "kg"}));
    EXPECT_EQ(uom_SetClassList(CLASS_MASS, units), 0);
    EXPECT_EQ(Units("Mass"), (Texts{"g", "oz"}));
    EXPECT_EQ(uom_SetClassList(CLASS_MASS, nullptr), 0);
    EXPECT_EQ(uom_GetUnitList(CLASS_MASS), nullptr);
    EXPECT_EQ(uom_SetClassList(-1, units), 1);
}

TEST_F(ListsTest, ApplicationLists) {
    const struct {
        const char *classString, *component;
        size_t narrowed;
        bool restored;
    } cases[] = {
        {"Rate", "Time", 5, true},
        {"Rate", "Mass", 5, true},
        {"Rate", "Mole", 4, true},
        {"Rate", "StdLiqVol", 7, true},
        {"Rate", "StdVapVol", 7, true},
        {"Cp", "Cp", 11, true},
        {"Density", "Mass", 3, true},
        {"Density", "StdLiqVol", 7, true},
        {"PetroDensity", "PetroMass", 5, true},
        {"VaporDensity", "StdVapVol", 7, true},
        {"SpVol", "Mole", 3, true},
        {"VapSpVol", "StdVapVol", 7, true},
        {"Velocity", "Leng", 7, true},
        {"Velocity", "Time", 5, true},
        {"SpEnthalpy", "Energy", 7, true},
        {"SpEnthalpy", "Mole", 3, true},
        {"cakeRes", "Mass", 3, false},
        {"cakeRes", "Leng", 5, false} // stays until others restore it
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.component);
        const Texts all = Units(c.component);
        EXPECT_EQ(uoms_LoadApplicationList(c.classString), UOM_NULL);
        EXPECT_EQ(Units(c.component).size(), c.narrowed);
        EXPECT_EQ(uoms_LoadNormalList(c.classString), 0);
        EXPECT_EQ(Units(c.component) == all, c.restored);
        EXPECT_EQ(uoms_LoadNormalList("Rate"), 0);
        EXPECT_EQ(uoms_LoadNormalList("Velocity"), 0);
        EXPECT_EQ(Units(c.component), all);
    }
    const Texts all = Units("Mass");
    const Chain rate("Rate Leng"), massRate("MassRate");
    EXPECT_EQ(uom_LoadApplicationList(massRate.head), UOM_NULL); // has no lists
    EXPECT_EQ(uom_LoadApplicationList(nullptr), UOM_NULL);
    EXPECT_EQ(uom_LoadNormalList(nullptr), 0);
    EXPECT_EQ(Units("Mass"), all);
    EXPECT_EQ(uom_LoadApplicationList(rate.head), UOM_NULL); // by the first node
    EXPECT_EQ(Units("Mass"), (Texts{"lb", "kg", "g", "tonne", "lton"}));
    EXPECT_EQ(uom_LoadNormalList(massRate.head), 0);
    EXPECT_EQ(Units("Mass").size(), 5u);
    EXPECT_EQ(uom_LoadNormalList(rate.head), 0);
    EXPECT_EQ(Units("Mass"), all);
    EXPECT_EQ(uoms_LoadApplicationList("Nosuch"), 1);
    EXPECT_EQ(uoms_LoadNormalList("Nosuch"), 1);
}

TEST_F(ListsTest, ForInterfaces) {
    int32_t count = 0;
    const Texts temps = {"C", "K", "F", "R"};
    EXPECT_EQ(Take(uoms_GetUnitNames("Temperature", &count)), temps);
    for (const char *none : {"", "Rate", "Nosuch"})
        EXPECT_EQ(uoms_GetUnitNames(none, &count), nullptr) << none;
    EXPECT_EQ(uoms_GetUnitNames(nullptr, &count), nullptr);
    EXPECT_EQ(UomList("temp"), temps);
    EXPECT_EQ(UomList("freq"), (Texts{"1/sec", "1/min", "1/hr", "1/day"})); // the list of its own name
    EXPECT_EQ(UomList("TEMPcommon"), (Texts{"F", "C", "K", "R"}));          // a list without a class
    EXPECT_EQ(uoms_PutClassListName("Temp", "TempCommon"), 0);
    EXPECT_EQ(UomList("Temp"), (Texts{"F", "C", "K", "R"}));
    EXPECT_EQ(uoms_PutClassListName("Temp", "Absent"), 0);
    error_Clear();
    EXPECT_EQ(UomList("temp"), (Texts{"null"}));
    EXPECT_EQ(Message(), "Unable to find UOM list \"temp\"."); // the text, not the name of the list
    EXPECT_EQ(uoms_PutClassListName("Temp", ""), 0);
    EXPECT_EQ(UomList(""), (Texts{"null"}));
    EXPECT_EQ(UomList(nullptr), (Texts{"null"}));
    EXPECT_EQ(uoms_GetUOMList("Temp", nullptr), nullptr);
    uomModeQx71 = 1; // rows are found whatever numbers hosts ask for
    EXPECT_EQ(UomList("Energy").front(), "kJ");
    EXPECT_EQ(Choose("Energy", {"BTU"}), 0);
    uomModeQx71 = 0;
    EXPECT_EQ(UomList("Energy"), (Texts{"BTU"}));

    const Texts lists = Take(uoms_GetCommonListNames(&count));
    EXPECT_EQ(lists.front(), "Quantity");
    EXPECT_EQ(uoms_GetCommonListNames(nullptr), nullptr);
    const Texts slates = Take(uoms_GetSetNames(&count));
    EXPECT_EQ(count, UOM_SET_MAX);
    EXPECT_EQ(slates[0] + slates[1], "English");
    EXPECT_EQ(uoms_FreeArray(nullptr), 0);
}

TEST_F(LibraryTest, CommonListsThatAreNotThere) {
    ASSERT_EQ(Start(WriteData("BEGINUOMLIST\nnone N N 0 0 1\nENDUOMLIST\nBEGINCOMMONLIST\nEmpty\nENDCOMMONLIST\n"
                              "BEGINCOMMONLIST\nempty\nx\nENDCOMMONLIST\n")),
              0);
    int32_t count = 5;
    char **texts = uoms_GetUOMList("EMPTY", &count); // the one with an item
    ASSERT_NE(texts, nullptr);
    EXPECT_EQ(count, 1);
    EXPECT_STREQ(texts[0], "x");
    uoms_FreeArray(texts);
    uom_Cleanup();
    ASSERT_EQ(Start(WriteData("BEGINUOMLIST\nnone N N 0 0 1\nENDUOMLIST\n")), 0);
    error_Set("old");
    EXPECT_EQ(uoms_GetUOMList("Rate", &count), nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(Message(), "old"); // no lists at all: no message
}

} // namespace
