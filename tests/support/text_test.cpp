// Bounded writing, blank trimming, token cutting, checked memory.
#include "support/text.h"

#include "catalogue/state.h"
#include "tests/support_fixture.h"

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
    for (const size_t bad : {size_t{0}, size_t{0x80000000}}) {
        char out[3][8] = {"keep", "keep", "keep"};
        EXPECT_NE(0, str_CopyBounded(out[0], bad, "abc"));
        EXPECT_NE(0, str_AppendBounded(out[1], bad, "abc"));
        EXPECT_NE(0, str_FormatBounded(out[2], bad, "abc"));
        for (const char *text : out)
            EXPECT_STREQ(bad == 0 ? "keep" : "", text);
    }
    char out[8] = "abc";
    EXPECT_NE(0, str_AppendBounded(out, 3, "x")); // no end within the size
    EXPECT_STREQ("abc", out);
    EXPECT_EQ(0, str_CopyBounded(out, 8, static_cast<const char *>(nullptr)));
    EXPECT_STREQ("", out);
    EXPECT_NE(0, str_CopyBounded(nullptr, 4, "abc"));
}

TEST(SupportText, WriterCountsWhatItWanted) {
    expectAnswers("1 | 5; 2 | 5 a; 5 | 5 abcd; 6 | 5 abcde; 7 | 5 abcde\n", [](const Cells &c) {
        char out[8] = "#######";
        TextWriter writer(out, std::stoul(c[0]));
        str_Write(writer, "abc");
        str_Write(writer, 'd');
        str_Write(writer, "e");
        return joined(writer.wanted, out);
    });
}

TEST(SupportText, TrimsBlanks) {
    const char cases[] = R"(
        | [] []; ~\t | [] []; a~\t\n | [a] [a~\t\n]; a\r | [a\r] [a\r]; a~\r\n | [a~\r] [a~\r\n]
        \t~a~b | [\t~a~b] [a~b]; \n~a | [\n~a] [\n~a]; \n | [] [\n]
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
        char *const end = text + std::strlen(text), *rest = text;
        std::string tokens;
        while (char *token = str_NextToken(rest, c[1].c_str())) {
            tokens += "[" + std::string(token) + "]";
            rest = str_BehindToken(token, std::strlen(token), end);
        }
        return tokens;
    });
    EXPECT_FALSE(str_NextToken(nullptr, " "));
    char text[] = "a";
    EXPECT_FALSE(str_NextToken(text, nullptr));
}

TEST(SupportText, ComparesWithoutCase) {
    EXPECT_TRUE(str_EqualNoCase("kPa", "KPA"));
    EXPECT_FALSE(str_EqualNoCase("kPa", "kPag"));
    EXPECT_FALSE(str_EqualNoCase("[", "{")); // neighbours of the letters
    EXPECT_FALSE(str_EqualNoCase("@", "`"));
    EXPECT_FALSE(str_EqualNoCase("\xC4", "\xE4")); // letters of ASCII alone
    const char *none = nullptr;
    EXPECT_FALSE(str_EqualNoCase(none, none));
    EXPECT_TRUE(str_StartsNoCase("MMBTU/hr", "mmbtu"));
    EXPECT_FALSE(str_StartsNoCase("MM", "MMB"));
    char packed[8];
    EXPECT_EQ(4u, str_RemoveBlanks(packed, sizeof packed, " in H g "));
    EXPECT_EQ(1u, str_RemoveBlanks(packed, 2, "a b"));
    EXPECT_STREQ("a", packed);
}

TEST(SupportText, MemoryHelpersCountAndReport) {
    const MemoryCounters before = memCounters;
    void *block = &block, *made;
    EXPECT_EQ(0, mem_Calloc(&block, 0, 8));
    EXPECT_FALSE(block);
    EXPECT_EQ(1, mem_Calloc(&block, SIZE_MAX / 2, 4));
    EXPECT_EQ(0, mem_Calloc(&block, 2, 4));
    EXPECT_EQ(0, mem_Realloc(&block, 64)); // the slot was filled
    EXPECT_EQ(before.allocations, memCounters.allocations);
    mem_Free(block);
    mem_Free(nullptr);
    EXPECT_EQ(before.frees + 1, memCounters.frees);
    block = nullptr;
    EXPECT_EQ(0, mem_Realloc(&block, 8));
    EXPECT_EQ(before.allocations + 1, memCounters.allocations);
    char *text = nullptr;
    EXPECT_EQ(0, mem_ReplaceText(&text, "inside"));
    EXPECT_EQ(0, mem_ReplaceText(&text, text + 2)); // a part of what it replaces
    EXPECT_STREQ("side", text);
    {
        const FailingMemory memory(0, true);
        void *const old = block;
        EXPECT_EQ(1, mem_Realloc(&block, 1000));
        EXPECT_EQ(old, block);
        EXPECT_EQ(1, mem_Malloc(&made, 8));
        EXPECT_FALSE(made);
        EXPECT_EQ(11, mem_ReplaceText(&text, "x"));
        EXPECT_FALSE(text);
        EXPECT_EQ(11, mem_DupText(&text, "x"));
        EXPECT_EQ(0, mem_DupText(&text, nullptr));
    }
    mem_Free(block);
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
