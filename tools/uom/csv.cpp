#include "csv.h"

#include <algorithm>
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
    // The ends of rows are below nearly all that cells hold: two comparisons a byte.
    for (; at != end && *at != separator; ++at)
        if (static_cast<unsigned char>(*at) <= '\r' && isRowEnd(at, end))
            break;
    return at;
}

const char *plainRowEnd(const char *at, const char *end, bool hasReturns) {
    const char *feed = find(at, end, '\n');
    return hasReturns ? find(at, feed, '\r') : feed;
}

// Where the row at `at` ends.
static const char *rowEnd(const char *at, const char *end, char separator) {
    for (;; ++at) {
        at = cellEnd(at, end, separator);
        if (isRowEnd(at, end))
            return at;
    }
}

size_t rowLength(std::string_view text, char separator) {
    const char *const end = text.data() + text.size();
    return static_cast<size_t>(behindRowEnd(rowEnd(text.data(), end, separator), end) - text.data());
}

size_t wholeRowsLength(std::string_view text, char separator) {
    const char *const end = text.data() + text.size();
    if (find(text.data(), end, '"') == end) {
        const size_t feed = text.rfind('\n');
        const std::string_view certain = text.substr(0, text.empty() ? 0 : text.size() - 1);
        return (feed == std::string_view::npos ? certain.rfind('\r') : feed) + 1; // 0 when there is none
    }
    for (const char *whole = text.data();;) {
        const char *at = rowEnd(whole, end, separator);
        if (at == end || (*at == '\r' && at + 1 == end))
            return static_cast<size_t>(whole - text.data());
        whole = behindRowEnd(at, end);
    }
}

bool hasOpenQuote(std::string_view row, char separator) {
    const char *const end = row.data() + row.size();
    for (const char *at = row.data();; ++at) {
        if (at != end && *at == '"' && behindQuotes(at, end) == end) {
            const std::string_view cell(at, static_cast<size_t>(end - at));
            return std::count(cell.begin(), cell.end(), '"') % 2 != 0;
        }
        at = cellEnd(at, end, separator);
        if (isRowEnd(at, end))
            return false;
    }
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
        if (isRowEnd(at, end))
            return texts;
    }
}
