#include "catalogue/data_lines.h"

#include <cstring>

#include "support/text.h"

static bool isComment(const char *text) {
    return std::strchr(text, ';') || std::strstr(text, "//");
}

static char *cutToken(DataLines &lines, char *from, const char *delimiters) {
    char *token = str_NextToken(from, delimiters);
    if (token)
        lines.rest = str_BehindToken(token, std::strlen(token), lines.end);
    return token;
}

bool data_NextLine(DataLines &lines) {
    while (std::fgets(lines.text, sizeof lines.text, lines.file)) {
        ++lines.number;
        str_TrimLeft(str_TrimRight(lines.text));
        if (!*lines.text || isComment(lines.text))
            continue;
        lines.end = lines.text + std::strlen(lines.text);
        std::memcpy(lines.raw, lines.text, sizeof lines.raw);
        lines.first = cutToken(lines, lines.text, lines.delimiters);
        if (lines.first)
            return true;
    }
    return false;
}

char *data_NextToken(DataLines &lines) {
    return cutToken(lines, lines.rest, DATA_DELIMITERS);
}
