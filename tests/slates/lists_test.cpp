// The units that classes recognise, narrowed and restored, and lists for interfaces.
#include "slates/lists.h"

#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class ListsTest : public ShippedTest {
protected:
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
        char **texts = uoms_GetUOMList(catalogue(), text, &count);
        const Lines result = Take(texts);
        EXPECT_EQ(static_cast<size_t>(count), texts ? result.size() : 0u);
        return result;
    }
};

TEST_F(ListsTest, TheOwnListStandsBehindTheChoices) {
    const int32_t units[] = {uom_GetUnitType("g"), 0};
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, units), 0);
    UomTable *numbers = tbl_Create(2, TABLE_DOUBLE);
    EXPECT_EQ(uoms_SetUOMChoices("Mass", numbers), 1);
    tbl_Free(numbers);
    UomTable *own = tableOf({"slug", "kg"});
    EXPECT_EQ(uoms_SetClassList(catalogue(), "Mass", own), 0);
    EXPECT_EQ(uoms_SetClassList(catalogue(), "Nosuch", own), 1);
    tbl_Free(own);
    EXPECT_EQ(uom_SetUOMChoices(CLASS_MASS, nullptr), 0);
    EXPECT_EQ(takeLines(uom_GetUnitList(CLASS_MASS)), (Lines{"slug", "kg"}));
}

TEST_F(ListsTest, ForInterfaces) {
    int32_t count = 0;
    const Lines temps = {"C", "K", "F", "R"};
    EXPECT_EQ(Take(uoms_GetUnitNames(catalogue(), "Temperature", &count)), temps);
    EXPECT_EQ(UomList("temp"), temps);
    EXPECT_EQ(UomList("freq"), (Lines{"1/sec", "1/min", "1/hr", "1/day"})); // the list of its own name
    EXPECT_EQ(UomList("TEMPcommon"), (Lines{"F", "C", "K", "R"}));          // a list without a class
    EXPECT_EQ(uoms_PutClassListName(catalogue(), "Temp", "TempCommon"), 0);
    EXPECT_EQ(UomList("Temp"), (Lines{"F", "C", "K", "R"}));
    EXPECT_EQ(uoms_PutClassListName(catalogue(), "Temp", "Absent"), 0);
    error_Clear();
    EXPECT_EQ(UomList("temp"), (Lines{"null"}));
    EXPECT_EQ(lastError(), "Unable to find UOM list \"temp\"."); // the text, not the name of the list
    EXPECT_EQ(uoms_PutClassListName(catalogue(), "Temp", ""), 0);
    EXPECT_EQ(UomList(""), (Lines{"null"}));
    EXPECT_EQ(UomList(nullptr), (Lines{"null"}));
    EXPECT_EQ(uoms_GetUOMList(catalogue(), "Temp", nullptr), nullptr);

    EXPECT_EQ(Take(uoms_GetCommonListNames(catalogue(), &count)).front(), "Quantity");
    const Lines slates = Take(uoms_GetSetNames(catalogue(), &count));
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
        char **const names = uoms_GetUnitNames(catalogue(), "Time", &count);
        for (int32_t i = 0; names && i < count; ++i)
            all += std::string(names[i]) + " ";
        EXPECT_EQ(uoms_FreeArray(names), 0);
        return all;
    };
    const std::string shipped = listed(true);
    EXPECT_EQ(uoms_SetUOMChoiceArray(catalogue(), "Time", 3, tokens), 0);
    EXPECT_EQ(listed(true), "sec min ");
    EXPECT_EQ(uoms_SetUOMChoiceArray(catalogue(), "Time", 0, tokens), 0);
    EXPECT_EQ(listed(true), shipped);
    EXPECT_EQ(uoms_SetUOMChoiceArray(catalogue(), "Time", 3, nullptr), 0);
    EXPECT_EQ(listed(true), shipped);
    EXPECT_EQ(uom_SetClassList(catalogue(), time, units), 0);
    EXPECT_EQ(listed(false), "day hr ");
    EXPECT_EQ(listed(true), "day hr ") << "offered where there are no choices";
    EXPECT_EQ("1 1 0", joined(uom_SetClassList(catalogue(), -1, units),
                              uom_SetClassList(catalogue(), catalogue().classes.count, units),
                              uom_SetClassList(catalogue(), time, none)));
    EXPECT_EQ(listed(false), "");
    EXPECT_EQ(uom_SetClassList(catalogue(), time, nullptr), 0);
    EXPECT_FALSE(uoms_GetUnitNames(catalogue(), "Time", nullptr));
    int32_t count = 9;
    for (const char *text : {"Rate", "Nosuch", ""})
        EXPECT_FALSE(uoms_GetUnitNames(catalogue(), text, &count)) << text;
    EXPECT_FALSE(uoms_GetUOMList(catalogue(), "Time", nullptr) || uoms_GetCommonListNames(catalogue(), nullptr) ||
                 uoms_GetSetNames(catalogue(), nullptr));
    EXPECT_EQ("1 1 0", joined(uoms_LoadApplicationList(catalogue(), "No such"), uoms_LoadNormalList(catalogue(), "(("),
                              uoms_FreeArray(nullptr)));
}

} // namespace
