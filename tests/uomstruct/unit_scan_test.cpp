// The pieces of a unit string: multipliers, units at the head of a text, exponents, groups, the normal form.
#include "uomstruct/unit_scan.h"

#include "tests/support_fixture.h"
#include "uomstruct/unit_string.h"

namespace {

TEST(UnitScan, Multipliers) {
    // format and text: result, multiplier, characters used
    const char cases[] = R"(
        2 | k*m3 | 1 3 2; 0 | M*m3 | 1 6 2; 2 | K*m3 | 2 0 0; 2 | m*m3 | 2 0 0; 2 | MM*m3 | 2 0 0; 2 | k* | 1 3 2
        2 | *m3 | 0 0 0; 2 | m3 | 0 0 0; 2 | | 0 0 0; 2 | a/b*c | 0 0 0; 2 | a-b*c | 0 0 0; 2 | (k*m | 0 0 0
        2 | k *m | 2 0 0; 2 | abcdefghijklmno*m | 2 0 0; 2 | abcdefghijklmnop*m | 0 0 0; 2 | M BBL | 0 0 0
        1 | M BBL | 1 3 2; 1 | MM BBL | 1 6 3; 1 | M   BBL | 1 3 4; 1 | MMlb | 1 6 2; 1 | Mlb | 1 3 1; 1 | m BBL | 0 0 0
        1 | BBL | 0 0 0; 1 | M MM x | 1 3 2; 1 | MMM | 1 6 2; 1 | | 0 0 0; 1 | k*m3 | 0 0 0; 1 | M*m3 | 1 3 1
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t multiplier = 77;
        const char *rest = nullptr, *const text = c[1].c_str();
        const int32_t result = uom_FindUOMMultiplierFromString(text, std::stoi(c[0]), &multiplier, &rest);
        return joined(result, multiplier, rest - text);
    });
    EXPECT_EQ(0, uom_FindUOMMultiplierFromString(nullptr, 1, nullptr, nullptr));
    ASSERT_TRUE(multiplier_Find(3) && multiplier_Find(6));
    EXPECT_EQ("k M thousand M MM million",
              joined(multiplier_Find(3)->siText, multiplier_Find(3)->apiText, multiplier_Find(3)->longName,
                     multiplier_Find(6)->siText, multiplier_Find(6)->apiText, multiplier_Find(6)->longName));
    EXPECT_FALSE(multiplier_Find(0) || multiplier_Find(-99));
}

class UnitScanOfAClass : public ShippedFixture {};

TEST_F(UnitScanOfAClass, FindsTheUnitAtTheHead) {
    // class, style, text: status, consumed, multiplier, unit; or status and message
    const char cases[] = R"(
        11 | 1 | ft2 | 0 2 0 ft; 11 | 1 | M m | 0 3 3 m; 11 | 1 | MM | 0 2 0 mm; 11 | 1 | Mm | 0 2 0 mm; 11 | 1 | MMm | 0 3 6 m
        11 | 1 | MMM | 0 3 6 m; 15 | 1 | k*m3/hr | 0 4 3 m3; 15 | 1 | MM BBL | 0 6 6 BBL; 15 | 1 | MMBBL | 0 5 6 BBL
        21 | 1 | MMBtu | 0 5 6 BTU; 11 | 1 | m/b*c | 0 1 0 m; 7 | 1 | in Hg/hr | 0 5 0 in Hg; 7 | 1 | INHG | 0 4 0 in Hg
        7 | 1 | kg/cm2g | 0 7 0 kg/cm2g; 22 | 2 | M MMBTU | 0 7 3 x 10^6 BTU
        11 | 1 | xyz | 2 UOM string "xyz": unidentified UOM for UOM class "Leng".
        11 | 1 | | 2 UOM string "": unidentified UOM for UOM class "Leng".
        11 | 1 | k*kg | 2 UOM string "k*kg": unidentified UOM for UOM class "Leng".
        11 | 1 | m*m | 5 UOM string "m*m": unrecognized UOM multiplier.
        -1 | 1 | m | 2 UOM string "m": unidentified UOM for UOM class "".
        1000 | 1 | m | 2 UOM string "m": unidentified UOM for UOM class "".
    )";
    expectAnswers(cases, [](const Cells &c) {
        error_Set("not cleared");
        int32_t consumed = 77, multiplier = 77, unit = 77;
        const int32_t status =
            uom_FindUnitFromString(std::stoi(c[0]), c[2].c_str(), std::stoi(c[1]), &consumed, &multiplier, &unit);
        char token[32] = "";
        uom_GetUnitText(unit, token, sizeof token, 1);
        EXPECT_EQ(status != 0, unit == UOM_NULL);
        EXPECT_EQ(status == 0, lastError().empty());
        return status == 0 ? joined(status, consumed, multiplier, token) : joined(status, lastError());
    });
    EXPECT_EQ(2, uom_FindUnitFromString(11, nullptr, 1, nullptr, nullptr, nullptr));
    // Whether hosts shall accept multipliers is a setting alone.
    EXPECT_EQ(0, uom_GetAllowUOMMultipliers());
    EXPECT_EQ(0, uoms_ValidateUOM("Leng", "M ft"));
    uom_SetAllowUOMMultipliers(-5);
    EXPECT_EQ(-5, uom_GetAllowUOMMultipliers());
}

