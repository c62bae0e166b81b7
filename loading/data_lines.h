// The lines of a data file's text and their tokens, the same in all its sections.
//
// A line holds at most 131 characters; a longer one is read in pieces that are lines of their own. A line
// with "//" or ";" anywhere, quotes included, is a comment as a whole. Blanks, tabs and commas separate
// tokens; a token in quotes keeps them.
#ifndef UOM_LOADING_DATA_LINES_H
#define UOM_LOADING_DATA_LINES_H

#include <cstdint>
#include <string_view>

namespace uom {

constexpr int DATA_LINE_SIZE = 132;

struct DataLines {
    std::string_view ahead;    // what is not read yet
    int32_t number;            // of the line in hand, from 1; comments and blank lines count
    const char *delimiters;    // for the first token of a line
    std::string_view raw;      // the line without the blanks round it; a piece of the text
    char text[DATA_LINE_SIZE]; // the line, cut into tokens
    char *first;               // its first token
    bool firstQuoted;          // which stood in quotes
    char *rest;                // where the next token is looked for
};

constexpr const char *DATA_DELIMITERS = ", \t";
constexpr const char *DATA_KEY_DELIMITERS = "= \t";

// Moves to the next line that is neither blank nor a comment. False at the end of the text.
bool data_NextRawLine(DataLines &lines);

// Cuts the first token off the line in hand. False when there is none.
bool data_CutFirst(DataLines &lines);

// Moves to the next line that has a token, and cuts it. False at the end of the text.
bool data_NextLine(DataLines &lines);

// The next token of the line, null when there is none.
char *data_NextToken(DataLines &lines);

} // namespace uom

#endif
