// Class strings: text in, classes and exponents out.
#include "uomstruct/class_string.h"

#include "tests/library_fixture.h"

namespace {

class ClassString : public ShippedTest {
protected:
    // The classes as "class^exponent", with the basis unit of a class string behind it, or the message.
    static std::string entriesOf(const std::string &text) {
        UomStruct chain = uoms_New(text.c_str());
        EXPECT_EQ(chain != nullptr, uoms_IsClassValid(text.c_str()) == 1);
        std::string all = chain ? "" : lastError();
        for (UomStruct node = chain; node; node = node->next) {
            if (node->tag > 100)
                continue;
            all += (all.empty() ? "" : " ") + std::to_string(node->classId) + "^" + std::to_string(node->exponent);
            char basis[32] = "";
            uom_GetUnitText(node->unit, basis, sizeof basis, 1);
            all += *basis ? "[" + std::string(basis) + "]" : "";
        }
        uom_Free(&chain);
        return all;
    }
};

TEST_F(ClassString, ByKeywords) {
    defaultScanClassStyle = 2;
    expectAnswers("PRES/LENG 2 | 7^1 11^-2; wtra | 57^1; RATE (WT) 2 | 57^2[Mass]\n",
                  [](const Cells &c) { return entriesOf(c[0]); });
    EXPECT_FALSE(uoms_New("Pressure"));
}

TEST_F(ClassString, StaysWithinItsBounds) {
    std::string twenty, expected;
    for (int i = 0; i < 20; ++i) {
        twenty += "Pres ";
        expected += i ? " 7^1" : "7^1";
    }
    EXPECT_EQ(expected, entriesOf(twenty));
    EXPECT_FALSE(uoms_New((twenty + "Pres").c_str()));
    EXPECT_FALSE(uoms_New((std::string(100, '(') + "Pres" + std::string(100, ')')).c_str()));
    for (const std::string piece : {"x", "Pres ", "(", ")", "7 ", "/", "'", "Rate ("}) {
        std::string all;
        while (all.size() < 10000)
            all += piece;
        EXPECT_EQ(0, uoms_IsClassValid(all.c_str()));
    }
    EXPECT_EQ("Parsing UOM class string \"" + std::string(485, 'x'), entriesOf(std::string(10000, 'x')));
    EXPECT_EQ("7^2", entriesOf(std::string(10000, ' ') + "Pres" + std::string(10000, ' ') + "2"));
}

} // namespace
