// uom related: the other forms of a class string, and its dimensions.
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

constexpr int32_t CLOSING_PARENTHESIS = 2;

using GetForm = int32_t (*)(const char *classString, char *out, int32_t size);

struct Form {
    const char *name;
    GetForm get;
};
const Form forms[] = {
    {"Absolute", uoms_GetAbsoluteClass},
    {"Difference", uoms_GetDifferenceClass},
    {"Standard", uoms_GetStandardClass},
};

// Mass, length, time, temperature, charge and currency.
const char *const dimensionNames[] = {"M", "L", "t", "T", "Q", "$"};

// The library counts what stands in a group once, whatever the power of the group is.
bool hasGroupPower(const UomStructNode *chain) {
    for (const UomStructNode *node = chain; node; node = node->next)
        if (node->classId == CLOSING_PARENTHESIS && node->exponent != 1)
            return true;
    return false;
}

std::string dimensionsOf(const UomStructNode *chain, const std::string &classString) {
    if (hasGroupPower(chain))
        return "not known for a power of a group";
    int32_t exponents[std::size(dimensionNames)] = {};
    uoms_GetDimensions(classString.c_str(), exponents);
    std::string text;
    for (size_t i = 0; i < std::size(dimensionNames); ++i)
        text += (i ? "  " : "") + std::string(dimensionNames[i]) + " " + std::to_string(exponents[i]);
    return text;
}

int runRelated(const std::string &given) {
    char text[8192];
    const Chain chain = newChain(fromTerminal(given));
    uom_BuildClassString(chain.get(), text, sizeof text, UOM_STYLE_TOKEN);
    const std::string classString = text;
    TextTable table;
    table.rows.push_back({"Class", classString});
    for (const Form &form : forms) {
        if (form.get(classString.c_str(), text, sizeof text) != 0)
            throw Failure(libraryMessage());
        table.rows.push_back({form.name, text});
    }
    table.rows.push_back({"Dimensions", dimensionsOf(chain.get(), classString)});
    print(table);
    return 0;
}

} // namespace

Action addRelated(CLI::App &command) {
    const auto classString = std::make_shared<std::string>();
    command.add_option("CLASS", *classString, "Class string")->required();
    command.footer("Dimensions are exponents of mass, length, time, temperature, charge and currency.");
    return [classString] { return runRelated(*classString); };
}
