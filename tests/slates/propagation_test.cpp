// The defaults that follow from a default, in ordinary slates and in the HX family.
#include "slates/propagation.h"

#include "slates/properties.h"
#include "tests/library_fixture.h"
#include "uomstruct/related_unit.h"

namespace {

class PropagationTest : public ShippedTest {};

// No write of a composite class sets off a rule, but a host may run those of Density.
TEST_F(PropagationTest, OnRequest) {
    const int32_t unit = unitOf("kg"), multiplier = 0, slate = newSlate("Exchanger", "HXSI");
    const int32_t density = classOf("Density");
    ASSERT_TRUE(state("Exchanger", "Density", "lb/ft3"));
    const auto after = [&](const char *petro) {
        EXPECT_TRUE(state("Exchanger", "PetroDensity", petro));
        EXPECT_EQ(uom_PropagateHXRules(catalogue(), running(), slate, density, &unit, &multiplier), 0);
        return resolved("Exchanger", "PetroDensity");
    };
    EXPECT_EQ(joined(after("API"), after("spgr"), after("kg/m3")), "API spgr lb/ft3");
    for (const auto &rules : {uom_PropagateHXRules, uom_PropagateCommonRules}) {
        EXPECT_EQ("1 1 1 1", joined(rules(catalogue(), running(), -1, density, &unit, &multiplier),
                                    rules(catalogue(), running(), UOM_SET_MAX, density, &unit, &multiplier),
                                    rules(catalogue(), running(), slate, density, nullptr, &multiplier),
                                    rules(catalogue(), running(), slate, density, &unit, nullptr)));
    }
    EXPECT_EQ("1 1", joined(uom_PropagateCommonRules(catalogue(), running(), slate, -1, &unit, &multiplier),
                            uom_PropagateCommonRules(catalogue(), running(), slate, catalogue().classes.count, &unit,
                                                     &multiplier)));
}

TEST_F(PropagationTest, WhatFollowsIsReadAsTokens) {
    uoms_PutServerProperty(catalogue(), "defaultScanClassStyle", "keyword");
    uoms_PutServerProperty(catalogue(), "defaultScanUOMStyle", "keyword");
    const int32_t unit = unitOf("Sm3 60F"), none = 0;
    EXPECT_EQ(uom_SetClassDefault(newSlate("Fresh", "HXREPORT"), CLASS_VAP_VOL, &unit, &none), 0);
    uoms_PutServerProperty(catalogue(), "defaultScanClassStyle", "token");
    EXPECT_EQ(stated("Fresh", "VapVolRate"), "Sm3 60F/min");
}

// class and unit, the other class: 0 and its unit, or 1
TEST_F(PropagationTest, UnitsRelatedByTheirNames) {
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
        const int32_t result =
            uom_FindRelatedUnit(catalogue(), std::stoi(c[0]), unitOf(c[1].c_str()), std::stoi(c[2]), &related);
        char token[32] = "";
        uom_GetUnitText(related, token, sizeof token, 1);
        EXPECT_EQ(result == 1, related == UOM_NULL);
        return joined(result, token);
    });
}

} // namespace
