// From the texts of a command line to a conversion.
#ifndef UOM_TOOL_PREPARE_CONVERSION_H
#define UOM_TOOL_PREPARE_CONVERSION_H

#include <string>

#include "uom/uom.hpp"

// The conversion between two unit texts, as they come from a terminal and as people type them, or names of slates, of a class
// string, which may be empty. Throws a Failure that says what is wrong with them. `note` is what else they could mean.
uom::Conversion prepareConversion(const std::string &classString, const std::string &from, const std::string &to,
                                  std::string *note);

// The same with the unit texts as the classical operations read them.
uom::Conversion prepareClassic(const std::string &classString, const std::string &from, const std::string &to);

#endif
