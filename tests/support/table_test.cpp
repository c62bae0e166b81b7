// Typed tables: twelve kinds of elements, growth, removal, order, and what a table owns.
#include <cmath>
#include <limits>

#include "support/numbers.h"
#include "support/table.h"
#include "tests/support_fixture.h"

namespace {

constexpr uint32_t APPEND = 0xFFFFFFFF;

std::string contentOf(const UomTable *table) {
    std::string text;
    for (uint32_t i = 0; i < table->count; ++i) {
        const char *const element = table->kind == TABLE_TEXT ? tbl_GetText(table, i) : "";
        text += i ? " " : "";
        text += table->kind != TABLE_TEXT ? std::to_string(static_cast<long long>(tbl_Get(table, i)))
                : element                 ? element
                                          : "-";
    }
    return text;
}

UomTable *numbers(std::initializer_list<double> values) {
    UomTable *table = tbl_Create(0, TABLE_INT32);
    for (const double value : values)
        EXPECT_EQ(1, tbl_PutNumber(table, APPEND, value));
    return table;
}

UomTable *texts(std::initializer_list<const char *> values) {
    UomTable *table = tbl_Create(0, TABLE_TEXT);
    for (const char *text : values)
        EXPECT_EQ(1, tbl_PutText(table, APPEND, text));
    return table;
}

uint32_t unsignedOf(const std::string &text) {
    return text == "all" ? APPEND : static_cast<uint32_t>(std::stoul(text));
}

TEST(SupportTable, EveryKindHoldsItsElements) {
    // kind and what is put in the middle: width, and what is read
    const char cases[] = R"(
        0 | 200 | 1: 0 -56 0 0; 0 | -1.9 | 1: 0 -1 0 0; 1 | 200 | 1: 0 -56 0 0; 1 | 127 | 1: 0 127 0 0
        3 | 40000 | 2: 0 -25536 0 0; 4 | 32768 | 2: 0 -32768 0 0; 4 | 300.7 | 2: 0 300 0 0; 5 | -7 | 4: 0 -7 0 0
        6 | 5 | 4: 0 5 0 0; 6 | 4294967295 | 4: 0 -1 0 0; 7 | -1e15 | 8: 0 -1e+15 0 0; 8 | 1e15 | 8: 0 1e+15 0 0
        9 | 0.1 | 4: 0 0.10000000149 0 0; 10 | 1e300 | 8: 0 1e+300 0 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomTable *table = tbl_Create(3, std::stoi(c[0]));
        EXPECT_EQ(1, tbl_PutNumber(table, 1, std::stod(c[1])));
        std::ostringstream text;
        text.precision(12);
        text << table->width << ":";
        for (uint32_t i = 0; i < 4; ++i)
            text << " " << tbl_Get(table, i);
        tbl_Free(table);
        return text.str();
    });
    EXPECT_FALSE(tbl_Create(1, 12));
    EXPECT_FALSE(tbl_Create(1, -1));
    for (const int32_t kind : {0, 1, 3, 4, 5, 6, 7, 8, 9, 10}) {
        UomTable *table = tbl_Create(1, kind); // what a kind has no room for is stored without harm
        for (const double value : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")})
            EXPECT_EQ(1, tbl_PutNumber(table, 0, value));
        tbl_Free(table);
    }
}

TEST(SupportTable, PutsAppendReplaceAndJump) {
    UomTable *table = tbl_Create(0, TABLE_UINT64);
    EXPECT_FALSE(table->data);
    int record = 0;
    EXPECT_EQ(1, tbl_PutPointer(table, APPEND, reinterpret_cast<uintptr_t>(&record)));
    EXPECT_EQ(1, tbl_PutPointer(table, 11, reinterpret_cast<uintptr_t>(&record)));
    EXPECT_EQ(12u, table->count);
    for (uint32_t i = 0; i < 13; ++i)
        EXPECT_EQ(i == 0 || i == 11 ? &record : nullptr, tbl_GetPointer(table, i));
    EXPECT_EQ(1, tbl_Resize(table, 1));
    EXPECT_EQ(1, tbl_Resize(table, 12)); // what was cut off does not come back
    EXPECT_FALSE(tbl_GetPointer(table, 11));
    EXPECT_EQ(1, tbl_Resize(table, 0));
    EXPECT_FALSE(table->data);
    tbl_Free(table);
}

