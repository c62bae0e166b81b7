// The unit list of a data file: what a line says, and what the library looks for by name.
#include <map>
#include <sstream>

#include "data_file.h"
#include "library.h"
#include "text.h"

namespace {

constexpr size_t UNIT_FIELDS = 6;
const char *const fieldNames[UNIT_FIELDS] = {"token", "keyword", "description", "multiplier style", "offset", "factor"};
constexpr size_t FIRST_NUMBER = 3;

void checkFields(const DataLine &unit, Findings &findings) {
    const size_t count = unit.tokens.size();
    if (count != UNIT_FIELDS)
        findings.push_back({unit.number, "the unit has " + std::to_string(count) + " fields in place of 6"});
    for (size_t i = FIRST_NUMBER; i < std::min(count, UNIT_FIELDS); ++i)
        if (!parseNumber(unit.tokens[i]))
            findings.push_back(
                {unit.number, "the " + std::string(fieldNames[i]) + " \"" + unit.tokens[i] + "\" is not a number"});
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
        checkFields(unit, findings);
    checkTokens(file, findings);
}
