#include "csv.h"

#include <cstring>

#include "text.h"

static const char *find(const char *at, const char *end, char wanted) {
    const void *found = std::memchr(at, wanted, static_cast<size_t>(end - at));
    return found ? static_cast<const char *>(found) : end;
}

// Behind the closing quotation mark of a cell, whose opening one is at `at`. The end when there is none.
static const char *behindQuotes(const char *at, const char *end) {
    for (++at; at != end; ++at) {
        at = find(at, end, '"');
        if (at == end)
            return end;
        ++at;
        if (at == end || *at != '"')
            return at;
    }
    return end;
}

const char *cellEnd(const char *at, const char *end, char separator) {
    if (at != end && *at == '"')
        at = behindQuotes(at, end);
    while (at != end && *at != separator && *at != '\n')
        ++at;
    return at;
}

// Behind the line feed of the row at `at`; null when there is none.
static const char *rowEnd(const char *at, const char *end, char separator) {
    for (;; ++at) {
        at = cellEnd(at, end, separator);
        if (at == end)
            return nullptr;
        if (*at == '\n')
            return at + 1;
    }
}

size_t rowLength(std::string_view text, char separator) {
    const char *end = rowEnd(text.data(), text.data() + text.size(), separator);
    return end ? static_cast<size_t>(end - text.data()) : text.size();
}

size_t wholeRowsLength(std::string_view text, char separator) {
    const char *const end = text.data() + text.size();
    if (find(text.data(), end, '"') == end)
        return text.rfind('\n') + 1; // 0 when there is none
    const char *whole = text.data();
    while (const char *next = rowEnd(whole, end, separator))
        whole = next;
    return static_cast<size_t>(whole - text.data());
}

std::string_view cellContent(std::string_view cell) {
    cell = trimmed(cell);
    if (cell.size() < 2 || cell.front() != '"' || cell.back() != '"')
        return cell;
    return trimmed(cell.substr(1, cell.size() - 2));
}

static std::string withSingleQuotes(std::string_view content) {
    std::string text;
    for (size_t i = 0; i < content.size(); ++i) {
        text += content[i];
        if (content.substr(i, 2) == "\"\"")
            ++i;
    }
    return text;
}

std::vector<std::string> cellTexts(std::string_view row, char separator) {
    std::vector<std::string> texts;
    const char *const end = row.data() + row.size();
    for (const char *at = row.data();; ++at) {
        const char *cell = at;
        at = cellEnd(at, end, separator);
        texts.push_back(withSingleQuotes(cellContent({cell, static_cast<size_t>(at - cell)})));
        if (at == end || *at == '\n')
            return texts;
    }
}
