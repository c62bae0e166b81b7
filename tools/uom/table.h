// Tables, and the forms that they are printed in.
#ifndef UOM_TOOL_TABLE_H
#define UOM_TOOL_TABLE_H

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

enum class Output { TEXT, CSV, JSON };

struct Column {
    std::string heading;
    bool isNumber = false; // aligned to the left in text all the same
    std::string name = {}; // in CSV and JSON, where it is not the heading
};

// In the library's characters.
struct TextTable {
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows = {};
    size_t rightAligned = 0; // so many of the first columns
    bool upright = false;    // the text has a line for each column, its heading in front
    size_t gap = 2;          // blanks between the columns of the text
};

// Text is columns under their headings; CSV is that of RFC 4180; JSON is an array with an object for each row, whose
// keys are the headings in lower case with "_" between the words.
void print(const TextTable &table, Output output);

// Declares --output.
void addOutput(CLI::App &command, Output &output);

// --precision: digits of a result, FULL_PRECISION for all that it has.
CLI::Option *addPrecision(CLI::App &command, int &digits);

#endif
