// The defaults that follow from a default, in ordinary slates and in the HX family.
#include "slates/propagation.h"

#include "slates/properties.h"
#include "tests/library_fixture.h"

namespace {

class PropagationTest : public ShippedTest {};

// No write of a composite class sets off a rule, but a host may run those of Density.
TEST_F(PropagationTest, OnRequest) {
    const int32_t unit = unitOf("kg"), multiplier = 0, slate = newSlate("Exchanger", "HXSI");
    const int32_t density = classOf("Density");
    ASSERT_TRUE(state("Exchanger", "Density", "lb/ft3"));
    const auto after = [&](const char *petro) {
        EXPECT_TRUE(state("Exchanger", "PetroDensity", petro));
        EXPECT_EQ(uom_PropagateHXRules(slate, density, &unit, &multiplier), 0);
        return resolved("Exchanger", "PetroDensity");
    };
    EXPECT_EQ(joined(after("API"), after("spgr"), after("kg/m3")), "API spgr lb/ft3");
    for (const auto &rules : {uom_PropagateHXRules, uom_PropagateCommonRules}) {
        EXPECT_EQ("1 1 1 1",
                  joined(rules(-1, density, &unit, &multiplier), rules(UOM_SET_MAX, density, &unit, &multiplier),
                         rules(slate, density, nullptr, &multiplier), rules(slate, density, &unit, nullptr)));
    }
    EXPECT_EQ("1 1", joined(uom_PropagateCommonRules(slate, -1, &unit, &multiplier),
                            uom_PropagateCommonRules(slate, uomClassCount, &unit, &multiplier)));
}

TEST_F(PropagationTest, WhatFollowsIsReadAsTokens) {
    uoms_PutServerProperty("defaultScanClassStyle", "keyword");
    uoms_PutServerProperty("defaultScanUOMStyle", "keyword");
    const int32_t unit = unitOf("Sm3 60F"), none = 0;
    EXPECT_EQ(uom_SetClassDefault(newSlate("Fresh", "HXREPORT"), CLASS_VAP_VOL, &unit, &none), 0);
    uoms_PutServerProperty("defaultScanClassStyle", "token");
    EXPECT_EQ(stated("Fresh", "VapVolRate"), "Sm3 60F/min");
}

} // namespace
