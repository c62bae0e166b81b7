// The defaults that follow from a default, in ordinary slates and in the HX family.
#include "slates/propagation.h"

#include "slates/properties.h"
#include "tests/library_fixture.h"

namespace {

class PropagationTest : public ShippedTest {
protected:
    // In a fresh slate under the parent: a default, and what the slate states after it for other classes.
    static void expectRules(const char *parent, const char *rules) {
        expectAnswers(rules, [=](const Cells &c) {
            newSlate("Fresh", parent);
            EXPECT_EQ(uoms_SetClassDefault("Fresh", c[0].c_str(), c[1].c_str()), 0) << lastError();
            std::string follow = ",", className;
            for (std::istringstream classes(c[2]); std::getline(classes, className, ',');)
                follow += ", " + stated("Fresh", className.c_str());
            uoms_DeleteSet("Fresh");
            return follow.substr(3);
        });
    }
};

TEST_F(PropagationTest, OrdinarySlates) {
    expectRules("Metric", R"(
        Temp | F | TempAbs,TempDiff | R, F; Temp | C | TempAbs,TempDiff | K, C; Temp | K | TempAbs,TempDiff | K, K
        Temp | R | TempAbs,TempDiff | R, R; Temp | k*F | TempAbs,TempDiff | k*R, k*F; TempAbs | R | Temp,TempDiff | ,
        Leng | k*ft | Area,StdLiqVol,StdVapVol,ActVol | ft2, ft3, ft3, ft3; Leng | nmile | Area,StdLiqVol,ActVol | , ,
        Energy | k*kJ | E6Energy | k*x 10^6 kJ; Energy | ft-lb | E6Energy,E6PowerTop | x 10^6 ftlb,
        Energy | kg-m | E6Energy | x 10^6 kgm; Energy | g-cm | E6Energy | x 10^6 gcm; Energy | toe | E6Energy |
        PowerTop | kW | E6PowerTop,E6Energy | x 10^6 kW,; PowerTop | M ft-lb | E6PowerTop | k*x 10^6 ftlb
        PowerTop | KVAR | E6PowerTop |; Area | ft2 | Leng,FineArea | ,; Time | hr | Velocity,VapVolRate | ,
        Mass | lb | RhoVV,Density | ,; StdLiqVol | gal | Density,ActVol | ,; Htco | W/m2-K | Foul |
        Density | lb/ft3 | PetroDensity |; Pres | Pa | PresAbs,PresDiff | Pa, Pa; Pres | Pag | PresAbs,PresDiff | Pa, Pa
        Pres | kPa | PresAbs,PresDiff | kPa, kPa; Pres | kPag | PresAbs,PresDiff | kPa, kPa
        Pres | MPa | PresAbs,PresDiff | MPa, MPa; Pres | MPag | PresAbs,PresDiff | MPa, MPa
        Pres | bar | PresAbs,PresDiff | bar, bar; Pres | barg | PresAbs,PresDiff | bar, bar
        Pres | mbar | PresAbs,PresDiff | mbar, mbar; Pres | mbarg | PresAbs,PresDiff | mbar, mbar
        Pres | in Hg | PresAbs,PresDiff | in Hg, in Hg; Pres | in Hgg | PresAbs,PresDiff | in Hg, in Hg
        Pres | mm Hg | PresAbs,PresDiff | mm Hg, mm Hg; Pres | mm Hgg | PresAbs,PresDiff | mm Hg, mm Hg
        Pres | psia | PresAbs,PresDiff | psia, psi; Pres | psig | PresAbs,PresDiff | psia, psi
        Pres | ata | PresAbs,PresDiff | ata, ata; Pres | ate | PresAbs,PresDiff | ata, ata
        Pres | kg/cm2 | PresAbs,PresDiff | kg/cm2, kg/cm2; Pres | kg/cm2g | PresAbs,PresDiff | kg/cm2, kg/cm2
        Pres | atm | PresAbs,PresDiff | atm, atm; Pres | in H2Og | PresAbs,PresDiff | in H2Og, in H2Og
        Pres | psi | PresAbs,PresDiff | psi, psi; Pres | M*kPag | PresAbs,PresDiff | M*kPa, M*kPa
    )");
}

TEST_F(PropagationTest, HxSlates) {
    expectRules("HXSI", R"(
        Temp | F | TempAbs,TempDiff | , F; Time | day | VapVolRate,Velocity | m3/min, m/sec
        StdVapVol | SCF | VapVolRate | SCF/min; Mass | lb | RhoVV,Density | lb/m-sec2, kg/m3
        StdLiqVol | gal | Density | kg/m3; Energy | BTU | E6Energy | x 10^6 BTU; PowerTop | HP | E6PowerTop | x 10^6 HP
        Htco | BTU/hr-ft2-F | Foul | hr-ft2-F/BTU; Htco | kJ/hr-m2-K | Foul | hr-m2-K/kJ; Htco | kW/m2-K | Foul | m2-K/kW
        Htco | kcal/hr-m2-K | Foul | hr-m2-C/kcal; Htco | W/m2-K | Foul | m2-K/W; Htco | W/m2-C | Foul |
        Area | ft2 | Leng,Velocity,RhoVV | , ,; Leng | ft | Area,StdLiqVol | ,; Pres | psia | PresAbs,PresDiff | psia, psi
        Pres | psig | PresAbs,PresDiff | psia, psi; Pres | bar | PresAbs,PresDiff | bar, bar
        Pres | barg | PresAbs,PresDiff | bar, bar; Pres | ata | PresAbs,PresDiff | ata, ata
        Pres | ate | PresAbs,PresDiff | ata, ata; Pres | kPag | PresAbs,PresDiff | kPag, kPag
        Pres | kPa | PresAbs,PresDiff | kPa, kPa; Pres | kg/cm2g | PresAbs,PresDiff | kg/cm2g, kg/cm2g
        Pres | Pag | PresAbs,PresDiff | Pag, Pag
    )");
    expectRules("HXENGLISH", "StdLiqVol | gal | Density | lb/ft3; Mass | kg | RhoVV,Density | kg/ft-sec2, lb/ft3\n");
    expectRules("HXREPORT", R"(
        Area | ft2 | Leng,FineLeng,FineArea,Velocity,RhoVV,StdLiqVol | ft, in, in2, ft/sec, kg/ft-sec2,
        Area | m2 | Leng,FineLeng,FineArea,Velocity | m, mm, mm2, m/sec; Area | hectare | FineLeng |
        Area | k*cm2 | Leng,FineLeng,FineArea,Velocity | cm, , , cm/sec
    )");
}

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
