// Class-and-unit entry by whole words, and units related by their names.
#include "tests/library_fixture.h"
#include "uomstruct/related_unit.h"

namespace {

class ClassAndUnit : public ShippedTest {};

TEST_F(ClassAndUnit, KeywordTexts) {
    const auto unitsOf = [](const Cells &c) {
        UomStruct chain = uom_ClassAndUnitToStruct(c[0].c_str(), 2);
        const std::string all = chain ? joined(chain->classId, describeUnits(chain)) : "none";
        uom_Free(&chain);
        return all;
    };
    const char cases[] = R"(
        TEMP F | 4 4:F; PRES KG/CM | 7 7:kg/cm2; pabs kg/cm | 8 8:kg/cm2; PDIF KG/CM2 | 9 9:kg/cm2; PRES INHG | 7 7:in Hg
        PRES in Hg | 7 7:-; PRES:KPA~~ | 7 7:kPa; TIME XYZ | 10 10:-; WT   LB | 18 18:lb; WT   LB-MOL | 19 19:lb-mol
        LDEN LB/FT3 | 52 18:lb 15:ft3; LDEN LB/XYZ | 52 18:lb 15:-; LDEN LB | 52 18:lb 15:-; FREQ SEC | 62 10:sec
        SPVO FT3/LB | 55 15:ft3 19:lb-mol; SPVO M3 | 55 15:- 19:-; SPVV SCF/KG | 56 16:SCF 19:kg-mol
        RATE LB/HR | 57 40:Mass 18:lb 10:hr; RATE LB-MOL/HR | 57 40:Mole 19:lb-mol 10:hr
        RATE FT3/HR | 57 40:Liq. Vol. 15:ft3 10:hr; RATE XYZ/HR | 57 40:- 19:- 10:-
        WTRA LB/HR | 57 40:Mass 18:lb 10:hr; LVRA M3/HR | 57 40:Liq. Vol. 15:m3 10:hr
        GVRA M3/HR | 57 40:Vap. Vol. 16:m3 10:hr; MRAT LB/HR | 57 40:Mole 19:lb-mol 10:hr
        mrat slug/hr | 57 40:Mole 19:- 10:hr; WORK KW | 50 47:kW 10:-; WORK KJ/SEC | 50 47:kJ 10:sec
        DUTY MMKVAR | 51 48:x 10^6KVAR 10:-; DUTY MMBTU/HR | 51 48:x 10^6 BTU 10:hr; FRAC PCT | 34 34:percent
        PPM  PPM | 34 34:ppm; ENTR BTU/F/LB | 61 21:BTU 6:F 18:lb; | none; PRES | none; PRES~ | none; TEMPF | none
        XYZQ KPA | none; ~~~~~KPA | none
    )";
    expectAnswers(cases, unitsOf);
    EXPECT_FALSE(uom_ClassAndUnitToStruct(nullptr, 2));
    for (const char *head : {"PRES ", "PRES KG/", "RATE ", "SPVO FT3/"})
        EXPECT_NE("none", unitsOf({head + std::string(10000, 'X')}));
    // a word of start-up
    const char moreCases[] = R"(
        LVRA M3/HR | kesta | 57 40:Vol 17:m3 10:hr; RATE M3/HR | vel2go | 57 40:Vol 17:m3 10:hr
        GVRA M3/HR | vel2go | 57 40:StdVapVol 16:m3 10:hr; WT   LB-MOL | molar | 20 20:lb-mol
        MRAT LB/HR | molar | 57 40:Molar 20:lb-mol 10:hr; RATE LB/HR | qx71 | 57 40:Mass 18:lb 10:hr
    )";
    expectAnswers(moreCases, [&](const Cells &c) {
        stop();
        EXPECT_EQ(0, startShipped({c[1].c_str()}));
        return unitsOf(c);
    });
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
