// Operations on chains.
#include "uomstruct/chain.h"

#include "tests/support_fixture.h"

namespace {

class UomStructChain : public ShippedFixture {
protected:
    // A chain of simple nodes, one for each class.
    static UomStruct chainOf(const std::vector<int32_t> &classes) {
        const std::vector<int32_t> exponents(classes.size(), 1);
        return uom_BuildStruct(static_cast<int32_t>(classes.size()), classes.data(), exponents.data(), nullptr);
    }
    static UomStruct composite(int32_t classId, int32_t exponent, int32_t basis) {
        return uom_BuildStruct(1, &classId, &exponent, &basis);
    }
    static UomStruct nodeOf(UomStruct chain, int32_t place) {
        while (chain && place-- > 0)
            chain = chain->next;
        return chain;
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
    EXPECT_FALSE(uom_BuildStruct(0, nullptr, nullptr, nullptr));
    EXPECT_FALSE(uom_BuildStruct(-1, nullptr, nullptr, nullptr));
    EXPECT_FALSE(uom_BuildStruct(1, nullptr, nullptr, nullptr));
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

TEST_F(UomStructChain, OfOneClassTakesTheUnitsOfThreeSlates) {
    const int32_t units[] = {1, 2, 3, 4, 5, 6};
    UomStruct chain = uom_CreateStruct(52, 1, units);
    ASSERT_TRUE(chain && chain->next && !chain->next->next);
    for (int32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(units[2 * i], chain->slateUnit[i]);
        EXPECT_EQ(units[2 * i + 1], chain->next->slateUnit[i]);
    }
    EXPECT_EQ(UOM_NULL, chain->unit);
    uom_Free(&chain);
    for (const int32_t bad : {0, -1, uom_GetUOMClassCount()})
        EXPECT_FALSE(uom_CreateStruct(bad, 1, units));
    chain = uom_CreateStruct(57, 2, nullptr);
    EXPECT_EQ(3, uom_GetUnitCount(chain));
    EXPECT_EQ(2, chain->exponent);
    uom_Free(&chain);
}

TEST_F(UomStructChain, IsTakenApartAgain) {
    UomStruct chain = uoms_New("Pres 2 / Rate 3 (Leng) 2");
    int32_t classes[9], exponents[9];
    uom_DecodeStruct(chain, 9, classes, exponents);
    std::string all;
    for (int i = 0; i < 9; ++i)
        all += joined(classes[i], exponents[i]) + ", ";
    EXPECT_EQ("7 2, 57 -3, 0 0, 0 0, 1 0, 11 1, 2 -2, 0 0, 0 0, ", all);
    classes[2] = 77;
    uom_DecodeStruct(chain, 2, classes, exponents);
    EXPECT_EQ(77, classes[2]);
    uom_Free(&chain);
    uom_DecodeStruct(nullptr, 2, classes, exponents);
    EXPECT_EQ(0, classes[1]);
}

TEST_F(UomStructChain, FieldsAreReadAndWritten) {
    UomStruct chain = chainOf({7, 10, 11});
    int32_t v[] = {9, 9, 9, 9, 9};
    uom_GetClasses(chain, 4, v);
    EXPECT_EQ("7 10 11 0 9", joined(v[0], v[1], v[2], v[3], v[4]));
    const int32_t multipliers[] = {3, 6, -1}, classes[] = {-1, 1000, 5, 6, 7};
    uom_SetMultipliers(chain, 2, multipliers);
    uom_GetMultipliers(chain, 3, v);
    EXPECT_EQ("3 6 0 0 9", joined(v[0], v[1], v[2], v[3], v[4]));
    uom_SetClasses(chain, 5, classes);
    EXPECT_EQ("-1 1000 5", classesOf(chain));
    uom_GetClasses(nullptr, 1, v);
    EXPECT_EQ(0, v[0]);
    uom_SetClasses(nullptr, 1, classes);
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
    uom_Free(nullptr);
    EXPECT_FALSE(uom_Copy(nullptr));
}

TEST_F(UomStructChain, NodesAreAddedLinkedAndTakenOut) {
    UomStruct chain = nullptr;
    UomStruct first = uom_AddNewStruct(&chain);
    EXPECT_EQ(first, chain);
    EXPECT_EQ("0/0^0/0^0", fieldsOf(chain));
    UomStruct second = uom_AddNewStruct(&chain);
    EXPECT_EQ(second, first->next);
    UomStruct alone = uom_AddNewStruct(nullptr);
    first->baseClass = 1;
    second->baseClass = 2;
    alone->baseClass = 3;
    EXPECT_EQ(first, uom_LinkStruct(chain, alone));
    EXPECT_EQ("1 2 3", classesOf(chain));
    EXPECT_EQ(chain, uom_LinkStruct(chain, nullptr));
    EXPECT_EQ(chain, uom_LinkStruct(nullptr, chain));
    EXPECT_EQ(chain, uom_UnlinkStruct(chain, nullptr));
    EXPECT_EQ(first, uom_UnlinkStruct(chain, second));
    EXPECT_FALSE(second->next);
    EXPECT_EQ("1 3", classesOf(chain));
    EXPECT_EQ(chain, uom_UnlinkStruct(chain, second)); // no longer in the chain
    EXPECT_EQ(-1, uom_GetStructIndex(chain, second));
    EXPECT_EQ(1, uom_GetStructIndex(chain, alone));
    chain = uom_UnlinkStruct(chain, first);
    EXPECT_EQ(alone, chain);
    EXPECT_FALSE(uom_UnlinkStruct(chain, alone));
    EXPECT_FALSE(uom_UnlinkStruct(nullptr, alone));
    for (UomStruct node : {first, second, alone})
        uom_Free(&node);
}

TEST_F(UomStructChain, IsSplicedInFrontOfANode) {
    // the place of the node, -1 for a node of another chain
    const char cases[] = R"(
        0 | 20 21 7 8 9; 1 | 7 20 21 8 9; 2 | 7 8 20 21 9; 3 | 7 8 9 20 21; -1 | 7 8 9 20 21
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomStructNode foreign = {};
        UomStruct chain = chainOf({7, 8, 9}), insert = chainOf({20, 21});
        chain = uom_InsertBeforeStruct(chain, insert, c[0] == "-1" ? &foreign : nodeOf(chain, std::stoi(c[0])));
        EXPECT_EQ(chain, uom_InsertBeforeStruct(chain, nullptr, chain));
        const std::string whole = classesOf(chain);
        uom_Free(&chain);
        return whole;
    });
    UomStruct insert = chainOf({20});
    EXPECT_EQ(insert, uom_InsertBeforeStruct(nullptr, insert, nullptr));
    uom_Free(&insert);
}

TEST_F(UomStructChain, TheFrontIsCutOff) {
    UomStruct chain = uoms_New("Rate Pres");
    EXPECT_FALSE(uom_RemoveStruct(&chain, 0));
    EXPECT_FALSE(uom_RemoveStruct(&chain, 71)) << "though there is such a class";
    EXPECT_LT(71, uom_GetUOMClassCount());
    UomStruct front = uom_RemoveStruct(&chain, 64); // counted by the class's nodes, never compared
    EXPECT_EQ("40 19", classesOf(front));
    EXPECT_EQ("10 7", classesOf(chain));
    uom_Free(&front);
    front = uom_RemoveStruct(&chain, 52);
    EXPECT_FALSE(chain);
    EXPECT_FALSE(uom_RemoveStruct(&chain, 7));
    uom_Free(&front);
    EXPECT_FALSE(uom_RemoveStruct(nullptr, 7));
}

TEST_F(UomStructChain, AnswersQuestions) {
    UomStruct chain = uoms_New("Pres Rate / (Density Time)");
    EXPECT_EQ("7 40 19 10 1 18 15 10 2", classesOf(chain));
    EXPECT_EQ(9, uom_GetUnitCount(chain));
    EXPECT_EQ(6, uom_GetClassCount(chain));
    EXPECT_EQ(nodeOf(chain, 3), uom_FindStructClass(chain, 10));
    EXPECT_FALSE(uom_FindStructClass(chain, 57));
    const int32_t starts[] = {0, 1, 0, 0, 0, 1, 0, 0, 0}, ends[] = {0, 3, -1, -1, 4, 6, -1, 7, 8};
    for (int32_t i = 0; i < 9; ++i) {
        EXPECT_EQ(starts[i], uom_IsStartOfClass(nodeOf(chain, i))) << i;
        if (ends[i] >= 0) {
            EXPECT_EQ(nodeOf(chain, ends[i]), uom_GetEndOfClass(nodeOf(chain, i))) << i;
        }
    }
    chain->classId = 0;
    EXPECT_FALSE(uom_GetEndOfClass(chain));
    chain->classId = 1000;
    EXPECT_EQ(6, uom_GetClassCount(chain)); // an unknown class counts
    uom_Free(&chain);
    EXPECT_EQ(0, uom_GetUnitCount(nullptr));
    EXPECT_EQ(0, uom_GetClassCount(nullptr));
    EXPECT_EQ(0, uom_IsStartOfClass(nullptr));
    EXPECT_FALSE(uom_GetEndOfClass(nullptr));
    EXPECT_FALSE(uom_FindStructClass(nullptr, 7));
    EXPECT_EQ(-1, uom_GetStructIndex(nullptr, nullptr));
}

TEST_F(UomStructChain, BasisAndClassStandForEachOther) {
    expectAnswers("Mole | 19; Molar | 20; Mass | 18; Liq. Vol. | 15; Vap. Vol. | 16; Vol | 17\n", [](const Cells &c) {
        const int32_t basis = unitOf(c[0].c_str());
        EXPECT_EQ(basis, uom_BasisFromClass(std::stoi(c[1])));
        return joined(uom_ClassFromBasis(basis));
    });
    EXPECT_EQ(0, uom_ClassFromBasis(UOM_NULL));
    EXPECT_EQ(0, uom_ClassFromBasis(UOM_U_KPA));
    EXPECT_EQ(UOM_NULL, uom_BasisFromClass(14));
    EXPECT_EQ(UOM_NULL, uom_BasisFromClass(21));
}

TEST_F(UomStructChain, IsWholeOrNoneWhenMemoryIsExhausted) {
    failEachAllocation([](int place, bool lasting, bool *reached) {
        UomStruct chain, copy;
        {
            const FailingMemory memory(place, lasting);
            chain = uoms_New("Rate (Mass) / (Pres Time) 2");
            copy = uom_Copy(chain);
            *reached = FailingMemory::reached();
        }
        EXPECT_TRUE(!chain || uom_GetUnitCount(chain) == 7);
        EXPECT_TRUE(!copy || uom_GetUnitCount(copy) == 7);
        EXPECT_EQ(!*reached, chain && copy);
        uom_Free(&chain);
        uom_Free(&copy);
    });
}

} // namespace
