// Bounded writing, blank trimming, token cutting, checked memory.
#include "support/text.h"

#include "api/state.h"
#include "tests/library_fixture.h"

namespace {

TEST(SupportText, WritesWithinTheSize) {
    // size, what the buffer holds, source: the copy, the text behind what it held, and the formatted source
    const char cases[] = R"(
        1 | | abc | [][][]; 2 | | abc | [a][a][a]; 3 | | abc | [ab][ab][ab]; 4 | | abc | [abc][abc][abc]
        7 | | | [][][]; 4 | ab | cd | [cd][abc][cd]; 4 | abc | x | [x][abc][x]; 5 | abc | x | [x][abcx][x]
    )";
    expectAnswers(cases, [](const Cells &c) {
        const size_t size = std::stoul(c[0]);
        std::string all;
        for (int way = 0; way < 3; ++way) {
            char out[8] = "";
            std::memcpy(out, c[1].c_str(), c[1].size());
            std::memset(out + size, '#', 8 - size);
            EXPECT_EQ(0, way == 0   ? str_CopyBounded(out, size, c[2].c_str())
                         : way == 1 ? str_AppendBounded(out, size, c[2].c_str())
                                    : str_FormatBounded(out, size, "%s", c[2].c_str()));
            for (size_t i = size; i < 8; ++i)
                EXPECT_EQ('#', out[i]) << "written behind the size";
            all += "[" + std::string(out) + "]";
        }
        return all;
    });
}

TEST(SupportText, RefusesBadSizes) {
    char out[4] = "abc";
    for (const auto write : {0, 1, 2}) {
        const auto status = [&](char *to, size_t size) {
            return write == 0   ? str_CopyBounded(to, size, "x")
                   : write == 1 ? str_AppendBounded(to, size, "x")
                                : str_FormatBounded(to, size, "x");
        };
        EXPECT_EQ("1 1", joined(status(nullptr, 4), status(nullptr, 0)));
        str_CopyBounded(out, sizeof out, "abc");
        EXPECT_EQ("1 abc", joined(status(out, 0), out));
        EXPECT_EQ("1 ", joined(status(out, 0x80000000), out));
        EXPECT_EQ("0 x", joined(status(out, 0x7FFFFFFF), out));
    }
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(1, str_AppendBounded(out, sizeof out, "x")) << "without an end there is nothing to append to";
    EXPECT_EQ('#', out[3]);
    EXPECT_EQ(0, str_CopyBounded(out, sizeof out, static_cast<const char *>(nullptr)));
    EXPECT_STREQ("", out);
    EXPECT_EQ("3 abc", joined(str_RemoveBlanks(out, sizeof out, " a b  c d"), out));
}

TEST(SupportText, WriterTellsWhatItWants) {
    char out[4];
    TextWriter writer(out, sizeof out);
    str_Write(writer, "ab");
    str_WriteBounded(writer, "cdef");
    EXPECT_EQ("4 abc", joined(writer.wanted, out)) << "of a long text no more is looked at than there is room";
    str_Write(writer, 'x');
    EXPECT_EQ("5 abc", joined(writer.wanted, out));
    TextWriter nothing(nullptr, 0);
    str_Write(nothing, "ab");
    str_WriteBounded(nothing, "cd");
    EXPECT_EQ(2u, nothing.wanted);
}

