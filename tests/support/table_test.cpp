// Typed tables: twelve kinds of elements, growth, removal, order, and what a table owns.
#include <algorithm>
#include <cmath>
#include <limits>

#include "support/numbers.h"
#include "support/table.h"
#include "tests/library_fixture.h"

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

UomTable *texts(std::initializer_list<const char *> values) {
    UomTable *table = tbl_Create(0, TABLE_TEXT);
    for (const char *text : values)
        EXPECT_EQ(1, tbl_PutText(table, APPEND, text));
    return table;
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
    for (const int32_t kind : {0, 1, 3, 4, 5, 6, 7, 8, 9, 10}) {
        UomTable *table = tbl_Create(1, kind); // what a kind has no room for is stored without harm
        for (const double value : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")})
            EXPECT_EQ(1, tbl_PutNumber(table, 0, value));
        tbl_Free(table);
    }
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
    const auto source_of_memory = memReallocate; // a removal asks for no new block
    memReallocate = [](void *block, size_t size) { return block ? std::realloc(block, size) : nullptr; };
    tbl_Remove(table, 1, 7);
    memReallocate = source_of_memory;
    EXPECT_EQ("rst", contentOf(table));
    tbl_Free(table);
    char **array = tbl_ToTextArray(copy);
    ASSERT_TRUE(array);
    EXPECT_STREQ("first", array[0]);
    EXPECT_NE(tbl_GetText(copy, 0), array[0]);
    tbl_FreeTextArray(array);
    EXPECT_EQ(1, tbl_Resize(copy, 0));
    EXPECT_FALSE(tbl_ToTextArray(copy));
    tbl_Free(copy);
}

TEST(SupportTable, NothingComesOfBadArguments) {
    for (const int32_t kind : {-1, 12, 1 << 30})
        EXPECT_EQ(tbl_Create(1, kind), nullptr);
    EXPECT_EQ(tbl_Copy(nullptr), nullptr);
    EXPECT_EQ(joined(tbl_Get(nullptr, 0), tbl_PutNumber(nullptr, 0, 1), tbl_Resize(nullptr, 3), tbl_Find(nullptr, 0),
                     tbl_Compare(nullptr, 1, 2), tbl_PutText(nullptr, 0, "x")),
              "0 0 0 -1 0 0");
    tbl_Store(nullptr, 0, 1, 1);
    tbl_Remove(nullptr, 0, 1);
    tbl_Insert(nullptr, 0, 1);
    tbl_Sort(nullptr);
    tbl_Free(nullptr);
    tbl_FreeTextArray(nullptr);
    UomTable *table = tbl_Create(0, TABLE_INT32);
    EXPECT_EQ(table->data, nullptr);
    tbl_Store(table, 0, 1, 1);
    tbl_Remove(table, 0, 1);
    EXPECT_EQ(joined(tbl_Find(table, 0), tbl_GetPointer(table, 0) != nullptr, tbl_ToTextArray(table) != nullptr),
              "-1 0 0");
    EXPECT_EQ(tbl_PutPointer(table, 2, 7), 1); // what is jumped over is zero
    EXPECT_EQ(contentOf(table), "0 0 7");
    EXPECT_EQ(tbl_ToTextArray(table), nullptr); // no texts
    EXPECT_EQ(tbl_Resize(table, 5), 1);
    EXPECT_EQ(tbl_Resize(table, 1), 1);
    EXPECT_EQ(joined(table->count, tbl_Get(table, 1)), "1 0");
    tbl_Free(table);
}

TEST(SupportTable, GapsAndRemovals) {
    // operation, place, how many: what is left of 1 2 3 4 5
    const char cases[] = R"(
        insert | 0 | 2 | 0 0 1 2 3 4 5; insert | 2 | 1 | 1 2 0 3 4 5; insert | 5 | 2 | 1 2 3 4 5 0 0; insert | 1 | 0 | 1 2 3 4 5
        insert | 7 | 1 | 1 2 3 4 5 0 0 0; insert | 6 | 3 | 1 2 3 0 0 0 0; insert | 6 | 99 | 0 0 0 0 0 0 0
        insert | 4294967295 | 1 | 1 2 3 4 5; insert | 0 | 4294967295 | 1 2 3 4 5
        remove | 0 | 2 | 3 4 5; remove | 1 | 1 | 1 3 4 5; remove | 3 | 99 | 1 2 3; remove | 5 | 1 | 1 2 3 4 5
        remove | 1 | 0 | 1 2 3 4 5; remove | 0 | 5 |
    )";
    for (const int32_t kind : {TABLE_INT8, TABLE_UINT16, TABLE_INT32, TABLE_INT64, TABLE_DOUBLE, TABLE_TEXT})
        expectAnswers(cases, [=](const Cells &c) {
            UomTable *table = tbl_Create(0, kind);
            for (const char *element : {"1", "2", "3", "4", "5"})
                kind == TABLE_TEXT ? tbl_PutText(table, APPEND, element) : tbl_PutNumber(table, APPEND, *element - '0');
            const uint32_t place = static_cast<uint32_t>(std::stoul(c[1])), n = static_cast<uint32_t>(std::stoul(c[2]));
            c[0] == "insert" ? tbl_Insert(table, place, n) : tbl_Remove(table, place, n);
            std::string content = contentOf(table);
            std::replace(content.begin(), content.end(), '-', '0'); // no text
            EXPECT_EQ(table->data == nullptr, table->count == 0);
            tbl_Free(table);
            return content;
        });
}

