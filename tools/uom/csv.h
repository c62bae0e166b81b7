// CSV as RFC 4180 has it, and what else is found in files: a cell whose first character is a quotation mark goes to its
// closing one and on to the next separator, in every other cell quotation marks are characters like others. Rows end
// with a line feed, a carriage return or both, which may change from row to row.
#ifndef UOM_TOOL_CSV_H
#define UOM_TOOL_CSV_H

#include <string>
#include <string_view>
#include <vector>

// Where the cell at `at` ends: at its separator, the end of its row or that of the text.
const char *cellEnd(const char *at, const char *end, char separator);

inline bool isRowEnd(const char *at, const char *end) {
    return at == end || *at == '\n' || *at == '\r';
}

// Behind the end of the row that is at `at`.
inline const char *behindRowEnd(const char *at, const char *end) {
    if (at == end)
        return at;
    return at + (*at == '\r' && at + 1 != end && at[1] == '\n' ? 2 : 1);
}

// Where a row ends in which no cell begins with a quotation mark from here on. Without carriage returns in the text there is
// no need to look for them.
const char *plainRowEnd(const char *at, const char *end, bool hasReturns);

// The length of the row at the head of a text, with its end; that of the text when it has none.
size_t rowLength(std::string_view text, char separator);

// The length of the rows in a text that end for certain: a line feed may follow a carriage return at the end of the text.
size_t wholeRowsLength(std::string_view text, char separator);

// Whether a row has a cell whose quotation mark is not closed.
bool hasOpenQuote(std::string_view row, char separator);

// What a cell holds, without quotation marks around it and blanks around those or inside.
std::string_view cellContent(std::string_view cell);

// The contents of a row's cells, doubled quotation marks as one.
std::vector<std::string> cellTexts(std::string_view row, char separator);

#endif
