// CSV as RFC 4180 has it, and what else is found in files: a cell whose first character is a quotation mark goes to its
// closing one and on to the next separator, in every other cell quotation marks are characters like others. Rows end
// with a line feed, of which a carriage return in front is a part.
#ifndef UOM_TOOL_CSV_H
#define UOM_TOOL_CSV_H

#include <string>
#include <string_view>
#include <vector>

// Where the cell at `at` ends: at its separator, its line feed or the end of the text.
const char *cellEnd(const char *at, const char *end, char separator);

// The length of the row at the head of a text, with its line feed; that of the text when there is none.
size_t rowLength(std::string_view text, char separator);

// The length of the rows in a text that end with a line feed.
size_t wholeRowsLength(std::string_view text, char separator);

// What a cell holds, without quotation marks around it and blanks around those or inside.
std::string_view cellContent(std::string_view cell);

// The contents of a row's cells, doubled quotation marks as one.
std::vector<std::string> cellTexts(std::string_view row, char separator);

#endif
