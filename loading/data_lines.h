// The lines of the data file and their tokens, the same in all its sections.
//
// A line holds at most 131 characters; a longer one is read in pieces that are lines of their own. A line
// with "//" or ";" anywhere, quotes included, is a comment as a whole. Blanks, tabs and commas separate
// tokens; a token in quotes keeps them.
#ifndef UOM_LOADING_DATA_LINES_H
#define UOM_LOADING_DATA_LINES_H

#include <cstdint>
#include <cstdio>

namespace uom {

constexpr int DATA_LINE_SIZE = 132;

struct DataLines {
    FILE *file;
    int32_t number;            // of the line in hand, from 1; comments and blank lines count
    const char *delimiters;    // for the first token of a line
    char raw[DATA_LINE_SIZE];  // the line as it was before it was cut into tokens
    char text[DATA_LINE_SIZE]; // the line, cut
    char *first;               // its first token
    bool firstQuoted;          // which stood in quotes
    char *rest;                // where the next token is looked for
};

constexpr const char *DATA_DELIMITERS = ", \t";
constexpr const char *DATA_KEY_DELIMITERS = "= \t";

// Moves to the next line that has a token. False at the end of the file.
bool data_NextLine(DataLines &lines);

// The next token of the line, null when there is none.
char *data_NextToken(DataLines &lines);

} // namespace uom

#endif
