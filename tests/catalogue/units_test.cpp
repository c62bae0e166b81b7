// Questions about units: by text, by class, by place.
#include "catalogue/units.h"

#include "catalogue/class_table.h"
#include "tests/support_fixture.h"

namespace {

// The eight units behind the placeholder have the numbers 1 to 8.
const char unitFile[] = R"file(BEGINUOMLIST
none NONE none 0 0 1
m METER "Meter, the unit" 1 2.5 1
ft FOOT Foot 0 0 0.3048
"a b" AB1 first 0 0 1
ab AB2 second 0 0 1
abc ABC third 0 0 1
loose LOOSE unlisted 0 0 1
M MEGA again 0 0 1
"(x)" PX odd 0 0 1
ENDUOMLIST
BEGINLIST
Leng
ft
m
"a b"
ab
abc
"(x)"
ENDLIST
BEGINLIST
Time
ENDLIST
)file";

class CatalogueUnits : public UomFixture {
protected:
    void SetUp() override { ASSERT_EQ(0, startWith(unitFile)); }
};

TEST_F(CatalogueUnits, AreFoundInTheWholeTable) {
    for (const bool indexed : {true, false}) {
        expectAnswers("m | 1; M | 1; FT | 2; a b | 3; ab | 4; loose | 6; none | 0; m~ | 0; METER | 0; | 0\n",
                      [](const Cells &c) { return joined(uom_GetUnitType(c[0].c_str())); });
        EXPECT_EQ(0, uom_GetUnitType(nullptr));
        EXPECT_EQ(0, uom_GetUnitType(std::string(10000, 'm').c_str()));
        if (indexed)
            unit_DropIndex(); // the slow way answers the same
    }
}

TEST_F(CatalogueUnits, AreFoundInTheListOfAClass) {
    // class, mode, text: the unit, and what is left of the text
    const char cases[] = R"(
        11 | 1 | m | 1[m]; 11 | 1 | M~\t\n | 1[M]; 11 | 1 | ab | 3[ab]; 11 | 0 | A B | 3[A B]; 11 | 1 | ~m | 0[~m]
        11 | 1 | loose | 0[loose]; 11 | 1 | FOOT | 0[FOOT]; 11 | 2 | foot~ | 2[foot]; 11 | 2 | m | 0[m]
        11 | 1 | a~~b | 0[a~~b]; 10 | 1 | m | 0[m]; 0 | 1 | m | 0[m]; -1 | 1 | m | 0[m]; 71 | 1 | m | 0[m]
        1000 | 1 | m | 0[m]; 11 | 1 | | 0[]
    )";
    expectAnswers(cases, [](const Cells &c) {
        std::string text = c[2];
        const int32_t unit = uom_GetUnitFromString(std::stoi(c[0]), text.data(), std::stoi(c[1]));
        return std::to_string(unit) + "[" + text.c_str() + "]";
    });
    EXPECT_EQ(0, uom_GetUnitFromString(11, nullptr, 1));
    const int32_t choices[] = {2, 0};
    EXPECT_EQ(0, uom_SetUOMChoices(11, choices)); // stand for the list
    char text[] = "m";
    EXPECT_EQ(0, uom_GetUnitFromString(11, text, 1));
    EXPECT_EQ(-1, uom_GetUnitListIndex(11, 1));
    EXPECT_EQ(0, uom_SetUOMChoices(11, nullptr));
    EXPECT_EQ(1, uom_GetUnitFromString(11, text, 1));
}

TEST_F(CatalogueUnits, AreListedInOrder) {
    UomTable *list = uom_GetUnitList(11);
    ASSERT_TRUE(list && list->count == 6);
    EXPECT_STREQ("ft", tbl_GetText(list, 0));
    EXPECT_STREQ("a b", tbl_GetText(list, 2));
    tbl_Free(list);
    for (const int32_t classId : {10, 13, 52, 0, -1, 71})
        EXPECT_FALSE(uom_GetUnitList(classId)) << classId;
    expectAnswers("11 | 2 | 0; 11 | 5 | 4; 11 | 0 | -1; 11 | -1 | -1; 11 | 6 | -1; 11 | 9 | -1; 10 | 1 | -1\n",
                  [](const Cells &c) { return joined(uom_GetUnitListIndex(std::stoi(c[0]), std::stoi(c[1]))); });
    // class, count: the result and the array, which held nines
    const char cases[] = R"(
        11 | 2 | 0: 2 1 9 9 9 9 9 9; 11 | 8 | 0: 2 1 3 4 5 8 0 0; 10 | 3 | 0: 0 0 0 9 9 9 9 9
        0 | 1 | 1: 0 9 9 9 9 9 9 9; 11 | 0 | 1: 9 9 9 9 9 9 9 9
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t units[8] = {9, 9, 9, 9, 9, 9, 9, 9};
        std::string all = std::to_string(uom_GetUnitIndices(std::stoi(c[0]), units, std::stoi(c[1]))) + ":";
        for (const int32_t unit : units)
            all += " " + std::to_string(unit);
        return all;
    });
    EXPECT_EQ(1, uom_GetUnitIndices(11, nullptr, 1));
}

TEST_F(CatalogueUnits, TellAboutThemselves) {
    expectAnswers("1 | []; 2 | [M]; 15 | [Meter, the uni]; 16 | [Meter, the unit]; 20 | [Meter, the unit]; 0 | [#]\n",
                  [](const Cells &c) {
                      char out[24] = "#";
                      uom_GetUnitDescription(1, out, std::stoi(c[0]));
                      return "[" + std::string(out) + "]";
                  });
    uom_GetUnitDescription(1, nullptr, 8);
    EXPECT_EQ(0, uom_SetConvConstants(2, 1.5, 3.0));
    // unit: length of the token, result, offset, factor
    expectAnswers("1 | 1 0 2.5 1; 2 | 2 0 1.5 3; 3 | 3 0 0 1; 0 | 0 1 0 1; -1 | 0 1 0 1; 9 | 0 1 0 1\n",
                  [](const Cells &c) {
                      const int32_t unit = std::stoi(c[0]);
                      double offset = 9, factor = 9;
                      const int32_t result = uom_GetConvConstants(unit, &offset, &factor);
                      EXPECT_TRUE(result == 0 || uom_SetConvConstants(unit, 7, 7) == 1);
                      return joined(uom_GetUnitTextLen(unit), result, offset, factor);
                  });
}

TEST_F(CatalogueUnits, TheLongestNameAtTheHeadWins) {
    // class, style, text: unit and length; the first in the list among equals
    const char cases[] = R"(
        11 | 1 | abcd | 5 3; 11 | 1 | ab | 3 2; 11 | 1 | a bc | 3 3; 11 | 1 | m | 1 1; 11 | 1 | ft/m | 2 2
        11 | 1 | FTx | 2 2; 11 | 2 | footx | 2 4; 11 | 2 | ft | 0 0; 11 | 1 | (X)y | 8 3; 11 | 1 | f | 0 0
        11 | 1 | | 0 0; 11 | 1 | ~m | 0 0; 10 | 1 | m | 0 0; -1 | 1 | m | 0 0; 72 | 1 | m | 0 0; 11 | 1 | loose | 0 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t length = 77;
        const int32_t unit = uom_ScanUnitToken(std::stoi(c[0]), c[2].c_str(), std::stoi(c[1]), &length);
        return joined(unit, length);
    });
}

} // namespace
