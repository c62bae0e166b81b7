// Typed tables: twelve kinds of elements, growth, removal, order, and what a table owns.
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

} // namespace
