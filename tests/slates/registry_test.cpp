// Slates come and go; the walks up their parents.
#include "slates/registry.h"

#include <cstring>

#include "catalogue/platform.h"
#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class RegistryTest : public ShippedTest {
protected:
    static std::string Parent(const char *name) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetParent(name, sizeof out, out), 0);
        return out;
    }
    static std::string Root(const char *name, int32_t status = 0) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetRoot(name, sizeof out, out), status) << name;
        return out;
    }
};

TEST_F(RegistryTest, NewSlates) {
    const int32_t count = UOM_SET_MAX, plant = uoms_NewSet("Plant");
    EXPECT_EQ(plant, count);
    EXPECT_EQ(UOM_SET_MAX, count + 1);
    EXPECT_EQ(uom_GetSetCount(), count + 1);
    EXPECT_EQ(uoms_NewSet("PLANT"), plant);
    EXPECT_EQ(uoms_NewSet(""), UOM_SET_NULL);
    EXPECT_EQ(uoms_NewSet(nullptr), -1);
    EXPECT_EQ(UOM_SET_MAX, count + 1);
    const UomSlate *slate = slate_Record(plant);
    ASSERT_NE(slate, nullptr);
    EXPECT_STREQ(slate->name, "Plant");
    EXPECT_STREQ(slate->basedOn, "Plant");
    EXPECT_EQ(slate->gaugePresBasisText, nullptr);
    EXPECT_EQ(slate->gaugePresBasis, 101.325);
    EXPECT_EQ(slate->isSystem + slate->isHidden, 0);
    EXPECT_EQ(slate->allowDelete + slate->allowModify, 2);
    EXPECT_EQ(uoms_NewSetBasedOn("Child", "Plant"), 0);
    EXPECT_EQ(uoms_NewSetBasedOn(nullptr, "Plant"), 1);
    EXPECT_EQ(Parent("child"), "Plant");

    EXPECT_EQ(uom_GetSetType("plant"), plant);
    EXPECT_EQ(uom_GetSetType(""), 0);
    EXPECT_EQ(uom_GetSetType("Plan"), -1);
    EXPECT_EQ(uom_GetSetType(nullptr), -1);
    EXPECT_EQ(uom_CheckDupSetName("Plant"), 1);
    EXPECT_EQ(uom_CheckDupSetName("plant"), 0); // this one looks at the case of letters
    EXPECT_EQ(uom_CheckDupSetName(""), 0);
    EXPECT_EQ(uoms_IsSetValid("pLANT"), 1);
    EXPECT_EQ(uoms_IsSetValid(""), 0);
    EXPECT_EQ(uoms_IsSetValid("Plan"), 0);
    const std::vector<std::string> names = TakeLines(uom_GetSetList());
    ASSERT_EQ(names.size(), static_cast<size_t>(UOM_SET_MAX));
    EXPECT_EQ(names.front(), "");
    EXPECT_EQ(names[1], "English");
    EXPECT_EQ(names.back(), "Child");
}

TEST_F(RegistryTest, RootsStandInARowAndKeepTheirParents) {
    EXPECT_EQ(UOM_SET_METRIC, UOM_SET_ENGLISH + 1);
    EXPECT_EQ(UOM_SET_SI, UOM_SET_ENGLISH + 2);
    for (const char *root : {"English", "metric", "SI"}) {
        EXPECT_EQ(uoms_PutSetBasedOn(root, "Internal"), uom_GetSetType(root));
        EXPECT_TRUE(slate_IsRootSystem(uom_GetSetType(root)));
        EXPECT_EQ(Parent(root), slate_Record(uom_GetSetType(root))->name);
    }
    EXPECT_FALSE(slate_IsRootSystem(UOM_SET_INTERNAL));
    EXPECT_EQ(uoms_PutSetBasedOn("Internal", "Nowhere at all"), UOM_SET_INTERNAL);
    EXPECT_EQ(Parent("Internal"), "Nowhere at all");
    EXPECT_EQ(uoms_PutSetBasedOn("Nosuch", "SI"), -1);
    EXPECT_EQ(uom_InitializeSet(UOM_SET_SI, UOM_SET_ENGLISH), 0); // copied, and its own root all the same
    EXPECT_EQ(Parent("SI"), "SI");
    EXPECT_EQ(Stated("SI", "Temp"), "F");
}

