
#include "support/line_reader.h"

#include <cstring>

#include "support/memory.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

namespace {

constexpr int32_t DEFAULT_LINE_SIZE = 1024;
constexpr int32_t SMALLEST_LINE = 2; // below, a read would never get on
constexpr int32_t DEFAULT_TOKENS = 50;
constexpr const char *DEFAULT_DELIMITERS = " ,:";

// What a statement means to the preprocessor.
enum Outcome { FOR_CALLER, USED_UP, FAILED };

bool isDirective(const TokenReader *reader, const char *word) {
    return reader->tokenCount > 0 && str_EqualNoCase(reader->tokens[0], word);
}

bool isDefined(const Preprocessor &state, const char *name) {
    for (uint32_t i = 0; i < table_Count(state.definedNames); ++i) {
        const char *defined = table_GetText(state.definedNames, i);
        if (defined && std::strcmp(defined, name) == 0)
            return true;
    }
    return false;
}

LevelState level(const Preprocessor &state) {
    return state.levels[state.depth];
}

Outcome enter(Preprocessor &state, LevelState level) {
    state.levels[state.depth] = level;
    return USED_UP;
}

Outcome leave(Preprocessor &state) {
    --state.depth;
    return USED_UP;
}

Outcome fail(const TokenReader *reader, PreprocessorError error) {
    Preprocessor &state = *reader->preprocessor;
    state.error = error;
    state.errorLine = reader->lineNumber;
    return FAILED;
}

Outcome openLevel(const TokenReader *reader) {
    Preprocessor &state = *reader->preprocessor;
    if (state.depth + 1 == READER_LEVELS)
        return fail(reader, TOO_DEEP);
    ++state.depth;
    return enter(state, isDefined(state, reader->tokens[1]) ? IN_TRUE_BRANCH : SKIPPING_FALSE);
}

// A statement that is not being skipped.
Outcome judge(const TokenReader *reader) {
    Preprocessor &state = *reader->preprocessor;
    if (isDirective(reader, "#DEFINE") && reader->tokenCount == 2) {
        table_PutText(state.definedNames, TABLE_APPEND, reader->tokens[1]);
        return USED_UP;
    }
    const bool endif = isDirective(reader, "#ENDIF");
    const bool otherwise = isDirective(reader, "#ELSE");
    if (level(state) == IN_ELSE_BRANCH && endif)
        return leave(state);
    if (level(state) == IN_ELSE_BRANCH && otherwise)
        return fail(reader, STRAY_ELSE);
    if (isDirective(reader, "#IFDEF") && reader->tokenCount == 2)
        return openLevel(reader);
    if (reader->tokenCount != 1 || !(endif || otherwise))
        return FOR_CALLER;
    if (level(state) == IN_TRUE_BRANCH)
        return endif ? leave(state) : enter(state, SKIPPING_ELSE);
    return level(state) == OUTERMOST ? fail(reader, endif ? STRAY_ENDIF : STRAY_ELSE) : FOR_CALLER;
}

// The statement behind the cursor, else of the next line. False at the end of the file.
bool readStatement(TokenReader *reader, FILE *file) {
    if (str_IsEmpty(reader->cursor) && !reader_ReadLine(reader, file))
        return false;
    reader_Split(reader);
    return true;
}

// A statement of a branch that is skipped; `nested` counts the levels opened within it.
void judgeSkipped(const TokenReader *reader, int32_t *nested) {
    Preprocessor &state = *reader->preprocessor;
    if (isDirective(reader, "#IFDEF"))
        ++*nested;
    else if (isDirective(reader, "#ENDIF") && (*nested)-- == 0)
        leave(state);
    else if (isDirective(reader, "#ELSE") && *nested == 0 && level(state) == SKIPPING_FALSE)
        enter(state, IN_ELSE_BRANCH);
}

bool isSkipping(const Preprocessor &state) {
    return level(state) == SKIPPING_FALSE || level(state) == SKIPPING_ELSE;
}

// Reads to the directive that ends the branch, from the statement in hand. False at the end of the file: the
// level stays open.
bool skipBranch(TokenReader *reader, FILE *file) {
    Preprocessor &state = *reader->preprocessor;
    const int32_t depth = state.depth;
    int32_t nested = 0;
    for (;;) {
        judgeSkipped(reader, &nested);
        if (state.depth < depth || !isSkipping(state))
            return true;
        if (!readStatement(reader, file))
            return false;
    }
}

// One token and what stands behind it, compacted in place.
struct Splitter {
    TokenReader *reader;
    const char *read;
    char *write;
    bool open = false;   // a token is being copied
    bool quoted = false; // within double quotes
};

void startToken(Splitter &splitter) {
    if (splitter.open)
        return;
    splitter.open = true;
    TokenReader *reader = splitter.reader;
    if (reader->tokenCount < reader->maxTokens)
        reader->tokens[reader->tokenCount++] = splitter.write;
}

void endToken(Splitter &splitter) {
    if (splitter.open)
        *splitter.write++ = '\0';
    splitter.open = false;
}

void readQuoted(Splitter &splitter) {
    const char c = *splitter.read++;
    if (c == '"') {
        splitter.quoted = false;
        endToken(splitter);
        return;
    }
    const bool escape = c == '\\' && (*splitter.read == '"' || *splitter.read == '\\');
    *splitter.write++ = escape ? *splitter.read++ : c;
}

// False where the statement ends; the cursor then stands behind it.
bool readPlain(Splitter &splitter) {
    const char c = *splitter.read++;
    if (std::strchr(splitter.reader->delimiters, c)) {
        endToken(splitter);
        return true;
    }
    if (c == '/' && *splitter.read == '/')
        return false;
    if (c == ';' || c == '\n') {
        splitter.reader->cursor = const_cast<char *>(splitter.read);
        return false;
    }
    if (c == '"') {
        endToken(splitter);
        startToken(splitter);
        splitter.quoted = true;
    } else {
        startToken(splitter);
        *splitter.write++ = c;
    }
    return true;
}

} // namespace

