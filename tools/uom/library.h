// What the tool asks of the library beside uom.hpp.
#ifndef UOM_TOOL_LIBRARY_H
#define UOM_TOOL_LIBRARY_H

#include <string>

#include "uom/uom.hpp"

constexpr int32_t FIRST_CLASS = 3; // 1 and 2 are the parentheses

// What a slate itself states for a class or property, empty when nothing. Clears the last-error text.
std::string statedDefault(const std::string &slate, const std::string &className);

// What is wrong with the value of a slate's property that the library would take without a word; empty when nothing.
std::string propertyFault(const std::string &property, const std::string &value);

#endif
