// Slates come and go; the walks up their parents.
#include "slates/registry.h"

#include <cstring>

#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class RegistryTest : public ShippedTest {
protected:
    static std::string Parent(const char *name) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetParent(catalogue(), name, sizeof out, out), 0);
        return out;
    }
    static std::string Root(const char *name, int32_t status = 0) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetRoot(catalogue(), name, sizeof out, out), status) << name;
        return out;
    }
};

TEST_F(RegistryTest, NewSlates) {
    const int32_t count = UOM_SET_MAX, plant = uoms_NewSet("Plant");
    EXPECT_EQ(plant, count);
    EXPECT_EQ(UOM_SET_MAX, count + 1);
    EXPECT_EQ(uoms_NewSet("PLANT"), plant);
    EXPECT_EQ(joined(uoms_NewSet(""), uoms_NewSet(nullptr), UOM_SET_MAX), joined(0, -1, count + 1));
    const UomSlate *slate = slate_Record(catalogue(), plant);
    ASSERT_NE(slate, nullptr);
    EXPECT_EQ(joined(slate->name, slate->basedOn, slate->gaugePresBasis), "Plant Plant 101.325");
    EXPECT_EQ(joined(slate->isSystem, slate->isHidden, slate->allowDelete, slate->allowModify), "0 0 1 1");
    EXPECT_EQ(uoms_NewSetBasedOn(catalogue(), "Child", "Plant"), 0);
    EXPECT_EQ(uoms_NewSetBasedOn(catalogue(), nullptr, "Plant"), 1);
    EXPECT_EQ(Parent("child"), "Plant");
    EXPECT_EQ(uom_GetSetType("plant"), plant);
    EXPECT_EQ(joined(uom_GetSetType(""), uom_GetSetType("Plan"), uom_GetSetType(nullptr)), "0 -1 -1");
    EXPECT_EQ(joined(uom_CheckDupSetName("Plant"), uom_CheckDupSetName("plant")), "1 0"); // by the case of letters
    EXPECT_EQ(joined(uoms_IsSetValid(catalogue(), "pLANT"), uoms_IsSetValid(catalogue(), "")), "1 0");
}

TEST_F(RegistryTest, RootsAndAncestors) {
    newSlate("Plant", "metric");
    newSlate("Unit", "Plant");
    newSlate("Orphan", "Nobody");
    newSlate("Nameless", "");
    newSlate("RingA", "RingC");
    newSlate("RingB", "RingA");
    newSlate("RingC", "RingB");
    newSlate("Tail", "RingB");
    const struct {
        const char *slate, *root;
    } roots[] = {{"Unit", "Metric"}, {"metric", "Metric"},     {"Orphan", "Orphan"},  {"Tail", "RingB"},
                 {"RingA", "RingA"}, {"Nameless", "Nameless"}, {"Current", "English"}};
    for (const auto &c : roots)
        EXPECT_EQ(Root(c.slate), c.root);
    EXPECT_EQ(Root("Nosuch", 1), "");
    EXPECT_EQ(Root("", 1), "");
    const struct {
        const char *slate, *ancestor;
        int32_t derived;
    } ancestors[] = {{"Unit", "METRIC", 1}, {"Unit", "Unit", 1},  {"Unit", "SI", 0},       {"Metric", "Unit", 0},
                     {"Tail", "RingC", 1},  {"RingA", "Tail", 0}, {"Orphan", "Nobody", 0}, {"Nosuch", "Nosuch", 0},
                     {"", "Metric", 0},     {"Unit", "", 0},      {nullptr, "Metric", 0},  {"Unit", nullptr, 0},
                     {"Plant", "Metric", 1}};
    for (const auto &c : ancestors)
        EXPECT_EQ(uoms_IsSetDerivedFrom(catalogue(), c.slate, c.ancestor), c.derived)
            << testing::Message() << c.slate << " from " << c.ancestor;
}

// Sixty slates in a row: lists of slates met end after fifty, a stated value is found however far up.
TEST_F(RegistryTest, LongRowsOfSlates) {
    const auto name = [](int i) { return "Deep" + std::to_string(i); };
    uoms_NewSet("Deep0");
    ASSERT_TRUE(state("Deep0", "Time", "week"));
    ASSERT_TRUE(state("Deep0", "GaugePresBasis", "70"));
    for (int i = 1; i < 60; ++i) {
        newSlate(name(i).c_str(), name(i - 1).c_str());
        ASSERT_TRUE(state(name(i).c_str(), "GaugePresBasis", "70"));
        ASSERT_TRUE(state(name(i).c_str(), "GaugePresBasis", ""));
    }
    EXPECT_EQ(Root("Deep40"), "Deep0");
    EXPECT_EQ(Root("Deep48"), "Deep0");
    EXPECT_EQ(Root("Deep51", 1), "");
    EXPECT_EQ(Root("Deep59", 1), "");
    EXPECT_EQ(uoms_IsSetDerivedFrom(catalogue(), "Deep59", "Deep12"), 1);
    EXPECT_EQ(uoms_IsSetDerivedFrom(catalogue(), "Deep59", "Deep8"), 0);
    EXPECT_EQ(uoms_IsSetDerivedFrom(catalogue(), "Deep45", "Deep0"), 1);
    EXPECT_EQ(resolved("Deep45", "Time"), "week");
    resolved("Deep59", "Time");
    resolved("Deep59", "Rate");
    EXPECT_EQ(uom_InitializeCurrentSet(uom_GetSetType("Deep59")), 0);
    char out[32] = "#";
    EXPECT_STREQ(uoms_GetInheritedSetProperty(catalogue(), "gaugePRESbasis", "Deep59", out, sizeof out), "70");
    EXPECT_STREQ(uoms_GetInheritedSetProperty(catalogue(), "isHidden", "Deep59", out, sizeof out), "");
    EXPECT_STREQ(uoms_GetInheritedSetProperty(catalogue(), "GaugePresBasis", "Nosuch", out, sizeof out), "");
}

TEST_F(RegistryTest, ClearingNamesClassesInTheStyleOfTheHost) {
    for (int32_t style = 1; style <= 6; ++style) {
        newSlate("Plant", "Metric");
        for (const auto &[name, units] : {std::pair{"Temp", "F"}, {"Density", "lb/ft3"}, {"Mass", "lb"}})
            ASSERT_TRUE(state("Plant", name, units));
        catalogue().styles.scanClass = style;
        EXPECT_EQ(0, uoms_ClearSet("Plant"));
        catalogue().styles.scanClass = 1;
        EXPECT_EQ("  ", joined(stated("Plant", "Temp"), stated("Plant", "Density"), stated("Plant", "Mass"))) << style;
        uoms_DeleteSet("Plant");
    }
}

} // namespace
