// Class-and-unit entry by whole words, and units related by their names.
#include "tests/library_fixture.h"
#include "uomstruct/related_unit.h"

namespace {

class ClassAndUnit : public ShippedTest {};

TEST_F(ClassAndUnit, WordsOfAnyLength) {
    for (const char *head : {"PRES ", "PRES KG/", "RATE ", "SPVO FT3/"}) {
        UomStruct chain = uom_ClassAndUnitToStruct((head + std::string(10000, 'X')).c_str(), 2);
        EXPECT_NE(chain, nullptr) << head;
        uom_Free(&chain);
    }
}

TEST_F(ClassAndUnit, RelatedUnits) {
    const char cases[] = R"(
        11 | ft | 13 | 0 ft2; 11 | mile | 13 | 0 mile2; 11 | nmile | 13 | 1; 11 | ft | 15 | 0 ft3; 11 | ft | 16 | 0 ft3
        11 | m | 17 | 0 m3; 11 | ft | 18 | 1; 11 | ft | 11 | 1; 13 | ft2 | 11 | 0 ft; 13 | ang2 | 11 | 0 ang
        13 | ft2 | 15 | 1; 18 | lb | 19 | 0 lb-mol; 18 | kg | 20 | 0 kg-mol; 18 | slug | 19 | 1; 19 | lb-mol | 18 | 0 lb
        20 | tonne-mol | 18 | 0 tonne; 19 | lb-mol | 20 | 1; 21 | BTU | 22 | 0 x 10^6 BTU; 10 | hr | 11 | 1
        21 | ft-lb | 48 | 0 x 10^6 ftlb; 47 | kg-m | 22 | 0 x 10^6 kgm; 47 | kW | 48 | 0 x 10^6 kW
        47 | g-cm | 48 | 0 x 10^6 gcm; 47 | KVAR | 48 | 1; 21 | kW-hr | 22 | 0 x 10^6 kW-hr
        22 | x 10^6 BTU | 21 | 1; 48 | x 10^6 kW | 47 | 1; 11 | | 13 | 1
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t related = 77;
        const int32_t result = uom_FindRelatedUnit(std::stoi(c[0]), unitOf(c[1].c_str()), std::stoi(c[2]), &related);
        char token[32] = "";
        uom_GetUnitText(related, token, sizeof token, 1);
        EXPECT_EQ(result == 1, related == UOM_NULL);
        return joined(result, token);
    });
}

} // namespace