// By the width and sign of the kind, 64 bits by the low 32, floats within a millionth of the first.
TEST(SupportTable, Order) {
    const char cases[] = R"(
        0 | 1 | 2 | -1; 0 | 200 | 1 | -1; 0 | 256 | 0 | 0; 1 | 200 | 1 | 1; 1 | -1 | 255 | 0; 3 | 40000 | 1 | -1; 3 | 5 | 5 | 0
        4 | 40000 | 1 | 1; 4 | 65536 | 0 | 0; 5 | -1 | 1 | -1; 5 | 7 | 7 | 0; 6 | -1 | 1 | 1; 6 | 1 | 2 | -1
        7 | -1 | 1 | -1; 7 | 4294967296 | 0 | 0; 7 | 4294967295 | 0 | -1; 8 | 4294967295 | 0 | 1; 8 | 4294967296 | 1 | -1
        11 | 4294967297 | 1 | 0; 11 | 2147483648 | 1 | 1; 9 | 1 | 1.0000001 | 0; 9 | 1 | 1.00001 | -1; 9 | 1e-7 | 2e-7 | 0
        9 | 1e-7 | 1 | -1; 9 | 2 | -2 | 1; 10 | 1 | 1.0000001 | 0; 10 | 1 | 1.000002 | -1; 10 | 1e-16 | 0 | 0
        10 | 2 | 1 | 1; 10 | 100 | 100.0001 | -1; 10 | 100 | 100.00009 | 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomTable *table = tbl_Create(0, std::stoi(c[0]));
        const int32_t order = tbl_Compare(table, std::stod(c[1]), std::stod(c[2]));
        tbl_Free(table);
        return joined(order);
    });
    UomTable *table = texts({"b", nullptr, "a", "B", ""});
    const auto address = [&](uint32_t i) {
        return static_cast<double>(reinterpret_cast<uintptr_t>(tbl_GetText(table, i)));
    };
    const auto order = [&](uint32_t a, uint32_t b) { return tbl_Compare(table, address(a), address(b)); };
    EXPECT_EQ(joined(order(0, 2), order(2, 0), order(0, 0), order(0, 3), order(1, 4), order(4, 1), order(1, 1)),
              "1 -1 0 1 -1 1 0");
    EXPECT_EQ(joined(tbl_Find(table, address(2)), tbl_Find(table, 0.0)), "2 1");
    tbl_Free(table);
    table = tbl_Create(0, TABLE_DOUBLE);
    for (const double value : {5.0, 3.0, 3.0000001})
        tbl_PutNumber(table, APPEND, value);
    EXPECT_EQ(joined(tbl_Find(table, 3.0000001), tbl_Find(table, 4)), "1 -1");
    tbl_Free(table);
}

