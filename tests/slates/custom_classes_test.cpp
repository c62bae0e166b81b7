// Classes made at run time, and what deleting one moves.
#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class CustomClassesTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(startSmall(), 0); }
};

TEST_F(CustomClassesTest, CopyOfABaseClass) {
    ASSERT_TRUE(state("Metric", "Temp", "k*K"));
    EXPECT_EQ(uoms_NewClass("Skin", "Temp"), 0);
    EXPECT_EQ(lastError(), "");
    const UomClassRow *row = class_Row(71);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(uom_GetUOMClassCount(), 72);
    EXPECT_EQ(joined(row->index, row->kind, row->hasOffset, row->name, row->token, row->definition),
              "71 18 1 Skin Skin Temp");
    EXPECT_NE(row->uomList, class_Row(CLASS_TEMP)->uomList);
    EXPECT_EQ(takeLines(uom_GetUnitList(71)), (std::vector<std::string>{"C", "F", "K"}));
    // Every slate states for it what it states for the class that it was made from.
    for (const char *slate : {"English", "Metric", "SI", "Current", "OXInternal"})
        EXPECT_EQ(stated(slate, "skin"), stated(slate, "Temp")) << slate;
    EXPECT_EQ(stated("Metric", "Skin"), "k*K");
    double value = 0;
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Skin", "C", "K"), 0);
    EXPECT_DOUBLE_EQ(value, 273.15);
}

TEST_F(CustomClassesTest, CompositeClasses) {
    EXPECT_EQ(uoms_NewClass("Flux", "MassRate / Area"), 0);
    EXPECT_EQ(uoms_NewClass("Feed", "MassRate"), 0);
    EXPECT_EQ(uoms_NewClass("Square", "Leng 2"), 0);
    const UomClassRow *flux = class_Row(71), *square = class_Row(73);
    EXPECT_EQ(joined(flux->kind, flux->allowExponent, uom_GetUnitMax(71), square->baseExponent[0]), "24 1 3 2");
    EXPECT_EQ(joined(flux->baseClass[0], flux->baseClass[1], flux->baseClass[2]), "18 10 13");
    EXPECT_EQ(joined(flux->baseExponent[0], flux->baseExponent[1], flux->baseExponent[2]), "1 -1 -1");
    EXPECT_EQ(stated("Metric", "Feed"), "kg/hr"); // the class has a name
    EXPECT_TRUE(state("Metric", "Flux", "lb/hr-m2"));
    EXPECT_EQ(stated("Metric", "Flux"), "lb/hr-m2");
    EXPECT_EQ(resolved("Metric", "Flux 2"), "(lb/hr-m2)2");
}

TEST_F(CustomClassesTest, FailuresChangeNothing) {
    ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area"), 0);
    const struct {
        const char *name, *definition;
        int32_t status;
        const char *message;
    } cases[] = {
        {nullptr, "Leng", 1, "Missing arguments to uoms_NewClass()."},
        {"New", nullptr, 1, "Missing arguments to uoms_NewClass()."},
        {"flux", "Leng", 2, "UOM class \"flux\" already exists. New class was not created."},
        {"Temperature", "Leng", 2, "UOM class \"Temperature\" already exists. New class was not created."},
        {"New", "Nosuch", 3, "UOM class \"Nosuch\" not recognized or does not exist. New class was not created."},
        {"New", "", 3, "UOM class \"\" not recognized or does not exist. New class was not created."},
        {"New", "(Leng", 3, "UOM class \"(Leng\" not recognized or does not exist. New class was not created."},
        {"New", "Mass Leng Time Temp", 5,
         "UOM class \"New\" contains more than 3 base classes. New class was not created."},
        {"New", "(Leng Mass)", 5, // parentheses count
         "UOM class \"New\" contains more than 3 base classes. New class was not created."}};
    for (const auto &c : cases) {
        EXPECT_EQ(uoms_NewClass(c.name, c.definition), c.status);
        EXPECT_EQ(lastError(), c.message);
        EXPECT_EQ(uom_GetUOMClassCount(), 72);
        EXPECT_EQ(uom_GetClassType("New", 1), 0);
    }
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
    EXPECT_EQ(joined(class_Token(chain.head->baseClass), classOf("Load"), chain.head->baseClass), "Load 72 72");
    EXPECT_EQ(uoms_DeleteClass("Pressing") + uoms_DeleteClass("Load"), 0);
}

TEST_F(CustomClassesTest, DeletingMovesLaterClassesDown) {
    const char *names[] = {"Alpha", "Beta", "Gamma", "Delta", "Epsilon"};
    for (const char *name : names)
        ASSERT_EQ(uoms_NewClass(name, *name == 'D' ? "Mass / Area" : "Mass"), 0);
    ASSERT_TRUE(state("SI", "Beta", "kg"));
    ASSERT_TRUE(state("SI", "Gamma", "M lb"));
    ASSERT_TRUE(state("SI", "Delta", "lb/m2"));
    ASSERT_TRUE(state("SI", "Epsilon", "k*kg"));
    EXPECT_EQ(uoms_DeleteClass(nullptr), 1);
    for (const char *refused : {"Nosuch", "", "Temp", "InvLeng", "Alpha"}) // Alpha is number 71
        EXPECT_EQ(uoms_DeleteClass(refused), 2) << refused;
    EXPECT_EQ(uom_GetUOMClassCount(), 76);
    EXPECT_EQ(uoms_DeleteClass("beta"), 0);
    EXPECT_EQ(uom_GetUOMClassCount(), 75);
    EXPECT_EQ(uom_GetClassType("Beta", 1), 0);
    EXPECT_EQ(uom_GetClassType("Epsilon", 1), 74);
    EXPECT_EQ(stated("SI", "Gamma"), "M lb");
    EXPECT_EQ(stated("SI", "Delta"), "lb/m2");
    EXPECT_EQ(stated("SI", "Epsilon"), "k*kg");
    EXPECT_EQ(stated("English", "Alpha"), "lb");
    // The field of a row behind the gap takes the old count and is its place no more.
    EXPECT_EQ(class_Row(71)->index, 71);
    for (int32_t row = 72; row < 75; ++row)
        EXPECT_EQ(class_Row(row)->index, 76);
    EXPECT_EQ(uoms_DeleteClass("Delta"), 0); // with a default of its own in a composite's place
    EXPECT_EQ(stated("SI", "Epsilon") + stated("SI", "Gamma"), "k*kgM lb");
    EXPECT_EQ(uoms_NewClass("Zeta", "Mass"), 0);
    EXPECT_EQ(uom_GetClassType("Zeta", 1), 74);
    EXPECT_EQ(stated("English", "Zeta"), "lb");
    for (const char *deleted : {"Zeta", "Epsilon", "Gamma"})
        EXPECT_EQ(uoms_DeleteClass(deleted), 0);
    EXPECT_EQ(uoms_DeleteClass("Alpha"), 2);
}

} // namespace
