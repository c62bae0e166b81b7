// The defaults that follow from a default, in ordinary slates and in the HX family.
#include "slates/propagation.h"

#include <utility>

#include "tests/library_fixture.h"

namespace {

struct Rule {
    const char *className, *value;
    std::vector<std::pair<const char *, const char *>> follow; // class and what the slate states for it after
};

class PropagationTest : public ShippedTest {
protected:
    // Each rule in a fresh slate under the parent.
    static void Expect(const char *parent, const std::vector<Rule> &rules) {
        for (const Rule &rule : rules) {
            SCOPED_TRACE(testing::Message() << parent << " " << rule.className << " " << rule.value);
            NewSlate("Fresh", parent);
            EXPECT_EQ(uoms_SetClassDefault("Fresh", rule.className, rule.value), 0) << Message();
            for (const auto &pair : rule.follow)
                EXPECT_EQ(Stated("Fresh", pair.first), pair.second) << pair.first;
            EXPECT_EQ(uomDefaultsInProgress, 0);
            uoms_DeleteSet("Fresh");
        }
    }
    static std::vector<Rule>
    Pressures(std::vector<std::pair<const char *, std::pair<const char *, const char *>>> rows) {
        std::vector<Rule> rules;
        for (const auto &row : rows)
            rules.push_back({"Pres", row.first, {{"PresAbs", row.second.first}, {"PresDiff", row.second.second}}});
        return rules;
    }
};

TEST_F(PropagationTest, OrdinarySlates) {
    Expect("Metric",
           {{"Temp", "F", {{"TempAbs", "R"}, {"TempDiff", "F"}}},
            {"Temp", "C", {{"TempAbs", "K"}, {"TempDiff", "C"}}},
            {"Temp", "K", {{"TempAbs", "K"}, {"TempDiff", "K"}}},
            {"Temp", "R", {{"TempAbs", "R"}, {"TempDiff", "R"}}},
            {"Temp", "k*F", {{"TempAbs", "k*R"}, {"TempDiff", "k*F"}}},
            {"Leng", "k*ft", {{"Area", "ft2"}, {"StdLiqVol", "ft3"}, {"StdVapVol", "ft3"}, {"ActVol", "ft3"}}},
            {"Leng", "nmile", {{"Area", ""}, {"StdLiqVol", ""}, {"StdVapVol", ""}, {"ActVol", ""}}},
            {"Energy", "k*kJ", {{"E6Energy", "k*x 10^6 kJ"}}},
            {"Energy", "ft-lb", {{"E6Energy", "x 10^6 ftlb"}, {"E6PowerTop", ""}}},
            {"Energy", "kg-m", {{"E6Energy", "x 10^6 kgm"}}},
            {"Energy", "g-cm", {{"E6Energy", "x 10^6 gcm"}}},
            {"Energy", "toe", {{"E6Energy", ""}}},
            {"PowerTop", "kW", {{"E6PowerTop", "x 10^6 kW"}, {"E6Energy", ""}}},
            {"PowerTop", "M ft-lb", {{"E6PowerTop", "k*x 10^6 ftlb"}}},
            {"PowerTop", "KVAR", {{"E6PowerTop", ""}}}, // that one is written without the blank
            {"Area", "ft2", {{"Leng", ""}, {"FineArea", ""}}},
            {"Time", "hr", {{"Velocity", ""}, {"VapVolRate", ""}}},
            {"Mass", "lb", {{"RhoVV", ""}, {"Density", ""}}},
            {"StdLiqVol", "gal", {{"Density", ""}, {"ActVol", ""}}},
            {"Htco", "W/m2-K", {{"Foul", ""}}},
            {"Density", "lb/ft3", {{"PetroDensity", ""}}}, // a composite class runs no rule
            {"TempAbs", "R", {{"Temp", ""}, {"TempDiff", ""}}}});
    Expect("Metric", Pressures({{"Pa", {"Pa", "Pa"}},
                                {"Pag", {"Pa", "Pa"}},
                                {"kPa", {"kPa", "kPa"}},
                                {"kPag", {"kPa", "kPa"}},
                                {"MPa", {"MPa", "MPa"}},
                                {"MPag", {"MPa", "MPa"}},
                                {"bar", {"bar", "bar"}},
                                {"barg", {"bar", "bar"}},
                                {"mbar", {"mbar", "mbar"}},
                                {"mbarg", {"mbar", "mbar"}},
                                {"in Hg", {"in Hg", "in Hg"}},
                                {"in Hgg", {"in Hg", "in Hg"}},
                                {"mm Hg", {"mm Hg", "mm Hg"}},
                                {"mm Hgg", {"mm Hg", "mm Hg"}},
                                {"psia", {"psia", "psi"}},
                                {"psig", {"psia", "psi"}},
                                {"ata", {"ata", "ata"}},
                                {"ate", {"ata", "ata"}},
                                {"kg/cm2", {"kg/cm2", "kg/cm2"}},
                                {"kg/cm2g", {"kg/cm2", "kg/cm2"}},
                                {"atm", {"atm", "atm"}},
                                {"in H2Og", {"in H2Og", "in H2Og"}},
                                {"psi", {"psi", "psi"}},
                                {"M*kPag", {"M*kPa", "M*kPa"}}}));
}

TEST_F(PropagationTest, HxSlates) {
    Expect("HXSI", {{"Temp", "F", {{"TempAbs", ""}, {"TempDiff", "F"}}},
                    {"Time", "day", {{"VapVolRate", "m3/min"}, {"Velocity", "m/sec"}}},
                    {"StdVapVol", "SCF", {{"VapVolRate", "SCF/min"}}},
                    {"Mass", "lb", {{"RhoVV", "lb/m-sec2"}, {"Density", "kg/m3"}}},
                    {"StdLiqVol", "gal", {{"Density", "kg/m3"}}},
                    {"Energy", "BTU", {{"E6Energy", "x 10^6 BTU"}}},
                    {"PowerTop", "HP", {{"E6PowerTop", "x 10^6 HP"}}},
                    {"Htco", "BTU/hr-ft2-F", {{"Foul", "hr-ft2-F/BTU"}}},
                    {"Htco", "kJ/hr-m2-K", {{"Foul", "hr-m2-K/kJ"}}},
                    {"Htco", "kW/m2-K", {{"Foul", "m2-K/kW"}}},
                    {"Htco", "kcal/hr-m2-K", {{"Foul", "hr-m2-C/kcal"}}},
                    {"Htco", "W/m2-K", {{"Foul", "m2-K/W"}}},
                    {"Htco", "W/m2-C", {{"Foul", ""}}},
                    {"Area", "ft2", {{"Leng", ""}, {"Velocity", ""}, {"RhoVV", ""}}}, // reports alone
                    {"Leng", "ft", {{"Area", ""}, {"StdLiqVol", ""}}}});
    Expect("HXSI", Pressures({{"psia", {"psia", "psi"}},
                              {"psig", {"psia", "psi"}},
                              {"bar", {"bar", "bar"}},
                              {"barg", {"bar", "bar"}},
                              {"ata", {"ata", "ata"}},
                              {"ate", {"ata", "ata"}},
                              {"kPag", {"kPag", "kPag"}},
                              {"kPa", {"kPa", "kPa"}},
                              {"kg/cm2g", {"kg/cm2g", "kg/cm2g"}},
                              {"Pag", {"Pag", "Pag"}}}));
    Expect("HXENGLISH", {{"StdLiqVol", "gal", {{"Density", "lb/ft3"}}},
                         {"Mass", "kg", {{"RhoVV", "kg/ft-sec2"}, {"Density", "lb/ft3"}}}});
    Expect("HXREPORT", {{"Area",
                         "ft2",
                         {{"Leng", "ft"},
                          {"FineLeng", "in"},
                          {"FineArea", "in2"},
                          {"Velocity", "ft/sec"},
                          {"RhoVV", "kg/ft-sec2"},
                          {"StdLiqVol", ""}}}, // what a rule sets sets off nothing
                        {"Area", "m2", {{"Leng", "m"}, {"FineLeng", "mm"}, {"FineArea", "mm2"}, {"Velocity", "m/sec"}}},
                        {"Area", "k*cm2", {{"Leng", "cm"}, {"FineLeng", ""}, {"FineArea", ""}, {"Velocity", "cm/sec"}}},
                        {"Area", "hectare", {{"FineLeng", ""}}}});
}

TEST_F(PropagationTest, WhatStandsAlready) {
    NewSlate("Hx", "HXMETRIC");
    ASSERT_TRUE(State("Hx", "Density", "g/cm3"));
    ASSERT_TRUE(State("Hx", "StdLiqVol", "liter"));
    EXPECT_EQ(Stated("Hx", "Density"), "g/cm3");
    // Withdrawing runs the rules, too, as far as they need no text.
    NewSlate("Plant", "Metric");
    ASSERT_TRUE(State("Plant", "Temp", "F"));
    ASSERT_TRUE(State("Plant", "Pres", "psig"));
    ASSERT_TRUE(State("Plant", "Leng", "ft"));
    for (const char *className : {"Temp", "Pres", "Leng"})
        ASSERT_TRUE(State("Plant", className, ""));
    for (const char *className : {"TempAbs", "TempDiff", "PresAbs", "PresDiff"})
        EXPECT_EQ(Stated("Plant", className), "") << className;
    EXPECT_EQ(Stated("Plant", "Area"), "ft2");
    EXPECT_EQ(Stated("Plant", "ActVol"), "ft3");
    // The three roots of the family, based on themselves, belong to it; a child of a child does.
    ASSERT_TRUE(State("HXENGLISH", "Leng", "yd"));
    EXPECT_EQ(Stated("HXENGLISH", "Area"), "ft2");
    NewSlate("Grandchild", "Hx");
    ASSERT_TRUE(State("Grandchild", "Temp", "F"));
    EXPECT_EQ(Stated("Grandchild", "TempAbs"), "");
    // The parent's parent is not touched, nor a child.
    EXPECT_EQ(Stated("Hx", "TempDiff"), "");
}

TEST_F(PropagationTest, RunApartFromAWrite) {
    const int32_t hx = NewSlate("Hx", "HXSI"), plant = NewSlate("Plant", "SI");
    const int32_t density = ClassOf("Density"), none[] = {0, 0, 0};
    const int32_t f[] = {uom_GetUnitType("F")};
    ASSERT_TRUE(State("Hx", "Density", "lb/gal"));
    for (const auto &c : {std::pair("API", "API"), std::pair("spgr", "spgr"), std::pair("kg/m3", "lb/gal")}) {
        ASSERT_TRUE(State("Hx", "PetroDensity", c.first));
        EXPECT_EQ(uom_PropagateClassDefault(hx, density, none, none), 0);
        EXPECT_EQ(Stated("Hx", "PetroDensity"), c.second);
    }
    defaultScanClassStyle = defaultScanUOMStyle = 2;
    EXPECT_EQ(uom_PropagateClassDefault(plant, CLASS_TEMP, f, none), 0);
    EXPECT_EQ(uom_PropagateClassDefault(hx, CLASS_TIME, f, none), 0);
    EXPECT_EQ(defaultScanClassStyle * 10 + defaultScanUOMStyle, 22);
    defaultScanClassStyle = defaultScanUOMStyle = 1;
    EXPECT_EQ(Stated("Plant", "TempAbs"), "R");
    EXPECT_EQ(Stated("Plant", "Temp"), "");
    EXPECT_EQ(Stated("Hx", "Velocity"), "m/sec");
    uomDefaultsInProgress = 1;
    EXPECT_EQ(uom_PropagateClassDefault(hx, CLASS_TEMP, f, none), 0);
    EXPECT_EQ(uomDefaultsInProgress, 1);
    EXPECT_EQ(Stated("Hx", "TempDiff"), "");
    uomDefaultsInProgress = 0;
    for (const int32_t bad : {0, -1, UOM_SET_MAX}) {
        EXPECT_EQ(uom_PropagateCommonRules(bad, CLASS_TEMP, f, none), 1);
        EXPECT_EQ(uom_PropagateHXRules(bad, CLASS_TEMP, f, none), 1);
        EXPECT_EQ(uom_PropagateClassDefault(bad, CLASS_TEMP, f, none), 0);
    }
    EXPECT_EQ(uom_PropagateCommonRules(plant, 0, f, none), 1);
    EXPECT_EQ(uom_PropagateCommonRules(plant, uom_GetUOMClassCount(), f, none), 1);
    EXPECT_EQ(uom_PropagateCommonRules(hx, CLASS_TEMP, f, none), 0); // of the other family
    EXPECT_EQ(uom_PropagateHXRules(plant, CLASS_TEMP, f, none), 0);
    EXPECT_EQ(uom_PropagateHXRules(hx, 0, f, none), 0);
    EXPECT_EQ(Stated("Hx", "TempDiff"), "");
}

// Areas and volumes follow a length each on its own; a rule for a class that is not there leaves its message.
TEST_F(LibraryTest, RulesOnACatalogueWithGaps) {
    std::string text = SMALL_DATA;
    text.insert(text.find("ENDUOMLIST"), "rod ROD R 0 0 1\nrod2 ROD R 0 0 1\nell ELL E 0 0 1\nell3 ELL E 0 0 1\n");
    ASSERT_EQ(Start(WriteData(text)), 0);
    const int32_t plant = NewSlate("Plant", "Metric"), none[] = {0};
    int32_t unit[] = {uom_GetUnitType("rod")};
    EXPECT_EQ(uom_SetClassDefault(plant, CLASS_LENG, unit, none), 0);
    EXPECT_EQ(Stated("Plant", "Area") + "|" + Stated("Plant", "ActVol"), "rod2|");
    unit[0] = uom_GetUnitType("ell");
    EXPECT_EQ(uom_SetClassDefault(plant, CLASS_LENG, unit, none), 0);
    EXPECT_EQ(Stated("Plant", "Area") + "|" + Stated("Plant", "ActVol"), "rod2|ell3");
    const int32_t hx = uoms_NewSet("HXSI");
    unit[0] = uom_GetUnitType("m3");
    EXPECT_EQ(uom_SetClassDefault(hx, CLASS_VAP_VOL, unit, none), 0);
    EXPECT_EQ(Message(), "Unrecognized Unit-of-Measure class \"VapVolRate\".");
}

} // namespace
