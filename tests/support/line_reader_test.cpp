// The line reader: lines, statements, tokens and the conditional language.
#include "support/line_reader.h"

#include "support/table.h"
#include "tests/library_fixture.h"

namespace {

class LineReader : public testing::Test {
protected:
    // The statements of a text, each as its tokens in brackets behind the number of the line, and in the end what
    // the preprocessor has to say.
    static std::string statementsOf(const std::string &text, int32_t lineSize = 0, int32_t maxTokens = 0,
                                    const char *delimiters = nullptr) {
        std::string all;
        Preprocessor preprocessor;
        preprocessor.definedNames = LibraryTest::tableOf({"KNOWN"});
        TokenReader *const reader = reader_Create(lineSize, maxTokens, delimiters, preprocessor);
        const std::string path = testing::TempDir() + "uom_lines_" + std::to_string(getpid()) + ".txt";
        std::ofstream(path, std::ios::binary) << text;
        FILE *const file = std::fopen(path.c_str(), "r");
        while (file && reader_Next(reader, file, 1) == 0) {
            all += std::to_string(reader->lineNumber) + ":";
            for (int32_t i = 1; i <= reader->tokenCount; ++i)
                all += "[" + std::string(reader_Token(reader, i)) + "]";
            all += " ";
        }
        char error[64] = "";
        if (reader_GetError(preprocessor, error, sizeof error) == 1)
            all += error;
        EXPECT_EQ(reader_GetError(preprocessor, error, sizeof error), 0);
        EXPECT_STREQ(error, "no preprocessor errors found");
        if (file)
            std::fclose(file);
        std::remove(path.c_str());
        reader_Free(reader);
        tbl_Free(preprocessor.definedNames);
        return all;
    }
};

TEST_F(LineReader, StatementsAndTokens) {
    // A ";" stands as "!" in front of the cases, which are parted by it.
    const char cases[] = R"(
        a,b:c  d\n | 1:[a][b][c][d]; a b!c\nd\n | 1:[a][b] 1:[c] 2:[d]; a // b\n// c\nd\n | 1:[a] 2: 3:[d]
        a "b, c! // d" e\n | 1:[a][b, c! // d][e]; "a\\"b\\\\c\\d" ""\n | 1:[a"b\\c\\d][]
        a \\\nb\nc\n | 2:[a][b] 3:[c]; a\\\\\nb\n | 1:[a\\\\] 2:[b]; a/b\n | 1:[a/b]; a | 1:[a]; a \\\n |
        \\\nb\n | 2:[b]; a"b c"d\n | 1:[a][b c][d]; a\\b\n | 1:[a\\b]; "a\\\nb" | 2:[ab]
    )";
    expectAnswers(cases, [](const Cells &c) {
        std::string text = c[0];
        std::replace(text.begin(), text.end(), '!', ';');
        std::string all = statementsOf(text);
        std::replace(all.begin(), all.end(), ';', '!');
        return all;
    });
    EXPECT_EQ(statementsOf("a b c d\n", 0, 2), "1:[a][b] ") << "further tokens are dropped";
    EXPECT_EQ(statementsOf("a b;c\n", 0, 0, "b"), "1:[a ] 1:[c] ");
    EXPECT_EQ(statementsOf("abcdefgh\n", 5), "1:[abcd] 2:[efgh] 3: ");
    EXPECT_EQ(statementsOf("ab\\\n\\\nc\nd\n", 6), "3:[abc] 4:[d] ") << "continued to the last place";
}

TEST_F(LineReader, ConditionsOfTheText) {
    const char cases[] = R"(
        #IFDEF KNOWN\na\n#ELSE\nb\n#ENDIF\nc\n | 2:[a] 6:[c]; #ifdef known\na\n#Else\nb\n#endif\nc\n | 4:[b] 6:[c]
        #IFDEF X\na\n#ENDIF\nb\n | 4:[b]; #DEFINE X\n#IFDEF X\na\n#ENDIF\n | 3:[a]; #DEFINE X Y\na\n | 1:[#DEFINE][X][Y] 2:[a]
        #IFDEF X\n#IFDEF KNOWN\na\n#ELSE\nb\n#ENDIF\n#ELSE\nc\n#ENDIF\nd\n | 8:[c] 10:[d]
        #IFDEF KNOWN\n#ELSE\n#IFDEF X\n#ELSE\na\n#ENDIF\nb\n#ENDIF\nc\n | 9:[c]
        a\n#ENDIF\n | 1:[a] (line 2) #endif directive without a matching #ifdef found
        #ELSE\n | (line 1) #else directive without a matching #ifdef found
        #IFDEF X\n#ELSE\na\n#ELSE\n | 3:[a] (line 4) #else directive without a matching #ifdef found
        #IFDEF X\na\n | #ifdef directive without a matching #endif found
        #IFDEF KNOWN\na\n | 2:[a] #ifdef directive without a matching #endif found
    )";
    expectAnswers(cases, [](const Cells &c) { return statementsOf(c[0]); });
    std::string deep;
    for (int i = 0; i < 31; ++i)
        deep += "#IFDEF KNOWN\n";
    std::string closed = deep + "a\n";
    for (int i = 0; i < 31; ++i)
        closed += "#ENDIF\n";
    EXPECT_EQ(statementsOf(closed), "32:[a] ");
    EXPECT_EQ(statementsOf(deep + "#IFDEF KNOWN\n"), "(line 32) Maxinum #ifdef nesting level of 32 reached");
}

TEST_F(LineReader, TokensByPosition) {
    Preprocessor preprocessor;
    TokenReader *const reader = reader_Create(16, 0, nullptr, preprocessor);
    EXPECT_EQ(reader_SplitText(reader, "2.5 -7x \"a\nb\" cut off here"), 0);
    EXPECT_EQ(joined(reader->tokenCount, reader_Token(reader, 3), reader_Token(reader, 4)), "4 a\nb c");
    EXPECT_EQ(joined(reader_TokenDouble(reader, 1), reader_TokenInt(reader, 1), reader_TokenInt(reader, 2)),
              "2.5 2 -7");
    for (const int32_t outside : {0, -1, 5}) {
        char out[4] = "#";
        reader_TokenText(reader, outside, out, sizeof out);
        EXPECT_EQ(joined(reader_TokenDouble(reader, outside), reader_TokenInt(reader, outside), out), "0 0 ");
        EXPECT_FALSE(reader_Token(reader, outside) || reader_TokenCopy(reader, outside));
    }
    char out[4] = "###";
    reader_TokenText(reader, 1, out, 3);
    EXPECT_STREQ(out, "2.");
    char *const copy = reader_TokenCopy(reader, 1);
    EXPECT_STREQ(copy, "2.5");
    mem_Free(copy);
    for (const auto &[delimiters, count] : {std::pair{"x", 2}, {nullptr, 1}, {"", 1}}) {
        EXPECT_EQ(reader_SetDelimiters(reader, delimiters), 0);
        reader_SplitText(reader, "axb");
        EXPECT_EQ(reader->tokenCount, count);
    }
    reader_SplitText(reader, nullptr);
    EXPECT_EQ(joined(reader->tokenCount, reader_Split(reader), reader->tokenCount), "0 0 0");
    reader_Free(reader);
    reader_Free(nullptr);
}

} // namespace