// Any order of any count, so that each step of the series of gaps is seen.
TEST(SupportTable, SortsAnyOrder) {
    uint32_t random = 1;
    for (uint32_t count = 0; count < 60; ++count) {
        UomTable *table = tbl_Create(0, UOM_KIND_INT32);
        std::vector<int32_t> values;
        for (uint32_t i = 0; i < count; ++i) {
            random = random * 1664525u + 1013904223u;
            values.push_back(static_cast<int32_t>(random >> 16) - static_cast<int32_t>(count * 100));
            tbl_PutNumber(table, UOM_APPEND, values.back());
        }
        tbl_Sort(table);
        std::sort(values.begin(), values.end());
        for (uint32_t i = 0; i < count; ++i)
            ASSERT_EQ(values[i], tbl_Get(table, i)) << i << " of " << count;
        tbl_Free(table);
    }
    UomTable *two = tbl_Create(0, UOM_KIND_INT32);
    tbl_PutNumber(two, UOM_APPEND, 2);
    tbl_PutNumber(two, UOM_APPEND, 1);
    tbl_Sort(two);
    EXPECT_EQ(1, tbl_Get(two, 0));
    tbl_Free(two);
}

TEST(SupportTable, Sorts) {
    for (const uint32_t count : {0u, 1u, 2u, 19u, 20u, 41u, 42u, 122u, 400u})
        for (const int32_t kind : {TABLE_INT16, TABLE_DOUBLE, TABLE_TEXT}) {
            UomTable *table = tbl_Create(0, kind);
            std::vector<std::string> expected;
            for (uint32_t i = 0; i < count; ++i) {
                const uint32_t number = 1000 + i * 7919 % 401;
                kind == TABLE_TEXT ? tbl_PutText(table, APPEND, std::to_string(number).c_str())
                                   : tbl_PutNumber(table, APPEND, number);
                expected.push_back(std::to_string(number));
            }
            std::sort(expected.begin(), expected.end());
            std::string text;
            for (const std::string &number : expected)
                text += (text.empty() ? "" : " ") + number;
            tbl_Sort(table);
            EXPECT_EQ(contentOf(table), text) << "kind " << kind;
            tbl_Free(table);
        }
}

// Blocks that a table owns go when their element is replaced, cut off or freed; a copy shares them.
TEST(SupportTable, OwnsItsPointers) {
    const auto block = [] { return reinterpret_cast<uintptr_t>(mem_NewArray<char>(8)); };
    UomTable *table = tbl_Create(0, TABLE_OWNED);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(tbl_PutPointer(table, APPEND, block()), 1);
    UomTable *copy = tbl_Copy(table);
    EXPECT_EQ(tbl_GetPointer(copy, 1), tbl_GetPointer(table, 1));
    EXPECT_EQ(tbl_Resize(copy, 0), 1) << "frees them: one of the two alone may";
    tbl_Free(copy);
    std::memset(table->data, 0, 32);
    const auto freedBy = [&](const std::function<void()> &act) {
        const int32_t before = mem_Counters().frees;
        act();
        return mem_Counters().frees - before;
    };
    for (uint32_t i = 0; i < 4; ++i)
        EXPECT_EQ(freedBy([&] { tbl_PutPointer(table, i, block()); }), 0);
    void *const first = tbl_GetPointer(table, 0);
    EXPECT_EQ(freedBy([&] { tbl_PutPointer(table, 0, reinterpret_cast<uintptr_t>(first)); }), 0) << "the same again";
    EXPECT_EQ(freedBy([&] { tbl_PutPointer(table, 1, block()); }), 1);
    EXPECT_EQ(freedBy([&] { tbl_Store(table, 0, 0.0, 0); }), 0);
    mem_Free(first);
    EXPECT_EQ(freedBy([&] { tbl_Remove(table, 1, 1); }), 1);
    EXPECT_EQ(freedBy([&] { tbl_Resize(table, 2); }), 2) << "the element, and the block for a smaller one";
    EXPECT_EQ(freedBy([&] { tbl_Free(table); }), 3);
}

} // namespace