TEST(SupportTable, RemovesAndInserts) {
    const char cases[] = R"(
        0 | 1 | 2 3 4 5 9; 1 | 2 | 1 4 5 9; 4 | 1 | 1 2 3 4 9; 3 | 100 | 1 2 3 9; 3 | 4 | 1 2 3 9; 5 | 1 | 1 2 3 4 5 9
        2 | 0 | 1 2 3 4 5 9; 1 | all | 1 9; 0 | 5 | 9
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomTable *table = numbers({1, 2, 3, 4, 5});
        tbl_Remove(table, unsignedOf(c[0]), unsignedOf(c[1]));
        EXPECT_EQ(table->count == 0, table->data == nullptr);
        EXPECT_EQ(1, tbl_PutNumber(table, APPEND, 9)); // also behind the last one
        const std::string left = contentOf(table);
        tbl_Free(table);
        return left;
    });
    const char moreCases[] = R"(
        0 | 2 | 0 0 1 2 3; 1 | 1 | 1 0 2 3; 3 | 2 | 1 2 3 0 0; 1 | 0 | 1 2 3; 5 | 2 | 1 2 3 0 0 0; 4 | 2 | 1 2 0 0 0
    )";
    expectAnswers(moreCases, [](const Cells &c) {
        UomTable *table = numbers({1, 2, 3});
        tbl_Insert(table, unsignedOf(c[0]), unsignedOf(c[1]));
        const std::string whole = contentOf(table);
        tbl_Free(table);
        return whole;
    });
}

TEST(SupportTable, OwnsItsTexts) {
    char source[] = "first";
    UomTable *table = texts({source, "second", "third"});
    source[0] = 'F';
    UomTable *copy = tbl_Copy(table);
    EXPECT_NE(tbl_GetText(table, 0), tbl_GetText(copy, 0));
    EXPECT_EQ(1, tbl_PutText(table, 0, tbl_GetText(table, 0) + 2)); // a part of the text that it replaces
    EXPECT_EQ(1, tbl_PutText(table, 4, "fifth"));
    EXPECT_EQ("rst second third - fifth", contentOf(table));
    tbl_Remove(table, 1, 7);
    EXPECT_EQ("rst", contentOf(table));
    tbl_Free(table);
    EXPECT_EQ(1, tbl_PutText(copy, 1, nullptr));
    EXPECT_EQ("first - third", contentOf(copy));
    char **array = tbl_ToTextArray(copy);
    ASSERT_TRUE(array);
    EXPECT_STREQ("first", array[0]);
    EXPECT_NE(tbl_GetText(copy, 0), array[0]);
    tbl_FreeTextArray(array);
    EXPECT_EQ(1, tbl_Resize(copy, 0));
    EXPECT_FALSE(tbl_ToTextArray(copy));
    tbl_Free(copy);
    table = numbers({0});
    EXPECT_FALSE(tbl_ToTextArray(table));
    tbl_Free(table);
}

TEST(SupportTable, CopiesShareOwnedPointers) {
    void *block = nullptr;
    ASSERT_EQ(0, mem_Malloc(&block, 8));
    UomTable *table = tbl_Create(2, TABLE_OWNED);
    EXPECT_EQ(1, tbl_PutPointer(table, 1, reinterpret_cast<uintptr_t>(block)));
    UomTable *copy = tbl_Copy(table);
    EXPECT_EQ(block, tbl_GetPointer(copy, 1));
    tbl_Store(table, 1, 0.0, 0); // without ownership nothing is freed
    tbl_Free(table);
    const int32_t frees = memCounters.frees;
    EXPECT_EQ(1, tbl_PutNumber(copy, 1, 0.0));
    EXPECT_EQ(frees + 1, memCounters.frees);
    tbl_Free(copy);
}

