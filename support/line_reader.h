// A reader of line-oriented text files: continued lines, tokens, statements, and a small conditional language
// of #DEFINE, #IFDEF, #ELSE and #ENDIF. The data file has a reader of its own.
//
// A line ends with a backslash to go on in the next; two backslashes are one character of the text. "//"
// starts a comment, ";" ends a statement, double quotes keep delimiters in a token.
#ifndef UOM_SUPPORT_LINE_READER_H
#define UOM_SUPPORT_LINE_READER_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "uom/uom.h"

namespace uom {

constexpr int32_t READER_LEVELS = 32;

// What a branch of an #IFDEF is read for.
enum LevelState : int32_t {
    OUTERMOST,
    IN_TRUE_BRANCH, // of an #IFDEF
    IN_ELSE_BRANCH, // of an #IFDEF whose name was not defined
    SKIPPING_FALSE, // looking for #ELSE or #ENDIF
    SKIPPING_ELSE   // looking for #ENDIF
};

enum PreprocessorError : int32_t { NO_ERROR, STRAY_ENDIF, STRAY_ELSE, TOO_DEEP };

// The state of the conditional language. Readers that are given the same one go on in each other's branches.
struct Preprocessor {
    UomTable *definedNames = nullptr; // texts; the caller's
    int32_t depth = 0;
    LevelState levels[READER_LEVELS] = {};
    PreprocessorError error = NO_ERROR;
    int32_t errorLine = 0;
};

struct TokenReader {
    int32_t tokenCount;         // of the statement in hand
    int32_t lineSize;           // of the line buffer
    int32_t maxTokens;          // further ones are dropped
    int32_t lineNumber;         // physical lines read
    char *cursor;               // where the next statement of the line starts, null when the line is used up
    char *line;                 // owned
    char **tokens;              // into the line; the array is owned
    char *delimiters;           // owned
    Preprocessor *preprocessor; // the caller's
};

// A line size of 0 or below is 1024, a capacity of 0 or below 50, null delimiters are the blank, comma and
// colon. The preprocessor outlives the reader. Null when memory is exhausted.
TokenReader *reader_Create(int32_t lineSize, int32_t maxTokens, const char *delimiters, Preprocessor &preprocessor);
void reader_Free(TokenReader *reader); // null is accepted

// 0, or 11 with the old delimiters kept when memory is exhausted.
int32_t reader_SetDelimiters(TokenReader *reader, const char *delimiters);

// One logical line without its line feed, null at the end of the file. A line longer than the buffer comes in
// pieces.
char *reader_ReadLine(TokenReader *reader, FILE *file);

// Cuts the statement at the cursor into tokens, in place. 0.
int32_t reader_Split(TokenReader *reader);

// The same with a copy of the text, cut at the size of the line.
int32_t reader_SplitText(TokenReader *reader, const char *text);

// The next statement: of the line in hand, else of the next. With `preprocess` it is cut into tokens and
// directives act; without, the line is read and nothing else. 0; 1 at the end of the file and for an error of
// the preprocessor.
int32_t reader_Next(TokenReader *reader, FILE *file, int32_t preprocess);

// The text of the preprocessor's error, or of an #IFDEF left open, and 1; with neither "no preprocessor
// errors found" and 0. Clears both. The buffer or its size may be absent.
int32_t reader_GetError(Preprocessor &preprocessor, char *out, size_t size);

// Tokens by their position from 1. Out of range: null, 0.0, 0, null, and an empty text.
char *reader_Token(const TokenReader *reader, int32_t position);
double reader_TokenDouble(const TokenReader *reader, int32_t position);
int32_t reader_TokenInt(const TokenReader *reader, int32_t position);
char *reader_TokenCopy(const TokenReader *reader, int32_t position); // freed with mem_Free
void reader_TokenText(const TokenReader *reader, int32_t position, char *out, size_t size);

} // namespace uom

#endif
