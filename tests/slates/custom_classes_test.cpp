// Classes made at run time, and what deleting one moves.
#include "slates/custom_classes.h"

#include "slates/definition_text.h"
#include "tests/library_fixture.h"

namespace {

class CustomClassesTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(Start(WriteData(SMALL_DATA)), 0); }
};

TEST_F(CustomClassesTest, CopyOfABaseClass) {
    ASSERT_TRUE(State("Metric", "Temp", "k*K"));
    EXPECT_EQ(uoms_NewClass("Skin", "Temp"), 0);
    EXPECT_EQ(Message(), "");
    const UomClassRow *row = class_Row(71), *temp = class_Row(CLASS_TEMP);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(uom_GetUOMClassCount(), 72);
    EXPECT_EQ(row->index, 71);
    EXPECT_EQ(row->kind, 18);
    EXPECT_EQ(row->hasOffset, 1);
    EXPECT_STREQ(row->name, "Skin");
    EXPECT_STREQ(row->token, "Skin");
    EXPECT_NE(row->name, row->token);
    EXPECT_STREQ(row->definition, "Temp");
    EXPECT_EQ(row->keyword, nullptr);
    EXPECT_NE(row->uomList, temp->uomList);
    EXPECT_EQ(TakeLines(uom_GetUnitList(71)), (std::vector<std::string>{"C", "F", "K"}));
    // Every slate states for it what it states for the class that it was made from.
    for (const char *slate : {"English", "Metric", "SI", "Current", "OXInternal"})
        EXPECT_EQ(Stated(slate, "skin"), Stated(slate, "Temp")) << slate;
    EXPECT_EQ(Stated("Metric", "Skin"), "k*K");
    double value = 0;
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Skin", "C", "K"), 0);
    EXPECT_DOUBLE_EQ(value, 273.15);
    EXPECT_FALSE(uoms_IsClassComposite("Skin"));
    EXPECT_EQ(uoms_NewClass("Inner", "PowerTop"), 0);
    EXPECT_EQ(class_Row(72)->kind, 22); // still internal
}

TEST_F(CustomClassesTest, CompositeClasses) {
    EXPECT_EQ(uoms_NewClass("Flux", "MassRate / Area"), 0);
    EXPECT_EQ(uoms_NewClass("Feed", "MassRate"), 0);
    EXPECT_EQ(uoms_NewClass("Square", "Leng 2"), 0);
    const UomClassRow *flux = class_Row(71), *square = class_Row(73);
    EXPECT_EQ(flux->kind, 24);
    EXPECT_EQ(flux->allowExponent, 1);
    const int32_t classes[] = {CLASS_MASS, CLASS_TIME, CLASS_AREA}, exponents[] = {1, -1, -1};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(flux->baseClass[i], classes[i]);
        EXPECT_EQ(flux->baseExponent[i], exponents[i]);
    }
    EXPECT_EQ(square->baseExponent[0], 2);
    EXPECT_EQ(uom_GetUnitMax(71), 3);
    EXPECT_TRUE(uoms_IsClassComposite("flux"));
    EXPECT_TRUE(uoms_IsClassComposite("MassRate"));
    EXPECT_FALSE(uoms_IsClassComposite("Temp"));
    EXPECT_FALSE(uoms_IsClassComposite("Nosuch"));
    EXPECT_EQ(Stated("Metric", "Feed"), "kg/hr"); // the class has a name
    EXPECT_EQ(Stated("Metric", "Flux"), "");
    EXPECT_TRUE(State("Metric", "Flux", "lb/hr-m2"));
    EXPECT_EQ(Stated("Metric", "Flux"), "lb/hr-m2");
    EXPECT_EQ(Resolved("Metric", "Flux 2"), "(lb/hr-m2)2");
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
        EXPECT_EQ(Message(), c.message);
        EXPECT_EQ(uom_GetUOMClassCount(), 72);
        EXPECT_EQ(uom_GetClassType("New", 1), 0);
    }
}

