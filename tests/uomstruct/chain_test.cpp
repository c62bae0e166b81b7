// Operations on chains.
#include "uomstruct/chain.h"

#include "tests/library_fixture.h"

namespace {

class UomStructChain : public ShippedTest {
protected:
    static UomStruct composite(int32_t classId, int32_t exponent, int32_t basis) {
        return uom_BuildStruct(1, &classId, &exponent, &basis);
    }
    static std::string classesOf(UomStruct chain) {
        std::string text;
        for (; chain; chain = chain->next)
            text += (text.empty() ? "" : " ") + std::to_string(chain->baseClass);
        return text;
    }
    // tag/class^exponent/base^exponent of each node
    static std::string fieldsOf(UomStruct chain) {
        std::string text;
        for (; chain; chain = chain->next) {
            text += text.empty() ? "" : " ";
            text += std::to_string(chain->tag) + "/" + std::to_string(chain->classId) + "^" +
                    std::to_string(chain->exponent) + "/" + std::to_string(chain->baseClass) + "^" +
                    std::to_string(chain->baseExponent);
        }
        return text;
    }
};

TEST_F(UomStructChain, IsBuiltFromClasses) {
    // class, exponent and unit, of which a composite class takes a basis
    const char cases[] = R"(
        52 | 2 | | 100/52^2/18^2 101/52^2/15^-2; 7 | -3 | kPa | 0/7^-3/7^-3 kPa; 62 | 2 | | 100/62^2/10^-2
        59 | 1 | | 100/59^1/18^1 101/59^1/11^2; 57 | 1 | | 100/57^1/40^1 101/57^1/19^1 102/57^1/10^-1
        49 | 1 | Mass | 100/49^1/40^1 101/49^1/18^1 Mass
        57 | -1 | Liq. Vol. | 100/57^-1/40^-1 101/57^-1/15^-1 102/57^-1/10^1 Liq. Vol.
        57 | 1 | Vap. Vol. | 100/57^1/40^1 101/57^1/16^1 102/57^1/10^-1 Vap. Vol.
        57 | 1 | Vol | 100/57^1/40^1 101/57^1/17^1 102/57^1/10^-1 Vol
        57 | 1 | Molar | 100/57^1/40^1 101/57^1/20^1 102/57^1/10^-1 Molar
        57 | 1 | kPa | 100/57^1/40^1 101/57^1/19^1 102/57^1/10^-1 kPa
        52 | 1 | Mass | 100/52^1/18^1 101/52^1/15^-1; 63 | 1 | Mass | 100/63^1/40^1 101/63^1/18^1 Mass
        1000 | 1 | | 0/1000^1/1000^1; -5 | 1 | | 0/-5^1/-5^1
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomStruct chain = composite(std::stoi(c[0]), std::stoi(c[1]), unitOf(c[2].c_str()));
        char token[32] = "";
        uom_GetUnitText(chain->unit, token, sizeof token, 1);
        const std::string all = joined(fieldsOf(chain), token);
        uom_Free(&chain);
        return all;
    });
}

TEST_F(UomStructChain, ABasisWithNothingBehindItWaitsForTheNextComposite) {
    // The class that a basis gives acts on the first component of the next composite class.
    ASSERT_EQ(0, uoms_NewClass("BasisLast", "Leng Basis"));
    const int32_t classes[] = {classOf("BasisLast"), 7, 64}, exponents[] = {1, 1, 1};
    const int32_t units[] = {UOM_BASLIQV, 0, 0};
    UomStruct chain = uom_BuildStruct(3, classes, exponents, units);
    EXPECT_EQ("11 40 7 15 10", classesOf(chain));
    uom_Free(&chain);
}

TEST_F(UomStructChain, CopiesAreIndependent) {
    UomStruct chain = uoms_New("Rate (Mass) / Leng");
    ASSERT_EQ(0, uom_FillStructFromString(chain, "M lb/hr ft", 1));
    chain->slateUnit[2] = 5;
    UomStruct copy = uom_Copy(chain);
    EXPECT_EQ(fieldsOf(chain), fieldsOf(copy));
    EXPECT_EQ("40:Mass 18:3*lb 10:hr 11:ft", describeUnits(copy));
    EXPECT_EQ(5, copy->slateUnit[2]);
    for (UomStruct a = chain, b = copy; a; a = a->next, b = b->next)
        EXPECT_NE(a, b);
    uom_Free(&chain);
    EXPECT_FALSE(chain);
    EXPECT_EQ(4, uom_GetUnitCount(copy));
    uom_Free(&copy);
    uom_Free(&copy);
}

} // namespace
