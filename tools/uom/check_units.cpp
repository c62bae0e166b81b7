// The unit list of a data file: what a line says, and what the library looks for by name.
#include <cmath>
#include <map>
#include <sstream>

#include "data_file.h"
#include "library.h"
#include "text.h"

namespace {

constexpr size_t UNIT_FIELDS = 6;

// What a number of each field has to be.
bool isStyle(double value) {
    return value == 0.0 || value == 1.0;
}
bool isFinite(double value) {
    return std::isfinite(value);
}
bool isFactor(double value) {
    return std::isfinite(value) && value > 0.0;
}
struct NumberField {
    size_t place;
    const char *name;
    bool (*isGood)(double value);
    const char *wanted;
};
const NumberField numberFields[] = {
    {3, "multiplier style", isStyle, "0 or 1"},
    {4, "offset", isFinite, "a finite number"},
    {5, "factor", isFactor, "a finite number above 0"},
};

void checkFields(const DataLine &unit, bool placeholder, Findings &findings) {
    const size_t count = unit.tokens.size();
    if (count != UNIT_FIELDS)
        findings.push_back({unit.number, "the unit has " + std::to_string(count) + " fields in place of 6"});
    for (const NumberField &field : numberFields) {
        if (field.place >= count)
            return;
        const auto value = parseNumber(unit.tokens[field.place]);
        const std::string what = "the " + std::string(field.name) + " \"" + unit.tokens[field.place] + "\" is not ";
        if (!value)
            findings.push_back({unit.number, what + "a number"});
        else if (!placeholder && !field.isGood(*value))
            findings.push_back({unit.number, what + field.wanted});
    }
}

// Units are found in normal texts, at a letter, "$" or "(".
bool canBeFound(const std::string &token) {
    const char first = token.empty() ? '\0' : token[0];
    const bool letter = (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
    if (!letter && first != '$' && first != '(')
        return false;
    std::string normal(token.size() + 1, '\0');
    uom_UOMStringToStd(normal.data(), token.c_str());
    return normal.c_str() == token;
}

std::vector<std::string> splitAt(char mark, const std::string &text) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);)
        parts.push_back(part);
    return parts;
}

// The rules about a well-known unit that is missing fall silent.
void checkKnownUnits(const DataFile &file, const std::map<std::string, int> &lineOfToken, Findings &findings) {
    for (const std::string &known : uom::Table(uom_GetKnownUnits()).texts()) {
        std::string names;
        bool found = false;
        for (const std::string &token : splitAt('|', known)) {
            names += (names.empty() ? "\"" : " or \"") + token + "\"";
            found = found || lineOfToken.count(lowerCase(token));
        }
        if (!found)
            findings.push_back({file.unitsEnd, "the unit " + names + " is missing"});
    }
}

void checkTokens(const DataFile &file, Findings &findings) {
    std::map<std::string, int> lineOfToken;
    for (const DataLine &unit : file.units) {
        const std::string &token = unit.tokens[0];
        const auto [first, isNew] = lineOfToken.emplace(lowerCase(token), unit.number);
        if (!isNew)
            findings.push_back(
                {unit.number, "the unit \"" + token + "\" is hidden by that of line " + std::to_string(first->second)});
        // The first unit is the placeholder, which nothing looks for.
        if (&unit != &file.units.front() && !canBeFound(token))
            findings.push_back({unit.number, "the unit \"" + token + "\" can't be found in a text"});
    }
    checkKnownUnits(file, lineOfToken, findings);
}

} // namespace

void checkUnits(const DataFile &file, Findings &findings) {
    for (const DataLine &unit : file.units)
        checkFields(unit, &unit == &file.units.front(), findings);
    checkTokens(file, findings);
}