TEST_F(RegistryTest, RenamingLeavesTheChildren) {
    const int32_t plant = NewSlate("Plant", "Metric");
    NewSlate("Child", "Plant");
    uoms_RenameSet("Plant", "Metric"); // taken
    EXPECT_EQ(uom_GetSetType("Plant"), plant);
    uoms_RenameSet("Nosuch", "Works");
    EXPECT_EQ(uom_GetSetType("Works"), -1);
    uoms_RenameSet("pLaNT", "Works");
    EXPECT_EQ(uom_GetSetType("Works"), plant);
    EXPECT_EQ(uom_GetSetType("Plant"), -1);
    EXPECT_EQ(Parent("Child"), "Plant"); // repaired by the caller or not at all
    EXPECT_EQ(Resolved("Child", "Temp"), "");
    uoms_RenameSet("Works", "WORKS"); // free, as the case differs
    EXPECT_STREQ(slate_Record(plant)->name, "WORKS");
    uoms_RenameSet("Works", "si"); // the first of the two is found from now on
    EXPECT_STREQ(slate_Record(plant)->name, "si");
    EXPECT_EQ(uom_GetSetType("si"), UOM_SET_SI);
    uoms_RenameSet(nullptr, "x");
    uoms_RenameSet("Child", nullptr);
    EXPECT_GT(uom_GetSetType("Child"), 0);
}

TEST_F(RegistryTest, DeletionMovesLaterSlatesDown) {
    const int32_t a = NewSlate("A", "Metric"), b = NewSlate("B", "A"), c = NewSlate("C", "B");
    ASSERT_TRUE(State("C", "Temp", "F"));
    ASSERT_TRUE(State("B", "Rate", "lb/hr"));
    ASSERT_TRUE(State("B", "GaugePresBasis", "90"));
    ASSERT_TRUE(State("B", "allowDelete", "0")); // nobody asks
    EXPECT_EQ(uoms_DeleteSet("b"), 0);
    EXPECT_EQ(uom_GetSetType("A"), a);
    EXPECT_EQ(uom_GetSetType("C"), b);
    EXPECT_EQ(UOM_SET_MAX, c);
    EXPECT_EQ(Stated("C", "Temp"), "F");
    EXPECT_EQ(Parent("C"), "B");
    EXPECT_EQ(Root("C"), "C"); // the walk ends at the name that is gone
    EXPECT_EQ(uoms_DeleteSet("b"), 1);
    for (const int32_t bad : {-1, UOM_SET_MAX, 1 << 30})
        EXPECT_EQ(uom_DeleteSet(bad), 1);
    EXPECT_EQ(UOM_SET_MAX, c);
    while (UOM_SET_MAX > 0)
        EXPECT_EQ(uom_DeleteSet(UOM_SET_MAX - 1), 0);
    EXPECT_EQ(uom_DeleteSet(0), 1);
    EXPECT_EQ(uom_GetSetType("English"), -1);
    EXPECT_EQ(uom_CheckDupSetName("English"), 0);
    EXPECT_EQ(uom_ConvertValue(ClassOf("Leng"), nullptr, 1, 2, 3), 3);
}

TEST_F(RegistryTest, InitialisingCopiesWhatIsStated) {
    const int32_t source = NewSlate("Source", "Metric"), target = NewSlate("Target", "SI");
    ASSERT_TRUE(State("Source", "Time", "day"));
    ASSERT_TRUE(State("Source", "Mass", "k*g"));
    ASSERT_TRUE(State("Source", "Density", "lb/ft3"));
    ASSERT_TRUE(State("Source", "GaugePresBasis", "80"));
    ASSERT_TRUE(State("Source", "isHidden", "1"));
    ASSERT_TRUE(State("Source", "MassFlux", "lb/ft2-day")); // a custom class
    ASSERT_TRUE(State("Target", "Leng", "mile"));
    ASSERT_TRUE(State("Target", "Power", "HP"));
    ASSERT_TRUE(State("Target", "MassFlux", "lb/ft2-sec"));
    EXPECT_EQ(uom_InitializeSet(target, target), 1);
    for (const int32_t bad : {0, -1, UOM_SET_MAX}) {
        EXPECT_EQ(uom_InitializeSet(target, bad), 1);
        EXPECT_EQ(uom_InitializeSet(bad, source), 1);
    }
    EXPECT_EQ(uoms_InitializeSet("Target", "Nosuch"), 1);
    EXPECT_EQ(uoms_CopySet("Nosuch", "Source"), 1);
    EXPECT_EQ(Stated("Target", "Leng"), "mile");
    EXPECT_EQ(uoms_CopySet("target", "source"), 0);
    EXPECT_EQ(Parent("Target"), "Source");
    EXPECT_EQ(Stated("Target", "Time"), "day");
    EXPECT_EQ(Stated("Target", "Mass"), "k*g");
    EXPECT_EQ(Stated("Target", "Density"), "lb/ft3");
    EXPECT_EQ(Stated("Target", "Leng"), ""); // stated in the target alone: wiped
    EXPECT_EQ(Stated("Target", "Power"), "");
    EXPECT_EQ(Stated("Target", "MassFlux"), "lb/ft2-sec"); // custom classes stay
    EXPECT_EQ(Stated("Target", "GaugePresBasis"), "");
    EXPECT_EQ(Stated("Target", "isHidden"), "0");
    ASSERT_TRUE(State("Source", "Density", "g/cm3")); // the copy is the target's own
    EXPECT_EQ(Stated("Target", "Density"), "lb/ft3");
}

