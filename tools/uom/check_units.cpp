// The unit list of a data file: what a line says, and what the library looks for by name.
#include <map>

#include "data_file.h"
#include "library.h"
#include "text.h"

namespace {

// The units that the library looks up by token; the rules about one that is missing fall silent.
struct WellKnownUnit {
    const char *token;
    const char *second; // does as well
};
const WellKnownUnit wellKnownUnits[] = {
    {"Mole", nullptr},
    {"Mass", nullptr},
    {"Molar", nullptr},
    {"Vol", "Volume"},
    {"Liq. Vol.", "StdLiqVol"},
    {"Vap. Vol.", "StdVapVol"},
    {"K", nullptr},
    {"C", nullptr},
    {"R", nullptr},
    {"F", nullptr},
    {"Pa", nullptr},
    {"kPa", nullptr},
    {"MPa", nullptr},
    {"Pag", nullptr},
    {"kPag", nullptr},
    {"MPag", nullptr},
    {"mbar", nullptr},
    {"bar", nullptr},
    {"mbarg", nullptr},
    {"barg", nullptr},
    {"in Hg", nullptr},
    {"mm Hg", nullptr},
    {"in Hgg", nullptr},
    {"mm Hgg", nullptr},
    {"ata", nullptr},
    {"ate", nullptr},
    {"psia", nullptr},
    {"psig", nullptr},
    {"psi", nullptr},
    {"in H2O", nullptr},
    {"in H2Og", nullptr},
    {"kg/cm2", nullptr},
    {"kg/cm2g", nullptr},
    {"sec", nullptr},
    {"hr", nullptr},
    {"ang", nullptr},
    {"m", nullptr},
    {"in", nullptr},
    {"ft", nullptr},
    {"ang2", nullptr},
    {"m2", nullptr},
    {"ft2", nullptr},
    {"ang3", nullptr},
    {"g", nullptr},
    {"g-mol", nullptr},
    {"ton", nullptr},
    {"J", nullptr},
    {"kJ", nullptr},
    {"W", nullptr},
    {"kW", nullptr},
    {"MW", nullptr},
    {"VA", nullptr},
    {"VAR", nullptr},
    {"KVA", nullptr},
    {"KVAR", nullptr},
    {"HP", nullptr},
    {"x 10^6 J", nullptr},
    {"x 10^6 kJ", nullptr},
    {"x 10^6 BTU", nullptr},
    {"x 10^6 W", nullptr},
    {"x 10^6 kW", nullptr},
    {"x 10^6 MW", nullptr},
    {"x 10^6 VA", nullptr},
    {"x 10^6 VAR", nullptr},
    {"x 10^6 HP", nullptr},
    {"x 10^6 KVA", nullptr},
    {"x 10^6KVAR", nullptr},
    {"API", nullptr},
    {"spgr", nullptr},
    {"OXcredits", nullptr},
    {"J/g-K", nullptr},
    {"cal/g-K", nullptr},
    {"BTU/lb-C", nullptr},
    {"BTU/lb-K", nullptr},
    {"BTU/lb-F", nullptr},
    {"J/g-C", nullptr},
    {"kcal/kg-C", nullptr},
    {"BTU/Kg-C", nullptr},
    {"cal/g-C", nullptr},
    {"kJ/kg-C", nullptr},
    {"kW/m-K", nullptr},
    {"BTU/hr-ft-F", nullptr},
    {"W/m2-K", nullptr},
    {"BTU/hr-ft2-F", nullptr},
    {"W/K", nullptr},
    {"BTU/hr-F", nullptr},
    {"m2-K/W", nullptr},
    {"hr-ft2-F/BTU", nullptr},
    {"percent", nullptr},
    {"fraction", nullptr},
    {"ppm", nullptr},
    {"ppb", nullptr},
};

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
    for (const WellKnownUnit &known : wellKnownUnits) {
        if (lineOfToken.count(lowerCase(known.token)) || (known.second && lineOfToken.count(lowerCase(known.second))))
            continue;
        const std::string other = known.second ? " or \"" + std::string(known.second) + "\"" : "";
        findings.push_back({file.unitsEnd, "the unit \"" + std::string(known.token) + "\"" + other + " is missing"});
    }
}

} // namespace

void checkUnits(const DataFile &file, Findings &findings) {
    for (const DataLine &unit : file.units)
        checkFields(unit, findings);
    checkTokens(file, findings);
}
