// Classes by name and number.
#ifndef UOM_TOOL_CLASS_NAMES_H
#define UOM_TOOL_CLASS_NAMES_H

#include <cstdint>
#include <string>

#include "uom/uom.hpp"

// By the names that they have while a data file is read: no option and no renaming of start-up changes the answer.
int32_t compiledClass(const std::string &name); // by token or long name, any case; 0 when there is none
int32_t customClass(const std::string &name);

// The chain of a class string as it comes from a terminal. Throws a Failure that says what is meant instead: a class string
// is often a unit, or misspelt.
uom::Chain requireClass(const std::string &classString);

// The same with units as the classical operations read them; of units that they do not read, what is near.
uom::Chain filledChain(const std::string &classString, const std::string &units);

// ' Did you mean "kPa"?' for units that were refused, or nothing.
std::string unitSuggestion(const std::string &classString, const std::string &units);

// That there is no slate of a name, with the one that is near; empty when there is one.
std::string slateFault(const std::string &name);

// The number of a slate. Throws a Failure when there is none.
int32_t requireSlate(const std::string &name);

// "Mass / Leng Time 2": what a class is made of, as a class string; empty when it is not.
std::string componentsOf(int32_t classId);

#endif