TEST(SupportText, ComparesWithoutCase) {
    const char cases[] = R"(
        abc | ABC | 1 1; abc | ab | 0 1; ab | abc | 0 0; a[ | A{ | 0 0; | | 1 1; a@ | a` | 0 0; Zz | zZ | 1 1
    )";
    expectAnswers(cases,
                  [](const Cells &c) { return joined(str_EqualNoCase(c[0], c[1]), str_StartsNoCase(c[0], c[1])); });
}

TEST(SupportText, MemoryIsCheckedAndCounted) {
    const auto before = mem_Counters();
    void *block = &block;
    EXPECT_EQ("0 0", joined(mem_Calloc(&block, 0, 8), block));
    block = &block;
    EXPECT_EQ("1 0", joined(mem_Calloc(&block, SIZE_MAX / 2, 3), block)) << "the product would overflow";
    EXPECT_EQ(0, mem_Realloc(&block, 8));
    EXPECT_EQ(0, mem_Realloc(&block, 0));
    EXPECT_TRUE(block) << "of no size, but a block";
    mem_Free(block);
    char *copy = nullptr;
    EXPECT_EQ(0, mem_DupText(&copy, "text"));
    const char *slot = copy;
    EXPECT_EQ(0, mem_ExchangeText(&slot, "other"));
    EXPECT_STREQ("other", slot);
    memReallocate = [](void *, size_t) -> void * { return nullptr; };
    EXPECT_EQ("11 other", joined(mem_ExchangeText(&slot, "third"), slot)) << "kept when there is no memory";
    block = nullptr;
    EXPECT_EQ("1 1", joined(mem_Realloc(&block, 1), mem_Calloc(&block, 1, 1)));
    EXPECT_EQ(11, mem_ReplaceText(&slot, "third"));
    EXPECT_FALSE(slot) << "gone when there is no memory";
    memReallocate = std::realloc;
    EXPECT_EQ(0, mem_ReplaceText(&slot, nullptr));
    EXPECT_EQ(joined(3, 3, 4), joined(mem_Counters().allocations - before.allocations,
                                      mem_Counters().frees - before.frees, mem_Counters().failures - before.failures));
}

TEST(SupportText, TrimsBlanks) {
    const char cases[] = R"(
        | [] []; ~\t | [] []; a~\t\n | [a] [a~\t\n]; a\r | [a\r] [a\r]; a~\r\n | [a~\r] [a~\r\n]
        ~a | [~a] [a]; \t~a~b | [\t~a~b] [a~b]; \n~a | [\n~a] [\n~a]; \n | [] [\n]
    )";
    expectAnswers(cases, [](const Cells &c) {
        char right[16], left[16];
        str_CopyBounded(right, sizeof right, c[0].c_str());
        str_CopyBounded(left, sizeof left, c[0].c_str());
        return "[" + std::string(str_TrimRight(right)) + "] [" + str_TrimLeft(left) + "]";
    });
    EXPECT_FALSE(str_TrimLeft(nullptr));
}

TEST(SupportText, CutsTokens) {
    const char cases[] = R"(
        |~| ; ~~~|~| ; a|| ; a~b|~|[a][b]; ~,a,,~b\t|,~\t|[a][b]; 'two~words'~rest|~|[two~words][rest]
        "it's,~one",next|,~|[it's,~one][next]; 'say~"x"'|~|[say~"x"]; a'b~c'|~|[a'b][c']; 'open~end|~|[open~end]
        'a''b'|~|[a][b]; ''~x|~|[][x]; x~'|~|[x][]; key=value~more|=~|[key][value][more]
    )";
    expectAnswers(cases, [](const Cells &c) {
        char text[32];
        str_CopyBounded(text, sizeof text, c[0].c_str());
        char *rest = text;
        std::string tokens;
        while (char *token = str_CutToken(rest, c[1].c_str(), &rest))
            tokens += "[" + std::string(token) + "]";
        return tokens;
    });
    EXPECT_FALSE(str_NextToken(nullptr, " "));
    char text[] = "a";
    EXPECT_FALSE(str_NextToken(text, nullptr));
}

TEST(SupportText, MessagesAreCutAtTheirSize) {
    error_Set("%s", std::string(10000, 'x').c_str());
    EXPECT_EQ(511u, std::strlen(uom_GetLastErrorMessage()));
    error_Set("again: %s", uom_GetLastErrorMessage()); // out of the text that stands there
    EXPECT_EQ("again: xxx", std::string(uom_GetLastErrorMessage()).substr(0, 10));
    error_Clear();
    EXPECT_STREQ("", uom_GetLastErrorMessage());
}

} // namespace
