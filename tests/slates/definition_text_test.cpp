// A slate as text, out and in.
#include "slates/definition_text.h"

#include "tests/library_fixture.h"

namespace {

class DefinitionTest : public LibraryTest {
protected:
    static Lines Definition(const char *slate, int32_t format) {
        return takeLines(uoms_GetSetDefinition(slate, format));
    }
    static int32_t Apply(const char *slate, const Lines &lines) {
        UomTable *table = tableOf(lines);
        const int32_t status = uoms_PutSetDefinition(slate, table);
        tbl_Free(table);
        return status;
    }
    // A slate Plant under Metric, with a class of its own.
    void SetUp() override {
        ASSERT_EQ(startSmall(), 0) << lastError();
        newSlate("Plant", "Metric");
        ASSERT_TRUE(state("Plant", "GaugePresBasis", "100"));
        ASSERT_EQ(uoms_NewClass("DensFlux", "MassRate / Area"), 0);
        ASSERT_TRUE(state("Plant", "Temp", "C"));
        ASSERT_TRUE(state("Plant", "Pres", "kPa"));
    }
    const Lines pairs = {"Metric", "GaugePresBasis", "100000", "Pres", "kPa", "PresAbs", "kPa", "PresDiff", "kPa"};
    const Lines sections = {"[Plant]",
                            "BasedOn=Metric",
                            "isSystem=0",
                            "isHidden=0",
                            "allowDelete=1",
                            "allowModify=1",
                            "GaugePresBasis=100",
                            "NewClasses=1",
                            "NewClass0=DensFlux,MassRate / Area",
                            "Pres=kPa",
                            "PresAbs=kPa",
                            "PresDiff=kPa"};
};

TEST_F(DefinitionTest, ThreeFormats) {
    EXPECT_EQ(Definition("Plant", 0), pairs);
    EXPECT_EQ(Definition("plant", 2), sections);
    const Lines full = Definition("Plant", 1);
    ASSERT_EQ(full.size(), 3 + 2 * (72 - 3 - 3u)); // without 0 to 2 and 46 to 48
    EXPECT_EQ(Lines(full.begin(), full.begin() + 3), Lines(pairs.begin(), pairs.begin() + 3));
    EXPECT_EQ(full[3] + "=" + full[4], "Dimensionless=");
    EXPECT_EQ(full[5] + "=" + full[6], "Temp=C");
    EXPECT_EQ(full[full.size() - 2] + "=" + full.back(), "DensFlux=");
    EXPECT_EQ(Definition("Plant", 3), Lines());
    EXPECT_EQ(uoms_GetSetDefinition("Nosuch", 0), nullptr);
}

TEST_F(DefinitionTest, WhatIsLeftOut) {
    // Equal to the parent's but for the case of letters; a value of the grandparent alone stays.
    newSlate("Child", "Plant");
    ASSERT_TRUE(state("Child", "Pres", "kPa"));
    ASSERT_TRUE(state("Child", "Mass", "kg")); // Metric states it, Plant does not
    EXPECT_EQ(Definition("Child", 0), (Lines{"Plant", "GaugePresBasis", "101325", "Mass", "kg"}));
    uoms_PutSetBasedOn("Child", "Nobody");
    EXPECT_EQ(Definition("Child", 0).size(), 3 + 2 * 4u);
    // Without an own basis, no line in the sections, but a value in the pairs: even the mark of inheriting.
    ASSERT_TRUE(state("Child", "GaugePresBasis", "90"));
    ASSERT_TRUE(state("Child", "GaugePresBasis", ""));
    EXPECT_EQ(Definition("Child", 0)[2], "-1000");
    for (const std::string &line : Definition("Child", 2))
        EXPECT_NE(line.substr(0, 5), "Gauge");
}

TEST_F(DefinitionTest, ReadsBackWhatItWrote) {
    EXPECT_EQ(Apply("Plant", pairs), 0);
    EXPECT_EQ(Definition("Plant", 2), sections);
    uoms_NewSet("Copy");
    for (const int32_t format : {0, 1, 2}) {
        ASSERT_EQ(uoms_ClearSet("Copy"), 0);
        EXPECT_EQ(Apply("Copy", Definition("Plant", format)), 0);
        Lines copy = Definition("Copy", 2);
        copy[0] = "[Plant]";
        EXPECT_EQ(copy, sections) << format;
    }
}

TEST_F(DefinitionTest, LinesOfTheSections) {
    uoms_NewSet("Target");
    const auto target = [](const char *className) { return stated("Target", className); };
    // A first line with "=" is a line, one with a "[" anywhere is a header. Keys in any case, blanks are
    // kept.
    EXPECT_EQ(Apply("Target", {"tEMP=F", "Pres=kPa", "Mass =kg", "Time=hr", "PARENT=Plant", "newclasses=9"}), 0);
    EXPECT_EQ(target("Temp") + target("TempAbs") + target("Pres") + target("Time"), "FRkPahr");
    EXPECT_EQ(target("Mass"), "");
    char out[32];
    EXPECT_STREQ(uoms_GetSetBasedOn2("Target", out, 32), "Plant"); // linked, not copied
    EXPECT_EQ(Apply("Target", {"Temp[=K", "Time", "ISHIDDEN=1", "GaugePresBasis=70"}), 0);
    EXPECT_EQ(target("Temp"), "F");
    EXPECT_EQ(target("Time"), ""); // a key without a value withdraws
    EXPECT_EQ(target("isHidden") + target("GaugePresBasis"), "170");
    // Lines take effect in their order; a bad one does not stop the rest.
    EXPECT_EQ(Apply("Target", {"[x]", "Leng=m", "Nosuch=m", "CopyFrom=Plant", "Mass=lb", "basedon=SI"}), 0);
    EXPECT_EQ(target("Leng") + "|" + target("Pres") + "|" + target("Mass"), "|kPa|lb");
    EXPECT_STREQ(uoms_GetSetBasedOn2("Target", out, 32), "SI");
    // A line of a class leaves a message that means nothing.
    EXPECT_EQ(Apply("Target", {"[x]", "NewClass=Stream,Mass / Time"}), 0);
    EXPECT_EQ(lastError(), "Unrecognized Unit-of-Measure class \"NewClass\".");
    EXPECT_GT(uom_GetClassType("Stream", 1), 71);
    EXPECT_EQ(Apply("Target", {"[x]"}), 0);
    EXPECT_EQ(Apply("Target", {}), 1);
    EXPECT_EQ(uoms_PutSetDefinition("Target", nullptr), 1);
    UomTable *lines = tableOf({"[x]", "Time=sec"});
    EXPECT_EQ(uoms_PutSetDefinition("Target", lines), 0);
    EXPECT_STREQ(tbl_GetText(lines, 1), "Time"); // cut in place, so a table is read once
    tbl_Free(lines);
    EXPECT_EQ(Apply("Nosuch", {"[x]", "Time=sec"}), 0);
    EXPECT_EQ(uom_GetSetType("Nosuch"), -1);
    EXPECT_EQ(lastError(), "Unrecognized Unit-of-Measure slate \"Nosuch\".");
}

// The slates of the shipped file, written in full and read back.
TEST_F(DefinitionTest, ShippedSlatesReadBack) {
    stop();
    ASSERT_EQ(startShipped(), 0);
    const Lines names = takeLines(uom_GetSetList());
    for (size_t i = 1; i < names.size(); ++i) {
        const char *name = names[i].c_str();
        SCOPED_TRACE(name);
        newSlate("Copy", "Copy");
        ASSERT_EQ(Apply("Copy", Definition(name, 1)), 0);
        char parent[64];
        uoms_PutSetBasedOn("Copy", uoms_GetSetBasedOn2(name, parent, 64));
        EXPECT_EQ(Definition("Copy", 1), Definition(name, 1));
        uoms_DeleteSet("Copy");
    }
}

// Every class comes to a unit in every slate, with a text that reads back.
TEST_F(DefinitionTest, ShippedSlatesResolveEveryClass) {
    stop();
    ASSERT_EQ(startShipped(), 0);
    for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate)
        for (int32_t c = 3; c < uom_GetUOMClassCount(); ++c) {
            char text[128], name[64];
            SCOPED_TRACE(testing::Message() << uom_GetBaseName2(slate, name, 64) << " " << class_Token(c));
            uom_GetDisplayText(c, nullptr, slate, text, sizeof text, 1);
            if (c == CLASS_DIMENSIONLESS)
                continue; // nothing is ever read for it
            EXPECT_STRNE(text, "");
            const Chain chain(class_Token(c)), back(class_Token(c), text);
            uom_InitializeUnits(chain.head, slate);
            EXPECT_EQ(display(chain.head), text);
            EXPECT_EQ(describeUnits(back.head), describeUnits(chain.head));
        }
}

} // namespace
