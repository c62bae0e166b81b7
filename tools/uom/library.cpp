#include "library.h"

#include <cmath>

#include "text.h"

std::string statedDefault(const std::string &slate, const std::string &className) {
    return uom::tryStatedDefault(slate, className).valueOr("");
}

std::string propertyFault(const std::string &property, const std::string &value) {
    if (!equalNoCase(property, "GaugePresBasis") || value.empty())
        return "";
    const auto pressure = parseNumber(value);
    // With a blank beside it the library reads no number.
    const bool good = pressure && std::isfinite(*pressure) && *pressure >= 0.0 && trimmed(value) == value;
    return good ? "" : "\"" + value + "\" is no atmospheric pressure: \"" + property + "\" wants a number in kPa.";
}