TokenReader *reader_Create(int32_t lineSize, int32_t maxTokens, const char *delimiters, Preprocessor &preprocessor) {
    TokenReader *reader = mem_New<TokenReader>();
    if (!reader)
        return nullptr;
    reader->preprocessor = &preprocessor;
    reader->lineSize = lineSize > SMALLEST_LINE ? lineSize : lineSize > 0 ? SMALLEST_LINE : DEFAULT_LINE_SIZE;
    reader->maxTokens = maxTokens > 0 ? maxTokens : DEFAULT_TOKENS;
    reader->line = mem_NewArray<char>(static_cast<size_t>(reader->lineSize));
    reader->tokens = mem_NewArray<char *>(static_cast<size_t>(reader->maxTokens));
    const bool named = mem_DupText(&reader->delimiters, delimiters ? delimiters : DEFAULT_DELIMITERS) == 0;
    if (!named || !reader->line || !reader->tokens) {
        reader_Free(reader);
        return nullptr;
    }
    *reader->line = '\0';
    return reader;
}

void reader_Free(TokenReader *reader) {
    if (!reader)
        return;
    mem_Free(reader->line);
    mem_Free(reader->tokens);
    mem_Free(reader->delimiters);
    mem_Free(reader);
}

int32_t reader_SetDelimiters(TokenReader *reader, const char *delimiters) {
    char *copy = nullptr;
    if (mem_DupText(&copy, delimiters ? delimiters : DEFAULT_DELIMITERS) != 0)
        return 11;
    mem_Free(reader->delimiters);
    reader->delimiters = copy;
    return 0;
}

