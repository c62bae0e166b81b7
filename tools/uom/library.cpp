#include "library.h"

#include <cmath>

#include "commands.h"
#include "text.h"

// No text that is read here is longer: a chain has at most 20 classes, and a line of the data file 131
// characters.
static constexpr int32_t TEXT_SIZE = 8192;

static const char classMissing[] = "The Unit-of-Measure class is missing.";

std::string libraryMessage() {
    return uom_GetLastErrorMessage();
}

std::string refusalMessage() {
    const std::string message = libraryMessage();
    return message.empty() ? classMissing : message;
}

Chain newChain(const std::string &classString) {
    Chain chain(uoms_New(classString.c_str()));
    if (chain)
        return chain;
    // It leaves whatever message there was.
    if (classString.find_first_not_of(" \t") == std::string::npos)
        throw Failure(classMissing);
    throw Failure(libraryMessage());
}

int32_t slateNumber(const std::string &name) {
    const int32_t slate = uom_GetSetType(name.c_str());
    if (slate < 1)
        throw Failure("There is no slate \"" + name + "\".");
    return slate;
}

Table textTable(const std::vector<std::string> &lines) {
    Table table(tbl_Create(0, UOM_KIND_TEXT));
    for (const std::string &line : lines)
        if (!table || !tbl_PutText(table.get(), UOM_APPEND, line.c_str()))
            throw std::bad_alloc();
    return table;
}

std::vector<std::string> textLines(const UomTable *table) {
    std::vector<std::string> lines;
    for (uint32_t i = 0; table && i < table->count; ++i) {
        const char *line = tbl_GetText(table, i);
        lines.emplace_back(line ? line : "");
    }
    return lines;
}

std::string classText(int32_t classId, int32_t style) {
    char text[TEXT_SIZE];
    uom_GetClassText(classId, text, sizeof text, style);
    return text;
}

std::string unitText(int32_t unit, int32_t style) {
    char text[512];
    uom_GetUnitText(unit, text, sizeof text, style);
    return text;
}

std::string statedDefault(const std::string &slate, const std::string &className) {
    char text[TEXT_SIZE] = "";
    uoms_GetClassDefault(slate.c_str(), className.c_str(), text, sizeof text);
    return text;
}

std::string slateParent(const std::string &slate) {
    char parent[TEXT_SIZE] = "";
    uoms_GetSetBasedOn2(slate.c_str(), parent, sizeof parent);
    return parent;
}

std::string propertyFault(const std::string &property, const std::string &value) {
    if (!equalNoCase(property, "GaugePresBasis") || value.empty())
        return "";
    const auto pressure = parseNumber(value);
    // With a blank beside it the library reads no number.
    const bool good = pressure && std::isfinite(*pressure) && *pressure >= 0.0 && trimmed(value) == value;
    return good ? "" : "\"" + value + "\" is no atmospheric pressure: \"" + property + "\" wants a number in kPa.";
}
