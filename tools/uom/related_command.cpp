// uom related: the other forms of a class string, and its dimensions.
#include <algorithm>
#include <memory>

#include "class_names.h"
#include "commands.h"
#include "library.h"
#include "table.h"
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

int runRelated(const std::string &given, Output output) {
    const uom::Chain chain = requireClass(given);
    const std::string classString = chain.classText();
    TextTable table = {{{"Class"}}, {{classString}}};
    table.upright = true;
    const auto add = [&table](const char *heading, const std::string &text) {
        table.columns.push_back({heading});
        table.rows[0].push_back(text);
    };
    for (const Form &form : forms)
        add(form.name, form.get(classString));
    add("Dimensions", dimensionsOf(chain, classString));
    print(table, output);
    return 0;
}

} // namespace

Action addRelated(CLI::App &command) {
    struct Arguments {
        std::string classString;
        Output output = Output::TEXT;
    };
    const auto arguments = std::make_shared<Arguments>();
    command.add_option("CLASS", arguments->classString, "Class string")->required();
    addOutput(command, arguments->output);
    command.footer("Dimensions are exponents of mass, length, time, temperature, charge and currency.");
    return [arguments] { return runRelated(arguments->classString, arguments->output); };
}