char *reader_ReadLine(TokenReader *reader, FILE *file) {
    size_t used = 0;
    reader->tokenCount = 0;
    reader->cursor = nullptr;
    for (;;) {
        const size_t room = static_cast<size_t>(reader->lineSize) - used;
        ++reader->lineNumber;
        if (!std::fgets(reader->line + used, static_cast<int>(room), file))
            return nullptr;
        used += std::strlen(reader->line + used);
        if (used == 0 || reader->line[used - 1] != '\n')
            break; // the end of the file, or of the buffer
        reader->line[--used] = '\0';
        const bool continued =
            used >= 1 && reader->line[used - 1] == '\\' && (used < 2 || reader->line[used - 2] != '\\');
        if (!continued)
            break;
        reader->line[--used] = '\0'; // the two characters taken back are room for more
    }
    reader->cursor = reader->line;
    return reader->line;
}

int32_t reader_Split(TokenReader *reader) {
    reader->tokenCount = 0;
    if (!reader->cursor)
        return 0;
    Splitter splitter = {reader, reader->cursor, reader->cursor};
    reader->cursor = nullptr;
    while (*splitter.read)
        if (splitter.quoted)
            readQuoted(splitter);
        else if (!readPlain(splitter))
            break;
    if (splitter.open)
        *splitter.write = '\0';
    return 0;
}

int32_t reader_SplitText(TokenReader *reader, const char *text) {
    str_CopyBounded(reader->line, static_cast<size_t>(reader->lineSize), text);
    reader->cursor = reader->line;
    return reader_Split(reader);
}

int32_t reader_Next(TokenReader *reader, FILE *file, int32_t preprocess) {
    if (!preprocess)
        return reader_ReadLine(reader, file) ? 0 : 1;
    while (readStatement(reader, file)) {
        if (reader->tokenCount == 0)
            return 0;
        if (isSkipping(*reader->preprocessor)) {
            if (!skipBranch(reader, file))
                return 1;
            continue;
        }
        const Outcome outcome = judge(reader);
        if (outcome != USED_UP)
            return outcome == FAILED;
    }
    return 1;
}

int32_t reader_GetError(Preprocessor &preprocessor, char *out, size_t size) {
    char text[256];
    const bool open = preprocessor.depth > 0;
    switch (preprocessor.error) {
    case STRAY_ENDIF:
        str_FormatBounded(text, sizeof text, "(line %d) #endif directive without a matching #ifdef found",
                          preprocessor.errorLine);
        break;
    case STRAY_ELSE:
        str_FormatBounded(text, sizeof text, "(line %d) #else directive without a matching #ifdef found",
                          preprocessor.errorLine);
        break;
    case TOO_DEEP:
        str_FormatBounded(text, sizeof text, "(line %d) Maxinum #ifdef nesting level of %d reached",
                          preprocessor.errorLine, READER_LEVELS);
        break;
    default:
        str_CopyBounded(text, sizeof text,
                        open ? "#ifdef directive without a matching #endif found" : "no preprocessor errors found");
        break;
    }
    const bool found = open || preprocessor.error != NO_ERROR;
    if (out && size > 0)
        str_CopyBounded(out, size, text);
    preprocessor.error = NO_ERROR;
    preprocessor.depth = 0;
    return found;
}

char *reader_Token(const TokenReader *reader, int32_t position) {
    return position >= 1 && position <= reader->tokenCount ? reader->tokens[position - 1] : nullptr;
}

double reader_TokenDouble(const TokenReader *reader, int32_t position) {
    return num_LeadingDouble(reader_Token(reader, position));
}

int32_t reader_TokenInt(const TokenReader *reader, int32_t position) {
    return num_LeadingInt(reader_Token(reader, position));
}

char *reader_TokenCopy(const TokenReader *reader, int32_t position) {
    char *copy = nullptr;
    mem_DupText(&copy, reader_Token(reader, position));
    return copy;
}

void reader_TokenText(const TokenReader *reader, int32_t position, char *out, size_t size) {
    str_CopyBounded(out, size, reader_Token(reader, position));
}

} // namespace uom
