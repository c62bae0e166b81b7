// Classes made at run time, and what deleting one moves.
#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class CustomClassesTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(startSmall(), 0); }
};

TEST_F(CustomClassesTest, DeletingLeavesThePlacesOfRows) {
    for (const char *name : {"Alpha", "Beta", "Gamma", "Delta"})
        ASSERT_EQ(uoms_NewClass(name, "Mass"), 0);
    EXPECT_EQ(uoms_DeleteClass("beta"), 0);
    // The field of a row behind the gap takes the old count and is its place no more.
    EXPECT_EQ(
        joined(class_Row(catalogue(), 71)->index, class_Row(catalogue(), 72)->index, class_Row(catalogue(), 73)->index),
        "71 75 75");
}

// What others are made of stays, and they keep it when a class in front of it goes.
TEST_F(CustomClassesTest, ComponentsOfOthers) {
    for (const char *name : {"First", "Second", "Load"})
        ASSERT_EQ(uoms_NewClass(name, "Mass"), 0);
    ASSERT_EQ(uoms_NewClass("Pressing", "Load / Area"), 0);
    EXPECT_EQ(uoms_DeleteClass("Load"), 2);
    EXPECT_EQ(lastError(), "");
    EXPECT_EQ(stated("English", "Load"), "lb"); // nothing was withdrawn
    EXPECT_EQ(uoms_DeleteClass("Second"), 0);
    const Chain chain("Pressing", "lb/m2");
    EXPECT_EQ(joined(class_Token(catalogue(), chain.head->baseClass), classOf("Load"), chain.head->baseClass),
              "Load 72 72");
    EXPECT_EQ(uoms_DeleteClass("Pressing") + uoms_DeleteClass("Load"), 0);
}

} // namespace
