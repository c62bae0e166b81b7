// Bounded writing, blank trimming, token cutting, checked memory.
#include "support/text.h"

#include "catalogue/state.h"
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
