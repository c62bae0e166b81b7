// uom convert --csv: columns of a CSV file from one unit to another.
#ifndef UOM_TOOL_CSV_COMMAND_H
#define UOM_TOOL_CSV_COMMAND_H

#include <string>
#include <vector>

// Exit status: all was written, but cells that could not be converted stayed as they were.
constexpr int BAD_CELLS = 3;

struct CsvArguments {
    std::string input, output = "-";  // "-" is standard input and output
    std::vector<std::string> columns; // as isColumnRequest takes them
    std::string classString;          // of columns that name none
    char separator = ',';
    bool noHeader = false;
    bool classic = false; // units as the classical operations read them, with a class for each column
    int digits = 0;       // as roundedNumber takes them
};

// NAME=FROM:TO or NAME=FROM:TO@CLASS
bool isColumnRequest(const std::string &text);

// Whether there is a class for each column.
bool hasClasses(const CsvArguments &arguments);

int convertCsv(const CsvArguments &arguments);

#endif
