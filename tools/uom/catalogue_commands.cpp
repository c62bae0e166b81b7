// uom classes, uom units: what there is to convert.
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

// "Mass / Leng Time 2": the components of a class as a class string.
std::string componentsOf(int32_t classId) {
    if (uom_IsClassBase(classId))
        return "";
    std::string text;
    int sign = 1;
    for (const UomStructNode &node : uom::Chain(uom_CreateStruct(classId, 1, nullptr))) {
        const int32_t exponent = node.baseExponent * sign;
        if (exponent < 0) {
            text += text.empty() ? "1 /" : " /";
            sign = -sign;
        }
        text += (text.empty() ? "" : " ") + uom::classText(node.baseClass);
        if (std::abs(exponent) != 1)
            text += " " + std::to_string(std::abs(exponent));
    }
    return text;
}

std::vector<uom::ClassEntry> allClasses() {
    std::vector<uom::ClassEntry> classes;
    for (int32_t c = 1; c < uom_GetUOMClassCount(); ++c) {
        const std::string token = uom::classText(c);
        if (!token.empty())
            classes.push_back({c, token, uom::classText(c, UOM_STYLE_LONG_NAME), uom::classText(c, UOM_STYLE_KEYWORD)});
    }
    return classes;
}

int runClasses(bool all) {
    TextTable table;
    table.rightAligned = 1;
    table.rows.push_back({"Number", "Token", "Long name", "Keyword", "Components"});
    for (const uom::ClassEntry &entry : all ? allClasses() : uom::classes())
        table.rows.push_back(
            {std::to_string(entry.number), entry.token, entry.longName, entry.keyword, componentsOf(entry.number)});
    print(table);
    return 0;
}

// "*", with the thousand or million that the default has, for the unit that the node holds.
std::string defaultMark(const UomStructNode &node, int32_t unit) {
    if (node.unit != unit || unit <= UOM_NULL)
        return "";
    const std::string multiplier = uom::multiplierText(node);
    return "*" + (multiplier.empty() ? "" : " " + multiplier);
}

void printUnitsOf(const UomStructNode &node, bool marked) {
    TextTable table;
    table.rows.push_back({"Unit", "Offset", "Factor", "Description"});
    for (const uom::UnitEntry &unit : uom::units(node.baseClass)) {
        table.rows.push_back({unit.token, shortestNumber(unit.offset), shortestNumber(unit.factor), unit.description});
        if (marked)
            table.rows.back().insert(table.rows.back().begin(), defaultMark(node, unit.number));
    }
    if (marked)
        table.rows[0].insert(table.rows[0].begin(), "");
    print(table);
}

std::string heading(const UomStructNode &node) {
    const std::string exponent = node.baseExponent == 1 ? "" : " " + std::to_string(node.baseExponent);
    return uom::classText(node.baseClass, UOM_STYLE_LONG_NAME) + " (" + uom::classText(node.baseClass) + exponent + ")";
}

bool isParenthesis(const UomStructNode &node) {
    return node.baseClass < FIRST_CLASS;
}

int runUnits(const std::string &classString, const std::string &slate) {
    const uom::Chain chain(fromTerminal(classString));
    if (!slate.empty())
        uom_InitializeUnits(chain.get(), uom::findSlate(slate));
    const UomStructNode *first = chain.get();
    const bool headings = first->next != nullptr || first->baseClass != first->classId;
    for (const UomStructNode &node : chain) {
        if (isParenthesis(node))
            continue;
        if (headings)
            std::cout << (&node == first ? "" : "\n") << heading(node) << '\n';
        printUnitsOf(node, !slate.empty());
    }
    return 0;
}

} // namespace

Action addClasses(CLI::App &command) {
    const auto all = std::make_shared<bool>(false);
    command.add_flag("--all", *all, "Parentheses and internal classes too");
    command.footer("The classes for users: those compiled in and those of the data file, without the parentheses and\n"
                   "the classes that serve the library alone, which have numbers too.");
    return [all] { return runClasses(*all); };
}

Action addUnits(CLI::App &command) {
    struct Arguments {
        std::string classString, slate;
    };
    const auto arguments = std::make_shared<Arguments>();
    command.add_option("CLASS", arguments->classString, "Class, or class string")->required();
    command.add_option("--slate", arguments->slate, "Mark the default units of this slate with *");
    command.footer("Value in base units = (value + offset) * factor; the offset counts in temperatures and pressures.\n"
                   "For a composite class, the units of its components.");
    return [arguments] { return runUnits(arguments->classString, arguments->slate); };
}