TEST_F(RegistryTest, TheRootThatCurrentComesFrom) {
    EXPECT_EQ(uom_GetCurrentSet(), 0);
    NewSlate("Plant", "Metric");
    const int32_t unit = NewSlate("Unit", "Plant"), island = uoms_NewSet("Island");
    const int32_t orphan = NewSlate("Orphan", "Nobody"), ring = NewSlate("RingA", "RingB");
    NewSlate("RingB", "RingA");
    const struct {
        int32_t slate, root;
    } cases[] = {{unit, UOM_SET_METRIC},
                 {island, UOM_SET_SI},
                 {UOM_SET_ENGLISH, UOM_SET_ENGLISH},
                 {orphan, UOM_SET_SI},
                 {UOM_SET_METRIC, UOM_SET_METRIC},
                 {ring, UOM_SET_SI}, // a ring must come to an end
                 {UOM_SET_SI, UOM_SET_SI}};
    for (const auto &c : cases) {
        EXPECT_EQ(uom_InitializeCurrentSet(c.slate), 0);
        EXPECT_EQ(uom_GetCurrentSet(), c.root) << slate_Record(c.slate)->name;
        EXPECT_EQ(Parent("Current"), slate_Record(c.slate)->name);
    }
    EXPECT_EQ(uom_InitializeSet(island, unit), 0); // another destination leaves it
    EXPECT_EQ(uom_GetCurrentSet(), UOM_SET_SI);
    EXPECT_EQ(uom_InitializeCurrentSet(UOM_SET_CURRENT), 1);
}

TEST_F(RegistryTest, RootsAndAncestors) {
    NewSlate("Plant", "metric");
    NewSlate("Unit", "Plant");
    NewSlate("Orphan", "Nobody");
    NewSlate("Nameless", "");
    NewSlate("RingA", "RingC");
    NewSlate("RingB", "RingA");
    NewSlate("RingC", "RingB");
    NewSlate("Tail", "RingB");
    const struct {
        const char *slate, *root;
    } roots[] = {{"Unit", "Metric"}, {"metric", "Metric"},     {"Orphan", "Orphan"},  {"Tail", "RingB"},
                 {"RingA", "RingA"}, {"Nameless", "Nameless"}, {"Current", "English"}};
    for (const auto &c : roots)
        EXPECT_EQ(Root(c.slate), c.root);
    EXPECT_EQ(Root("Nosuch", 1), "");
    EXPECT_EQ(Root("", 1), "");
    char out[4] = "#";
    EXPECT_EQ(uoms_GetSetRoot("Unit", 0, out), 1);
    EXPECT_EQ(uoms_GetSetRoot("Unit", 4, nullptr), 1);
    EXPECT_EQ(uoms_GetSetRoot("Unit", 4, out), 0);
    EXPECT_STREQ(out, "Met");
    const struct {
        const char *slate, *ancestor;
        int32_t derived;
    } ancestors[] = {{"Unit", "METRIC", 1}, {"Unit", "Unit", 1},  {"Unit", "SI", 0},       {"Metric", "Unit", 0},
                     {"Tail", "RingC", 1},  {"RingA", "Tail", 0}, {"Orphan", "Nobody", 0}, {"Nosuch", "Nosuch", 0},
                     {"", "Metric", 0},     {"Unit", "", 0},      {nullptr, "Metric", 0},  {"Unit", nullptr, 0},
                     {"Plant", "Metric", 1}};
    for (const auto &c : ancestors)
        EXPECT_EQ(uoms_IsSetDerivedFrom(c.slate, c.ancestor), c.derived)
            << testing::Message() << c.slate << " from " << c.ancestor;
}

