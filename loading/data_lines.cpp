#include "loading/data_lines.h"

#include <cstring>

#include "support/platform.h"
#include "support/text.h"

namespace uom {

// Takes the next line, or the next piece of a long one, off the text; null-terminated texts end at a zero byte.
static std::string_view takeLine(DataLines &lines) {
    std::string_view piece = str_Head(lines.ahead, DATA_LINE_SIZE - 1);
    const void *end = std::memchr(piece.data(), '\n', piece.size());
    if (end)
        piece = str_Head(piece, static_cast<size_t>(static_cast<const char *>(end) - piece.data()) + 1);
    else if (RETURNS_END_LINES && piece.ends_with('\r') && str_Behind(lines.ahead, piece.size()).starts_with('\n'))
        piece = str_Head(lines.ahead, piece.size() + 1); // with its return the end has one character more
    lines.ahead.remove_prefix(piece.size());
    ++lines.number;
    if (RETURNS_END_LINES && piece.ends_with("\r\n"))
        piece.remove_suffix(2);
    return str_Head(piece, piece.find('\0'));
}

static bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

static std::string_view trimmed(std::string_view line) {
    while (!line.empty() && (isBlank(line.back()) || line.back() == '\n'))
        line.remove_suffix(1);
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    return line;
}

static bool isComment(std::string_view line) {
    if (line.find(';') != std::string_view::npos)
        return true;
    for (size_t slash = line.find('/'); slash < line.size() - 1; slash = line.find('/', slash + 1))
        if (line[slash + 1] == '/')
            return true;
    return false;
}

bool data_NextRawLine(DataLines &lines) {
    while (!lines.ahead.empty()) {
        lines.raw = trimmed(takeLine(lines));
        if (!lines.raw.empty() && !isComment(lines.raw))
            return true;
    }
    return false;
}

bool data_CutFirst(DataLines &lines) {
    str_CopyBounded(lines.text, sizeof lines.text, lines.raw);
    const char mark = lines.text[std::strspn(lines.text, lines.delimiters)];
    lines.firstQuoted = mark == '"' || mark == '\'';
    lines.first = str_CutToken(lines.text, lines.delimiters, &lines.rest);
    return lines.first != nullptr;
}

bool data_NextLine(DataLines &lines) {
    while (data_NextRawLine(lines))
        if (data_CutFirst(lines))
            return true;
    return false;
}

char *data_NextToken(DataLines &lines) {
    return str_CutToken(lines.rest, DATA_DELIMITERS, &lines.rest);
}

} // namespace uom
