#include "loading/data_lines.h"

#include <algorithm>
#include <cstring>

#include "support/text.h"

namespace uom {

static bool isComment(const char *text) {
    return std::strchr(text, ';') || std::strstr(text, "//");
}

// Cuts trailing blanks, tabs and line feeds off the line and skips leading blanks and tabs; where the rest begins.
static char *trim(DataLines &lines) {
    size_t length = std::strlen(lines.text);
    while (length > 0 && std::strchr(" \t\n", lines.text[length - 1]))
        --length;
    lines.text[length] = '\0';
    char *start = lines.text + std::strspn(lines.text, " \t");
    std::memcpy(lines.raw, start, static_cast<size_t>(lines.text + length - start) + 1);
    return start;
}

// Takes the next line, or the next piece of a long one, off the text. False at its end.
static bool takeLine(DataLines &lines) {
    if (lines.ahead.empty())
        return false;
    const std::string_view piece = str_Head(lines.ahead, DATA_LINE_SIZE - 1);
    const size_t length = std::min(piece.find('\n'), piece.size() - 1) + 1;
    str_CopyBounded(lines.text, sizeof lines.text, str_Head(piece, length));
    lines.ahead.remove_prefix(length);
    return true;
}

bool data_NextLine(DataLines &lines) {
    while (takeLine(lines)) {
        ++lines.number;
        char *start = trim(lines);
        if (!*start || isComment(start))
            continue;
        const char mark = start[std::strspn(start, lines.delimiters)];
        lines.firstQuoted = mark == '"' || mark == '\'';
        lines.first = str_CutToken(start, lines.delimiters, &lines.rest);
        if (lines.first)
            return true;
    }
    return false;
}

char *data_NextToken(DataLines &lines) {
    return str_CutToken(lines.rest, DATA_DELIMITERS, &lines.rest);
}

} // namespace uom