// Sixty slates in a row: lists of slates met end after fifty, a stated value is found however far up.
TEST_F(RegistryTest, LongRowsOfSlates) {
    const auto name = [](int i) { return "Deep" + std::to_string(i); };
    uoms_NewSet("Deep0");
    ASSERT_TRUE(State("Deep0", "Time", "week"));
    ASSERT_TRUE(State("Deep0", "GaugePresBasis", "70"));
    for (int i = 1; i < 60; ++i) {
        NewSlate(name(i).c_str(), name(i - 1).c_str());
        ASSERT_TRUE(State(name(i).c_str(), "GaugePresBasis", "70"));
        ASSERT_TRUE(State(name(i).c_str(), "GaugePresBasis", ""));
    }
    EXPECT_EQ(Root("Deep40"), "Deep0");
    EXPECT_EQ(Root("Deep48"), "Deep0");
    EXPECT_EQ(Root("Deep51", 1), "");
    EXPECT_EQ(Root("Deep59", 1), "");
    EXPECT_EQ(uoms_IsSetDerivedFrom("Deep59", "Deep12"), 1);
    EXPECT_EQ(uoms_IsSetDerivedFrom("Deep59", "Deep8"), 0);
    EXPECT_EQ(uoms_IsSetDerivedFrom("Deep45", "Deep0"), 1);
    EXPECT_EQ(Resolved("Deep45", "Time"), "week");
    Resolved("Deep59", "Time");
    Resolved("Deep59", "Rate");
    EXPECT_EQ(uom_InitializeCurrentSet(uom_GetSetType("Deep59")), 0);
    char out[32] = "#";
    EXPECT_STREQ(uoms_GetInheritedSetProperty("gaugePRESbasis", "Deep59", out, sizeof out), "70");
    EXPECT_STREQ(uoms_GetInheritedSetProperty("isHidden", "Deep59", out, sizeof out), "");
    EXPECT_STREQ(uoms_GetInheritedSetProperty("GaugePresBasis", "Nosuch", out, sizeof out), "");
}

TEST_F(RegistryTest, ClearingWithdrawsEveryDefault) {
    NewSlate("Plant", "Metric");
    const char *const defaults[][2] = {{"Temp", "F"},
                                       {"Leng", "ft"},
                                       {"Rate", "lb/hr"},
                                       {"E6Energy", "x 10^6 J"},
                                       {"MassFlux", "lb/ft2-hr"},
                                       {"PetroMass", "lb"},
                                       {"Permeability", "darcy"}};
    for (const auto &pair : defaults)
        ASSERT_TRUE(State("Plant", pair[0], pair[1])) << pair[0] << Message();
    ASSERT_TRUE(State("Plant", "GaugePresBasis", "88"));
    ASSERT_TRUE(State("Plant", "isHidden", "1"));
    EXPECT_EQ(uoms_ClearSet(nullptr), 1);
    EXPECT_EQ(uoms_ClearSet("Nosuch"), 1);
    EXPECT_EQ(uoms_ClearSet(""), 1);
    EXPECT_EQ(uoms_ClearSet("plant"), 0);
    for (int32_t classId = 1; classId < uom_GetUOMClassCount(); ++classId)
        EXPECT_EQ(Stated("Plant", class_Token(classId)), "") << class_Token(classId);
    EXPECT_EQ(Stated("Plant", "GaugePresBasis"), "88");
    EXPECT_EQ(Stated("Plant", "isHidden"), "1");
    EXPECT_EQ(Resolved("Plant", "Temp"), "C");
}

TEST_F(RegistryTest, NamesOfParents) {
    const std::string longName(100, 'p');
    const int32_t plant = NewSlate("Plant", longName.c_str());
    char out[128] = "#";
    EXPECT_EQ(std::string(uom_GetSetBasedOn(plant, out)), longName.substr(0, 63));
    EXPECT_EQ(std::string(uoms_GetSetBasedOn("plant", out)), longName.substr(0, 63));
    EXPECT_EQ(std::string(uom_GetSetBasedOn2(plant, out, 128)), longName);
    EXPECT_EQ(std::string(uoms_GetSetBasedOn2("PLANT", out, 5)), "pppp");
    for (const int32_t bad : {0, -1, UOM_SET_MAX}) {
        EXPECT_STREQ(uom_GetSetBasedOn(bad, out), "");
        out[0] = '#';
        EXPECT_STREQ(uom_GetSetBasedOn2(bad, out, 9), "");
        out[0] = '#';
    }
    EXPECT_STREQ(uoms_GetSetBasedOn2("Nosuch", out, 9), "");
    EXPECT_EQ(uom_GetSetBasedOn2(plant, nullptr, 9), nullptr);
    const std::string before = platform_DebugText();
    EXPECT_EQ(uom_GetSetBasedOn(plant, nullptr), nullptr); // the notice comes first
    EXPECT_EQ(uoms_GetSetBasedOn("Plant", nullptr), nullptr);
    EXPECT_NE(platform_DebugText(), before);
    EXPECT_NE(std::strstr(platform_DebugText(), "COREKIT.DLL: call to deprecated function uom_GetSetBasedOn.\n"
                                                "COREKIT.DLL: call to deprecated function uoms_GetSetBasedOn.\n"),
              nullptr);
    EXPECT_EQ(uoms_GetSetParent("Plant", 0, out), 1);
    EXPECT_EQ(uoms_GetSetParent("Plant", 9, nullptr), 1);
    EXPECT_EQ(Parent("Nosuch"), "");
}

} // namespace
