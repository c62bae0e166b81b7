// The pieces of a unit string: multipliers, units at the head of a text, exponents, groups, the normal form.
#include "uomstruct/unit_scan.h"

#include "tests/library_fixture.h"
#include "uomstruct/unit_string.h"

namespace {

class UnitScanOfAClass : public ShippedTest {};

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
}

} // namespace