TEST_F(CustomClassesTest, DeletingMovesLaterClassesDown) {
    const char *names[] = {"Alpha", "Beta", "Gamma", "Delta", "Epsilon"};
    for (const char *name : names)
        ASSERT_EQ(uoms_NewClass(name, *name == 'D' ? "Mass / Area" : "Mass"), 0);
    ASSERT_TRUE(State("SI", "Beta", "kg"));
    ASSERT_TRUE(State("SI", "Gamma", "M lb"));
    ASSERT_TRUE(State("SI", "Delta", "lb/m2"));
    ASSERT_TRUE(State("SI", "Epsilon", "k*kg"));
    EXPECT_EQ(uoms_DeleteClass(nullptr), 1);
    for (const char *refused : {"Nosuch", "", "Temp", "InvLeng", "Alpha"}) // Alpha is number 71
        EXPECT_EQ(uoms_DeleteClass(refused), 2) << refused;
    EXPECT_EQ(uom_GetUOMClassCount(), 76);
    EXPECT_EQ(uoms_DeleteClass("beta"), 0);
    EXPECT_EQ(uom_GetUOMClassCount(), 75);
    EXPECT_EQ(uom_GetClassType("Beta", 1), 0);
    EXPECT_EQ(uom_GetClassType("Epsilon", 1), 74);
    EXPECT_EQ(Stated("SI", "Gamma"), "M lb");
    EXPECT_EQ(Stated("SI", "Delta"), "lb/m2");
    EXPECT_EQ(Stated("SI", "Epsilon"), "k*kg");
    EXPECT_EQ(Stated("English", "Alpha"), "lb");
    // The field of a row behind the gap takes the old count and is its place no more.
    EXPECT_EQ(class_Row(71)->index, 71);
    for (int32_t row = 72; row < 75; ++row)
        EXPECT_EQ(class_Row(row)->index, 76);
    EXPECT_EQ(uoms_DeleteClass("Delta"), 0); // with a default of its own in a composite's place
    EXPECT_EQ(Stated("SI", "Epsilon"), "k*kg");
    EXPECT_EQ(Stated("SI", "Gamma"), "M lb");
    EXPECT_EQ(class_Row(73)->index, 75);
    EXPECT_EQ(uoms_NewClass("Zeta", "Mass"), 0);
    EXPECT_EQ(uom_GetClassType("Zeta", 1), 74);
    EXPECT_EQ(Stated("English", "Zeta"), "lb");
    EXPECT_EQ(uoms_DeleteClass("Zeta"), 0);
    EXPECT_EQ(uoms_DeleteClass("Epsilon"), 0);
    EXPECT_EQ(uoms_DeleteClass("Gamma"), 0);
    EXPECT_EQ(uoms_DeleteClass("Alpha"), 2);
}

TEST_F(CustomClassesTest, TextsOfAClass) {
    ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area"), 0);
    const struct {
        const char *name, *text;
        int32_t style, status;
    } cases[] = {{nullptr, "x", 2, 1}, {"", "x", 2, 1},     {"Flux", nullptr, 2, 1}, {"Flux", "", 5, 1},
                 {"None", "x", 2, 2},  {"Temp", "x", 2, 3}, {"InvLeng", "x", 1, 3},  {"Flux", "x", 1, 4},
                 {"Flux", "x", 0, 4},  {"Flux", "x", 6, 4}, {"flux", "FLUX", 2, 0},  {"Flux", "Mass Flux", 5, 0}};
    for (const auto &c : cases)
        EXPECT_EQ(uoms_PutClassText(c.name, c.text, c.style), c.status)
            << testing::Message() << c.name << " " << c.text << " " << c.style;
    char out[32];
    const char *texts[] = {"Flux", "FLUX", "Flux", "FLUX", "Mass Flux", "Flux"};
    for (int32_t style = 1; style <= 6; ++style) {
        uom_GetClassText(71, out, sizeof out, style);
        EXPECT_STREQ(out, texts[style - 1]);
    }
    EXPECT_EQ(uom_GetClassType("Mass Flux", 1), 71);
    EXPECT_EQ(uom_GetClassType("flux", 2), 71);
    EXPECT_EQ(uom_GetClassTextLen(71), 9);
    EXPECT_EQ(uoms_PutClassNote("Temp", "warm"), 0);
    EXPECT_STREQ(class_Row(CLASS_TEMP)->note, "warm");
    EXPECT_EQ(uoms_PutClassNote("temp", ""), 0);
    EXPECT_EQ(class_Row(CLASS_TEMP)->note, nullptr);
    EXPECT_EQ(uoms_PutClassListName("Flux", "Shorts"), 0);
    EXPECT_EQ(uoms_PutClassListName("Flux", "Others"), 0);
    EXPECT_STREQ(class_Row(71)->listName, "Others");
    EXPECT_EQ(uoms_PutClassListName("Flux", nullptr), 0);
    EXPECT_EQ(class_Row(71)->listName, nullptr);
    for (const char *bad : {static_cast<const char *>(nullptr), "Nosuch"}) {
        EXPECT_EQ(uoms_PutClassNote(bad, "x"), 1);
        EXPECT_EQ(uoms_PutClassListName(bad, "x"), 1);
    }
}

} // namespace
