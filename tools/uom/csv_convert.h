// Rows of CSV text with some of their columns converted.
#ifndef UOM_TOOL_CSV_CONVERT_H
#define UOM_TOOL_CSV_CONVERT_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "uom/uom.hpp"

struct CsvTarget {
    size_t column; // from 0
    std::string name;
    uom::Conversion conversion;
};

struct CsvRules {
    std::vector<CsvTarget> targets; // by rising column
    char separator = ',';
    int digits = 0; // as roundedNumber takes them
};

// A cell that was not converted though it should have been.
struct BadCell {
    enum Fault { NO_NUMBER, NO_CELL, NO_RESULT }; // its row may end in front of it, its result may be no finite number
    size_t row;                                   // of the text, from 0
    size_t target;
    Fault fault;
    std::string text;
};
constexpr size_t SHOWN_BAD_CELLS = 20;

// The rows that one thread has at a time, and what it made of them. The memory serves again for the next rows.
struct CsvBlock {
    std::string_view in;
    std::unique_ptr<char[]> out;
    size_t outSize = 0, outCapacity = 0;
    size_t rows = 0, badCells = 0;
    std::vector<BadCell> firstBadCells; // SHOWN_BAD_CELLS at most
    bool endsOpen = false;              // the last row has a quotation mark that is not closed

    // The number in a cell, at its place in the text.
    struct Place {
        uint32_t begin, end, target;
    };
    std::vector<Place> places;
    std::vector<std::vector<double>> values; // of each target
};

// Texts of at most 4 GB. Cells that hold no value stay as they are: empty ones, NaN and what the library takes for none.
void convertBlock(const CsvRules &rules, CsvBlock &block);

#endif
