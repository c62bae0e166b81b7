// A slate as text, out and in.
#include "slates/definition_text.h"

#include "tests/library_fixture.h"

namespace {

class DefinitionTest : public ShippedTest {
protected:
    static Lines Definition(const char *slate) { return takeLines(uoms_GetSetDefinition(slate, 1)); }
};

// The slates of the shipped file, written in full and read back.
TEST_F(DefinitionTest, ShippedSlatesReadBack) {
    const Lines names = takeLines(uom_GetSetList());
    for (size_t i = 1; i < names.size(); ++i) {
        const char *name = names[i].c_str();
        SCOPED_TRACE(name);
        newSlate("Copy", "Copy");
        UomTable *table = tableOf(Definition(name));
        ASSERT_EQ(uoms_PutSetDefinition("Copy", table), 0);
        tbl_Free(table);
        char parent[64];
        uoms_PutSetBasedOn("Copy", uoms_GetSetBasedOn2(name, parent, 64));
        EXPECT_EQ(Definition("Copy"), Definition(name));
        uoms_DeleteSet("Copy");
    }
}

// Every class comes to a unit in every slate, with a text that reads back.
TEST_F(DefinitionTest, ShippedSlatesResolveEveryClass) {
    for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate)
        for (int32_t c = 3; c < uom_GetUOMClassCount(); ++c) {
            char text[128], name[64];
            SCOPED_TRACE(testing::Message() << uom_GetBaseName2(slate, name, 64) << " " << class_Token(catalogue(), c));
            uom_GetDisplayText(c, nullptr, slate, text, sizeof text, 1);
            if (c == CLASS_DIMENSIONLESS)
                continue; // nothing is ever read for it
            EXPECT_STRNE(text, "");
            const Chain chain(class_Token(catalogue(), c)), back(class_Token(catalogue(), c), text);
            uom_InitializeUnits(chain.head, slate);
            EXPECT_EQ(display(chain.head), text);
            EXPECT_EQ(describeUnits(back.head), describeUnits(chain.head));
        }
}

} // namespace