TEST(SupportTable, ComparesByKind) {
    num_InitConstants();
    const char cases[] = R"(
        0 | 200 | 1 | -1; 1 | 200 | 1 | 1; 3 | 40000 | 1 | -1; 4 | 40000 | 1 | 1; 5 | -1 | 1 | -1
        6 | 4294967295 | 1 | 1; 7 | -1 | 1 | -1; 7 | 4294967296 | 0 | 0; 8 | 4294967297 | 1 | 0
        11 | 3 | 4294967298 | 1; 9 | 1 | 1.00000001 | 0; 9 | 2 | 1 | 1; 10 | 100 | 100.00005 | 0
        10 | 100 | 100.001 | -1; 10 | 0 | 1e-16 | 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomTable *table = tbl_Create(0, std::stoi(c[0]));
        const int32_t order = tbl_Compare(table, std::stod(c[1]), std::stod(c[2]));
        tbl_Free(table);
        return joined(order);
    });
    UomTable *table = numbers({5, 7, 7, 9});
    EXPECT_EQ(1, tbl_Find(table, 7));
    EXPECT_EQ(-1, tbl_Find(table, 8));
    tbl_Free(table);
}

TEST(SupportTable, SortsUpwards) {
    for (const uint32_t count : {0u, 1u, 2u, 19u, 20u, 41u, 42u, 500u}) {
        UomTable *table = tbl_Create(count, TABLE_INT32);
        std::vector<double> expected, sorted;
        for (uint32_t i = 0; i < count; ++i) {
            expected.push_back((i * 7919) % 101);
            tbl_PutNumber(table, i, expected.back());
        }
        std::sort(expected.begin(), expected.end());
        tbl_Sort(table);
        for (uint32_t i = 0; i < count; ++i)
            sorted.push_back(tbl_Get(table, i));
        EXPECT_EQ(expected, sorted);
        tbl_Free(table);
    }
    UomTable *table = texts({"b", "B", "", "ab", "a"});
    tbl_Sort(table);
    EXPECT_EQ(" B a ab b", contentOf(table));
    tbl_Free(table);
}

TEST(SupportTable, TakesNoTable) {
    tbl_Free(nullptr);
    tbl_FreeTextArray(nullptr);
    EXPECT_FALSE(tbl_Copy(nullptr));
    EXPECT_EQ(0.0, tbl_Get(nullptr, 0));
    EXPECT_FALSE(tbl_GetText(nullptr, 0));
    tbl_Store(nullptr, 0, 1, 1);
    EXPECT_EQ(0, tbl_PutText(nullptr, 0, "x"));
    EXPECT_EQ(0, tbl_Resize(nullptr, 1));
    tbl_Remove(nullptr, 0, 1);
    tbl_Insert(nullptr, 0, 1);
    tbl_Sort(nullptr);
    EXPECT_EQ(-1, tbl_Find(nullptr, 0));
    EXPECT_FALSE(tbl_ToTextArray(nullptr));
}

TEST(SupportTable, StaysWholeWhenMemoryIsExhausted) {
    UomTable *table = texts({"one", "two"});
    failEachAllocation([&](int place, bool lasting, bool *reached) {
        int32_t appended, jumped, replaced;
        UomTable *copy, *made;
        char **array;
        {
            const FailingMemory memory(place, lasting);
            appended = tbl_PutText(table, APPEND, "three");
            jumped = tbl_Resize(table, 5);
            replaced = tbl_PutText(table, 0, "uno");
            copy = tbl_Copy(table);
            made = tbl_Create(4, TABLE_DOUBLE);
            array = tbl_ToTextArray(table);
            *reached = FailingMemory::reached();
        }
        EXPECT_EQ(!*reached, appended && jumped && replaced && copy && made && array);
        EXPECT_EQ(jumped ? 5u : 2u + static_cast<uint32_t>(appended), table->count);
        EXPECT_STREQ(replaced ? "uno" : "one", tbl_GetText(table, 0));
        EXPECT_STREQ("two", tbl_GetText(table, 1));
        EXPECT_TRUE(!copy || contentOf(table) == contentOf(copy));
        tbl_FreeTextArray(array);
        tbl_Free(made);
        tbl_Free(copy);
        tbl_Resize(table, 2);
        tbl_PutText(table, 0, "one");
    });
    tbl_Free(table);
}

} // namespace