TEST(UnitScan, SkipsToTheNextUnit) {
    // parentheses allowed and text: characters passed, opened, sign, depth
    const char cases[] = R"(
        99 | ft | 0 0 1 0; 99 | ~2.5/ft | 5 0 -1 0; 99 | //$ | 2 0 1 0; 99 | 123 | 3 0 1 0; 99 | /(ft | 2 1 1 1
        0 | /(ft | 1 0 -1 0; 1 | ((ft | 1 1 1 1; 2 | /((2/ft | 5 1 -1 2; 99 | /(2)ft | 4 1 -1 0; 99 | )/ft | 2 0 -1 0
        99 | | 0 0 1 0; 0 | ( | 0 0 1 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        SignStack signs;
        int32_t opened = 77;
        const char *const text = c[1].c_str();
        const auto passed = uom_SkipToUnit(signs, text, std::stoi(c[0]), &opened) - text;
        return joined(passed, opened, signs.sign, signs.depth);
    });
}

TEST(UnitScan, Exponents) {
    // result, value, length
    int32_t value, length;
    const char cases[] = R"(
        2 | 1 2 1; ~~-3x | 1 -3 4; 12ab | 1 12 2; 007 | 1 7 3; \t\n4 | 1 4 3; - 3 | 0 1 0; - | 0 1 0; | 0 1 0
        x2 | 0 1 0; +2 | 0 1 0; (2 | 0 1 0; ~ | 0 1 0
    )";
    expectAnswers(cases, [&](const Cells &c) {
        const int32_t result = uom_ReadExponent(c[0].c_str(), &value, &length);
        return joined(result, value, length);
    });
    EXPECT_EQ(1, uom_ReadExponent((std::string(10000, ' ') + std::string(40, '9')).c_str(), &value, &length));
    EXPECT_EQ(10040, length);
}

TEST(UnitScan, GroupsInParentheses) {
    // result, exponent, places of the parentheses
    const char cases[] = R"(
        (ft)2 | 2 2 0 3; (a) b | 1 1 0 2; 2/ (a(b)c) -3 | 2 -3 3 9; (a)- | 1 1 0 2; ft(a) | 0 0 -1 -1; $(a) | 0 0 -1 -1
        | 0 0 -1 -1; (a | 0 0 0 -1; ((a) | 0 0 0 -1; () | 1 1 0 1; 2 3 | 0 0 -1 -1
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t exponent = 77, open = 77, close = 77;
        const int32_t result = uom_FindParenGroup(c[0].c_str(), &exponent, &open, &close);
        return joined(result, exponent, open, close);
    });
}

TEST(UnitScan, NormalForm) {
    const char cases[] = R"(
        | []; ~\t\n~ | []; ~~lb / hr~~ | [lb/hr]; in    Hg | [in Hg]; ( ft ) 2 | [(ft)2]; lb - mol | [lb-mol]
        ( ( ft ) ) | [((ft))]; m\2/m\3 | [m2/m3]; m \2 | [m 2]; ft -2 | [ft-2]; a * b | [a * b]; a\tb | [a\tb]; ~(~ | [(]
    )";
    expectAnswers(cases, [](const Cells &c) {
        std::string out(c[0].size() + 1, '#'); // exactly full
        const int32_t result = uom_UOMStringToStd(out.data(), c[0].c_str());
        EXPECT_EQ(*out.c_str() != '\0', result == 1);
        return "[" + std::string(out.c_str()) + "]";
    });
    char out[4];
    EXPECT_EQ(0, uom_UOMStringToStd(out, nullptr));
    EXPECT_EQ(0, uom_UOMStringToStd(nullptr, "x"));
}

} // namespace
