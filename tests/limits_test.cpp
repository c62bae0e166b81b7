// Texts, exponents, chains and tables of any size: answered, and in time that grows with them.
#include <cmath>
#include <cstring>

#include "uom/blank_padded.h"
#include "catalogue/slate_table.h"
#include "slates/registry.h"
#include "slates/unit_pairs.h"
#include "support/name_index.h"
#include "tests/library_fixture.h"
#include "text/class_text.h"
#include "uom/catalogue.h"

namespace {

class LimitsTest : public ShippedTest {
protected:
    static std::string repeated(const std::string &piece, size_t length) {
        std::string text;
        while (text.size() < length)
            text += piece;
        return text.substr(0, length);
    }
    static int32_t filled(const char *classString, const std::string &units) {
        return uom_FillStructFromString(Chain(classString).head, units.c_str(), 1);
    }
};

constexpr size_t LONGEST = 65535;

TEST_F(LimitsTest, LongTexts) {
    const std::string blanks = repeated(" ", LONGEST - 1);
    EXPECT_EQ(filled("Leng", blanks + "m"), 0);
    EXPECT_EQ(filled("Leng", repeated("()", LONGEST - 1) + "m"), 0); // each "(" is a new try for a unit
    EXPECT_NE(filled("Leng", repeated("()", LONGEST)), 0);
    EXPECT_NE(filled("(Leng Mass) 2", repeated("(m", LONGEST)), 0);
    EXPECT_NE(filled("Density", repeated("/)", LONGEST)), 0);
    EXPECT_EQ(Chain("Leng" + blanks.substr(4) + "2").head->exponent, 2);
    const std::string units = blanks + " m", shown = repeated(" ", 64);
    const std::string complaint = "UOM string \"" + shown + "...\" contains more than 65535 characters.";
    error_Clear();
    EXPECT_EQ(filled("Leng", units), 9);
    EXPECT_EQ(lastError(), complaint);
    error_Clear();
    int32_t consumed = 7, multiplier = 7, unit = 7;
    EXPECT_EQ(uom_FindUnitFromString(CLASS_LENG, units.c_str(), 1, &consumed, &multiplier, &unit), 9);
    EXPECT_EQ(joined(lastError(), consumed, multiplier, unit), complaint + " 0 0 0");
    EXPECT_EQ(uoms_New((blanks + "  Leng").c_str()), nullptr);
    EXPECT_EQ(lastError(), "UOM class string \"" + shown + "...\" contains more than 65535 characters.");
    EXPECT_EQ(uom_FillStruct(Chain("Leng").head, CLASS_LENG, ("m" + blanks + "  ").c_str(), 1), 1);
    EXPECT_EQ(uom_FillStruct(Chain("Leng").head, CLASS_LENG, ("m" + blanks).c_str(), 1), 0);
}

TEST_F(LimitsTest, LongClassStrings) {
    const std::string twenty = repeated("Pres ", 100);
    EXPECT_EQ(uom_GetUnitCount(Chain(twenty).head), 20);
    EXPECT_FALSE(uoms_New((twenty + "Pres").c_str()));
    EXPECT_FALSE(uoms_New((std::string(100, '(') + "Pres" + std::string(100, ')')).c_str()));
    for (const std::string piece : {"x", "Pres ", "(", ")", "7 ", "/", "'", "Rate ("})
        EXPECT_EQ(0, uoms_IsClassValid(repeated(piece, 10000).c_str())) << piece;
    EXPECT_FALSE(uoms_New(std::string(10000, 'x').c_str()));
    EXPECT_EQ("Parsing UOM class string \"" + std::string(485, 'x'), lastError());
    EXPECT_EQ(Chain(std::string(10000, ' ') + "Pres" + std::string(10000, ' ') + "2").head->exponent, 2);
}

TEST_F(LimitsTest, LongUnitStrings) {
    const std::string open(100, '('), close(100, ')');
    std::vector<std::string> texts = {open + "ft" + close, open + "lb/ft3" + close, "k*" + std::string(10000, '*'),
                                      "ft" + std::string(10000, '7')};
    for (const char c : {'x', '(', ')', '/', '7', '-', '\xB2'})
        texts.push_back(std::string(10000, c));
    for (const char *classes : {"Leng", "Density", "Rate", "(Leng Mass) 2", "((Leng)2)2", "Power", "BasisFrac"})
        for (const std::string &text : texts) {
            EXPECT_NE(0, filled(classes, text)) << classes;
            EXPECT_EQ(0u, lastError().find("UOM string")) << classes;
        }
    EXPECT_EQ(2, filled("Leng", std::string(10000, 'x')));
    EXPECT_EQ("UOM string \"" + std::string(499, 'x'), lastError());
    EXPECT_EQ(0, filled("Leng", std::string(10000, ' ') + "ft" + std::string(9999, ' ')));
    EXPECT_EQ(0, filled("Leng", std::string(30, '(') + "ft" + std::string(30, ')')));
}

TEST_F(LimitsTest, WordsOfAnyLength) {
    for (const char *head : {"PRES ", "PRES KG/", "RATE ", "SPVO FT3/"}) {
        UomStruct chain = uom_ClassAndUnitToStruct((head + std::string(10000, 'X')).c_str(), 2);
        EXPECT_NE(chain, nullptr) << head;
        uom_Free(&chain);
    }
}

// The index of a list has a word for each 64 units.
TEST_F(LimitsTest, ListsOfAnyLength) {
    for (const int count : {64, 65, 129}) {
        std::string units, names;
        for (int i = 1; i <= count; ++i) {
            units += "\nu" + std::to_string(i) + " U \"\" 0 0.0 " + std::to_string(i);
            names += "\nu" + std::to_string(i);
        }
        const std::string text =
            "BEGINUOMLIST\nnone NONE None 0 0 1" + units + "\nENDUOMLIST\nBEGINLIST\nLeng" + names + "\nENDLIST\n";
        UomCatalogue *const own = uom_NewCatalogue();
        UomCatalogue *const before = uom_UseCatalogue(own);
        EXPECT_EQ(uom_InitText(text.data(), text.size(), 0, nullptr), 0) << lastError();
        for (int i = 1; i <= count; ++i) {
            double value = 1;
            EXPECT_EQ(uoms_ConvertArray(&value, 1, "Leng", ("u" + std::to_string(i)).c_str(), "u1"), 0) << lastError();
            EXPECT_EQ(value, i);
        }
        uom_UseCatalogue(before);
        uom_FreeCatalogue(own);
    }
}

TEST_F(LimitsTest, GreatExponents) {
    // A factor of 1 makes a sum that is known at once: C has the offset 273.15 and the factor 1.
    const int32_t most = INT32_MAX;
    const Chain c("Temp 2147483647"), k("Temp 2147483647"), group("(Temp) 2147483647"), groupK("(Temp) 2147483647");
    for (const Chain *chain : {&c, &group})
        chain_SetUnit(catalogue(), chain->head->next ? chain->head->next : chain->head, unitOf("C"));
    for (const Chain *chain : {&k, &groupK})
        chain_SetUnit(catalogue(), chain->head->next ? chain->head->next : chain->head, unitOf("K"));
    EXPECT_DOUBLE_EQ(uom_ConvertFromTo(1, c.head, k.head), 1 + (1.0 + most) * 273.15);
    EXPECT_EQ(running().linear, 1);
    // What would take more than ten million rounds is no value.
    EXPECT_EQ(uom_ConvertFromTo(1, group.head, groupK.head), -1.5e35);
    EXPECT_EQ(running().linear, 0);
    ASSERT_EQ(uom_SetConvConstants(unitOf("ft"), 0, 1 + 1e-9), 0);
    double value = 1, factor, offset;
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Leng 9999000", "ft9999000", "m9999000"), 0);
    EXPECT_NEAR(value, std::exp(0.009999), 1e-9);
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Leng 10001000", "ft10001000", "m10001000"), 0);
    EXPECT_EQ(value, -1.5e35);
    EXPECT_EQ(uoms_CalculateConvConstants("Leng 10001000", "ft10001000", "m10001000", &factor, &offset), 5);
    value = 1;
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Leng 2147483647", "km2147483647", "m2147483647"), 0);
    EXPECT_TRUE(std::isinf(value)); // soon no product changes any more
}

// Nodes one by one, with groups in one another and side by side, deeper and more than any table holds.
TEST_F(LimitsTest, LongChains) {
    constexpr int groups = 30000;
    UomStruct chain = nullptr;
    const auto add = [&](int32_t classId, int32_t exponent) {
        UomStruct node = uom_AddNewStruct(&chain);
        node->classId = node->baseClass = classId;
        node->exponent = exponent;
    };
    for (int i = 0; i < groups; ++i)
        add(CLASS_OPEN, 0);
    for (int i = 0; i < groups; ++i)
        add(CLASS_CLOSE, 2);
    for (int i = 0; i < groups; ++i) {
        add(CLASS_OPEN, 0);
        add(CLASS_CLOSE, i % 2 ? -3 : 1);
    }
    add(CLASS_OPEN, 0); // stays open
    std::string text(20 * groups, '#'), units = text;
    uom_BuildClassString(chain, text.data(), static_cast<int32_t>(text.size()), 1);
    EXPECT_EQ(text.substr(groups - 1, 8), "()2)2)2)");
    EXPECT_EQ(std::string(text.c_str()).substr(3 * groups), ([] {
                  std::string expected;
                  for (int i = 0; i < groups; ++i)
                      expected += i % 2 ? " / ()3" : i ? " / ()" : " ()";
                  return expected + " / (";
              }()));
    uom_GetDisplayUnits(chain, units.data(), static_cast<int32_t>(units.size()), 1);
    EXPECT_EQ(std::string(units.c_str()).substr(3 * groups, 14), "()/()3/()/()3/");
    uom_Free(&chain);
}

// Where a chain ends is remembered between two appendings, and forgotten when chains change.
TEST_F(LimitsTest, AppendingGoesOnAtTheEnd) {
    UomStruct chain = nullptr;
    std::vector<UomStruct> nodes;
    for (int i = 0; i < 5; ++i)
        nodes.push_back(uom_AddNewStruct(&chain));
    EXPECT_EQ(chain, nodes[0]);
    chain = uom_UnlinkStruct(chain, nodes[4]); // the end
    UomStruct next = uom_AddNewStruct(&chain);
    EXPECT_EQ(nodes[3]->next, next);
    EXPECT_EQ(uom_LinkStruct(chain, nodes[4]), chain);
    EXPECT_EQ(next->next, nodes[4]);
    UomStruct other = uom_AddNewStruct(nullptr), last = uom_AddNewStruct(&chain);
    EXPECT_EQ(nodes[4]->next, last);
    chain = uom_InsertBeforeStruct(chain, other, nodes[0]);
    EXPECT_EQ(uom_AddNewStruct(&chain), last->next);
    UomStruct cut = uom_RemoveStruct(&chain, CLASS_LENG); // the head alone
    EXPECT_EQ(joined(cut == other, chain == nodes[0], uom_GetUnitCount(chain)), "1 1 8");
    uom_AddNewStruct(&chain);
    EXPECT_EQ(uom_GetUnitCount(chain), 9);
    uom_Free(&cut);
    uom_Free(&chain);
    EXPECT_EQ(uom_AddNewStruct(&chain), chain);
    uom_Free(&chain);
}

// An index counts its searches' steps here: equal names cost no more than different ones, and those taken out leave it
// usable.
TEST(NameIndexTest, EqualNamesStandOnce) {
    NameIndex index;
    ASSERT_TRUE(names_Reset(index, 1000));
    int64_t asked = 0;
    const auto bears = [&](int32_t) { return ++asked, true; };
    for (int32_t i = 0; i < 1000; ++i)
        EXPECT_TRUE(names_Add(index, i % 2 ? "same" : "SAME", i, bears));
    EXPECT_LE(asked, 1000);
    EXPECT_EQ(names_Find(index, "Same", 0, bears), 0);
    names_Remove(index, "same", 7); // was left out
    EXPECT_EQ(names_Find(index, "same", 0, bears), 0);
    names_Remove(index, "same", 0);
    EXPECT_EQ(names_Find(index, "same", 0, bears), -1);
    names_Free(index);
    EXPECT_FALSE(names_Add(index, "x", 1, bears));
    EXPECT_EQ(names_Find(index, "x", 5, [](int32_t i) { return i == 3; }), 3); // walks
}

TEST_F(LimitsTest, ManySlatesAndClasses) {
    const auto nameOf = [](const char *head, int i) {
        return head + std::string(1, static_cast<char>('a' + i % 26)) +
               std::string(1, static_cast<char>('a' + i / 26 % 26)) + std::string(1, static_cast<char>('a' + i / 676));
    };
    const int32_t slates = UOM_SET_MAX, classes = uom_GetUOMClassCount();
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(uoms_NewSet(nameOf("S", i).c_str()), slates + i);
    for (int i = 1999; i >= 1000; --i)
        ASSERT_EQ(uoms_DeleteSet(nameOf("S", i).c_str()), 0);
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(uom_GetSetType(nameOf("s", i).c_str()), i < 1000 ? slates + i : -1);
    ASSERT_EQ(uoms_DeleteSet(nameOf("S", 10).c_str()), 0); // from the middle
    EXPECT_EQ(uom_GetSetType(nameOf("S", 999).c_str()), slates + 998);
    uoms_RenameSet(nameOf("S", 20).c_str(), "ENGLISH"); // but for letters' case a name that is taken
    EXPECT_EQ(joined(uom_GetSetType("English"), uom_GetSetType(nameOf("S", 20).c_str())), joined(UOM_SET_ENGLISH, -1));
    while (UOM_SET_MAX > slates)
        ASSERT_EQ(uom_DeleteSet(UOM_SET_MAX - 1), 0);
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(uoms_NewClass(nameOf("C", i).c_str(), "Mass"), 0);
        ASSERT_EQ(uoms_PutClassText(nameOf("C", i).c_str(), nameOf("long ", i).c_str(), 5), 0);
    }
    ASSERT_EQ(uoms_PutClassText(nameOf("C", 5).c_str(), "renamed", 5), 0); // not the last
    for (int i = 299; i >= 200; --i)
        ASSERT_EQ(uoms_DeleteClass(nameOf("C", i).c_str()), 0);
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(classOf(nameOf("c", i).c_str()), i < 200 ? classes + i : 0);
        EXPECT_EQ(classOf(nameOf("LONG ", i).c_str()), i < 200 && i != 5 ? classes + i : 0);
    }
    EXPECT_EQ(classOf("Renamed"), classes + 5);
}

