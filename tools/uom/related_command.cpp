// uom related: the other forms of a class string, and its dimensions.
#include <algorithm>
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

constexpr int32_t CLOSING_PARENTHESIS = 2;

using GetForm = std::string (*)(std::string_view classString);

struct Form {
    const char *name;
    GetForm get;
};
const Form forms[] = {
    {"Absolute", uom::absoluteClass},
    {"Difference", uom::differenceClass},
    {"Standard", uom::standardClass},
};

// Mass, length, time, temperature, charge and currency.
const char *const dimensionNames[] = {"M", "L", "t", "T", "Q", "$"};

// The library counts what stands in a group once, whatever the power of the group is.
bool hasGroupPower(const uom::Chain &chain) {
    return std::any_of(chain.begin(), chain.end(), [](const UomStructNode &node) {
        return node.classId == CLOSING_PARENTHESIS && node.exponent != 1;
    });
}

std::string dimensionsOf(const uom::Chain &chain, const std::string &classString) {
    if (hasGroupPower(chain))
        return "not known for a power of a group";
    const auto exponents = uom::dimensions(classString);
    std::string text;
    for (size_t i = 0; i < exponents.size(); ++i)
        text += (i ? "  " : "") + std::string(dimensionNames[i]) + " " + std::to_string(exponents[i]);
    return text;
}

int runRelated(const std::string &given) {
    const uom::Chain chain(fromTerminal(given));
    const std::string classString = chain.classText();
    TextTable table;
    table.rows.push_back({"Class", classString});
    for (const Form &form : forms)
        table.rows.push_back({form.name, form.get(classString)});
    table.rows.push_back({"Dimensions", dimensionsOf(chain, classString)});
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
