// The texts of class rows.
#include "text/class_text.h"

#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class ClassTextTest : public ShippedTest {
protected:
    // Of an operation that gives a text: its status, and the text when there is one.
    template <class Operation> static std::string given(Operation operation) {
        char out[128] = "";
        const int32_t status = operation(out);
        return joined(status, out);
    }
};

TEST_F(ClassTextTest, TextsOfRows) {
    ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area"), 0);
    ASSERT_EQ(uoms_PutClassListName(catalogue(), "Mass", "Shorts") + uoms_PutClassNote(catalogue(), "Mass", "heavy"),
              0);
    const char cases[] = R"(
        component | Rate | 0 Basis Mole / Time; component | Density/Leng | 0 Mass / StdLiqVol Leng; component | Pres | 1
        component | x | 2; keyword | Pres/Leng 2 | 0 PRES / LENG 2; LONGNAME | Pres | 0 Pressure; nosuch | Pres | 0 Pres
        token | | 1; token | x | 2; definition | Flux Leng | 0 Mass / Area; definition | Pres | 2; definition | x | 1
        list | Mass | 0 Shorts; list | Pressure | 0 Pressure; list | x | 1; note | Mass | 0 heavy; note | Pres | 0
        note | x | 1; is | Pressure | 1; is | Temp | 1; is | PRES x | 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        const char *const text = c[1].c_str();
        return given([&](char *out) {
            return c[0] == "component"    ? uoms_GetComponentClass(catalogue(), text, 128, out)
                   : c[0] == "definition" ? uoms_GetClassDefinition(catalogue(), text, 128, out)
                   : c[0] == "list"       ? uoms_GetClassListName(catalogue(), text, 128, out)
                   : c[0] == "note"       ? uoms_GetClassNote(catalogue(), text, 128, out)
                   : c[0] == "is"         ? uoms_IsClassToken(catalogue(), text)
                                          : uoms_GetClassStringInStyle(catalogue(), text, c[0].c_str(), 128, out);
        });
    });
    expectAnswers("token | Temp; keyword | TEMP; longname | Temperature; html | Temp\n", [](const Cells &c) {
        int32_t count = 0;
        char **const texts = uoms_GetClassTextList(catalogue(), c[0].c_str(), &count);
        EXPECT_EQ(count, uom_GetUOMClassCount());
        EXPECT_TRUE(!*texts[0] && !texts[count]);
        const std::string text = texts[4];
        tbl_FreeTextArray(texts);
        return text;
    });
    EXPECT_EQ(uoms_PutClassListName(catalogue(), "Mass", "") + uoms_PutClassNote(catalogue(), "Mass", ""),
              0); // a clean-up leaves both
}

} // namespace