// Where there is nothing to read or to write to, there is an answer all the same.
TEST_F(LimitsTest, NullAndBadArguments) {
    char out[8] = "#######";
    const char *const none = nullptr;
    int32_t count = -7, pair[2] = {-7, -7};
    EXPECT_EQ("0 0 0 0 0", joined(uoms_GetClassUnitPairs(catalogue(), "Leng", "m", nullptr) != nullptr,
                                  uoms_GetClassUnitPairs(catalogue(), nullptr, "m", &count) != nullptr,
                                  uoms_GetClassUnitPairs(catalogue(), "Leng", "", &count) != nullptr,
                                  uoms_GetClassUnitPairs(catalogue(), "Leng", "lb", &count) != nullptr, count));
    EXPECT_EQ("1 1 1 2", joined(uoms_PutClassUnitPairs(catalogue(), "Leng", &none, "token", 0, out),
                                uoms_PutClassUnitPairs(catalogue(), "", &none, "token", 8, out),
                                uoms_PutClassUnitPairs(catalogue(), "Leng", nullptr, "token", 8, out),
                                uoms_PutClassUnitPairs(catalogue(), "nosuch", &none, "token", 8, out)));
    EXPECT_EQ("1 1", joined(uoms_GetClassWithBasis(catalogue(), nullptr, "Mass", 8, out),
                            uoms_GetClassWithBasis(catalogue(), "Rate", "Mass", 8, nullptr)));
    EXPECT_EQ(UOM_NULL, uoms_GetBasisWord(catalogue(), "Rate", "lb/hr", 0, out));
    EXPECT_EQ("1 1 1", joined(uoms_FormatUnits(catalogue(), nullptr, "m", "token", 8, out),
                              uoms_FormatUnits(catalogue(), "Leng", "", "token", 8, out),
                              uoms_FormatUnits(catalogue(), "Leng", "m", "token", 8, nullptr)));
    std::strcpy(out, "old");
    EXPECT_EQ("2 ", joined(uoms_GetComponentClass(catalogue(), "nosuch", 8, out), out));
    EXPECT_EQ("2 1 2 1", joined(uoms_GetComponentClass(catalogue(), nullptr, 8, out),
                                uoms_GetComponentClass(catalogue(), "Leng", 8, out),
                                uoms_GetClassDefinition(catalogue(), "Leng", 8, out),
                                uoms_GetClassDefinition(catalogue(), "nosuch", 8, out)));
    EXPECT_EQ("1 1 2", joined(uoms_GetClassStringInStyle(catalogue(), "Leng", "", 8, out),
                              uoms_GetClassStringInStyle(catalogue(), "", "token", 8, out),
                              uoms_GetClassStringInStyle(catalogue(), "nosuch", "token", 8, out)));
    EXPECT_EQ("1 1 1 1", joined(uoms_GetClassListName(catalogue(), "nosuch", 8, out),
                                uoms_GetClassListName(catalogue(), "Leng", 0, out),
                                uoms_GetClassNote(catalogue(), "nosuch", 8, out),
                                uoms_GetClassNote(catalogue(), "Leng", 8, nullptr)));
    EXPECT_EQ("1 1 1 1",
              joined(uoms_GetSetParent(catalogue(), "SI", 0, out), uoms_GetSetParent(catalogue(), "SI", 8, nullptr),
                     uoms_GetSetRoot(catalogue(), "SI", 0, out), uoms_GetSetRoot(catalogue(), "nosuch", 8, out)));
    for (const auto &ask : {uoms_GetSetParent, uoms_GetSetRoot}) { // room for the end of a text alone
        str_CopyBounded(out, sizeof out, "same");
        EXPECT_EQ(0, ask(catalogue(), "SI", 1, out));
        EXPECT_STREQ("", out);
    }
    EXPECT_EQ("0 0 0 0",
              joined(uoms_IsSetDerivedFrom(catalogue(), "", "SI"), uoms_IsSetDerivedFrom(catalogue(), "SI", nullptr),
                     uoms_IsSetDerivedFrom(catalogue(), "SI", "nosuch"),
                     uoms_IsSetDerivedFrom(catalogue(), "nosuch", "SI")));
    str_CopyBounded(out, sizeof out, "same");
    uoms_GetInheritedSetProperty(catalogue(), "GaugePresBasis", "SI", out, 0);
    EXPECT_STREQ("same", out);
    uoms_GetInheritedSetProperty(catalogue(), "isSystem", "SI", out, 8);
    EXPECT_STREQ("", out);
    EXPECT_EQ("-1 1 1", joined(uoms_PutSetBasedOn("nosuch", "SI"), uoms_ClearSet("nosuch"), uoms_ClearSet(nullptr)));
    uoms_RenameSet("SI", "Metric"), uoms_RenameSet("SI", nullptr), uoms_RenameSet("nosuch", "New");
    EXPECT_STREQ("SI", slate_Record(catalogue(), UOM_SET_SI)->name) << "the name was taken, or none at all";
    for (int32_t put = 0; put < 4; ++put) {
        double factor = 7, offset = 7;
        EXPECT_EQ(0, uom_GetConvConstants(unitOf("ft"), put & 1 ? &offset : nullptr, put & 2 ? &factor : nullptr));
        EXPECT_EQ(
            0, uoms_CalculateConvConstants("Temp", "F", "C", put & 2 ? &factor : nullptr, put & 1 ? &offset : nullptr));
        EXPECT_EQ(joined(put & 2 ? 5.0 / 9.0 : 7.0, put & 1 ? -32.0 : 7.0), joined(factor, offset));
        uom_GetClassGUIWidths(classOf("Pres"), put & 1 ? pair : nullptr, put & 2 ? pair + 1 : nullptr);
        EXPECT_EQ(joined(put & 1 ? 100 : -7, put & 2 ? 150 : -7), joined(pair[0], pair[1]));
        pair[0] = pair[1] = -7;
    }
    double value = 1;
    EXPECT_EQ("1 1 1", joined(uoms_CalculateConvConstants(nullptr, "F", "C", &value, &value),
                              uoms_CalculateConvConstants("Temp", nullptr, "C", &value, &value),
                              uoms_CalculateConvConstants("Temp", "F", nullptr, &value, &value)));
    EXPECT_EQ(1, uom_GetConvConstants(-1, &value, &value));

    // chains
    EXPECT_EQ("0 0 0", joined(uom_BuildStruct(1, nullptr, pair, nullptr) != nullptr,
                              uom_BuildStruct(1, pair, nullptr, nullptr) != nullptr,
                              uom_CreateStruct(-1, 1, nullptr) != nullptr));
    const Chain chain("Leng", "ft");
    uom_DecodeStruct(chain.head, 1, nullptr, pair);
    uom_DecodeStruct(chain.head, 1, pair, nullptr);
    uom_DecodeStruct(chain.head, 0, pair, pair + 1);
    uom_GetClasses(chain.head, 0, pair);
    uom_GetClasses(chain.head, 2, nullptr);
    EXPECT_EQ("-7 -7", joined(pair[0], pair[1])) << "nothing was written";
    uom_SetClasses(chain.head, 2, nullptr);
    EXPECT_EQ("11:ft", describeUnits(chain.head));
    EXPECT_EQ("1 1 1 1",
              joined(uom_FillStruct(nullptr, CLASS_LENG, "m", 1), uom_FillStruct(chain.head, CLASS_LENG, none, 1),
                     uom_SetClassandUnit(nullptr, CLASS_LENG, "m", 1),
                     uom_FillStruct(chain.head, CLASS_LENG, std::string(70000, 'm').c_str(), 1)));
    UomStruct added = uom_AddNewStruct(nullptr);
    EXPECT_TRUE(added && !added->next);
    uom_Free(&added);
    uom_Free(nullptr);
    EXPECT_EQ("0 0 ", joined(uom_UOMStringToStd(nullptr, "m"), uom_UOMStringToStd(out, nullptr), out));

    // texts with a length
    const int32_t one = 1;
    uoms_GetDisplayUnitsFixed("Leng", 4, "SI", 2, nullptr, nullptr, 8);
    for (const uint32_t size : {0u, 0x80000000u}) {
        str_CopyBounded(out, sizeof out, "same");
        uoms_GetDisplayUnitsFixed("Leng", 4, "SI", 2, &one, out, size);
        EXPECT_STREQ("same", out);
    }
    std::memset(out, '#', sizeof out);
    uoms_GetDisplayUnitsFixed("Leng", 4, "SI", 2, &one, out, 3);
    EXPECT_EQ("m  #", std::string(out, 4));
    uoms_ConvertArrayFixed(nullptr, &value, "Temp", 4, "F", 1, "C", 1);
    EXPECT_EQ(1, value);
    int32_t status = 9;
    uoms_SetClassDefaultFixed(nullptr, 4, "Leng", 4, "ft", 2, &status);
    EXPECT_NE(0, status);
    uom_DeleteSetFixed("nosuch", 0x7FFFFFFF, nullptr);
}

} // namespace
