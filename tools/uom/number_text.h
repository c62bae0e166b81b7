// Numbers as texts, as fast as files of them want it.
#ifndef UOM_TOOL_NUMBER_TEXT_H
#define UOM_TOOL_NUMBER_TEXT_H

#include <cstddef>

constexpr int FULL_PRECISION = 0;          // the shortest text that reads back as the same number
constexpr int MOST_DIGITS = 17;            // more say nothing
constexpr size_t LONGEST_NUMBER_TEXT = 40; // memory that writeNumber may write to

// So many significant digits at most, without zeros at the end, or FULL_PRECISION. Behind what was written. The texts are
// those of std::to_chars: the shortest, and those of its general format.
char *writeNumber(char *at, double value, int digits);

#endif
