// uom classes, uom units: what there is to convert.
#include <iostream>
#include <memory>
#include <set>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

// "Mass / Leng Time 2": the components of a chain as a class string.
std::string components(const UomStructNode *chain) {
    std::string text;
    int sign = 1;
    for (const UomStructNode *node = chain; node; node = node->next) {
        const int32_t exponent = node->baseExponent * sign;
        if (exponent < 0) {
            text += text.empty() ? "1 /" : " /";
            sign = -sign;
        }
        text += (text.empty() ? "" : " ") + classText(node->baseClass, UOM_STYLE_TOKEN);
        if (std::abs(exponent) != 1)
            text += " " + std::to_string(std::abs(exponent));
    }
    return text;
}

std::string componentsOf(int32_t classId) {
    if (uom_IsClassBase(classId))
        return "";
    const Chain chain(uom_CreateStruct(classId, 1, nullptr));
    return components(chain.get());
}

int runClasses(bool all) {
    TextTable table;
    table.rightAligned = 1;
    table.rows.push_back({"Number", "Token", "Long name", "Keyword", "Components"});
    const std::vector<std::string> listed = textLines(Table(uom_GetClassList(UOM_STYLE_TOKEN)).get());
    const std::set<std::string> shown(listed.begin(), listed.end());
    for (int32_t c = all ? 1 : FIRST_CLASS; c < uom_GetUOMClassCount(); ++c) {
        const std::string token = classText(c, UOM_STYLE_TOKEN);
        if (!token.empty() && (all || shown.count(token)))
            table.rows.push_back({std::to_string(c), token, classText(c, UOM_STYLE_LONG_NAME),
                                  classText(c, UOM_STYLE_KEYWORD), componentsOf(c)});
    }
    print(table);
    return 0;
}

// The units of a class as an array; empty for a class without a list.
std::vector<int32_t> unitsOf(int32_t classId) {
    const Table list(uom_GetUnitList(classId));
    std::vector<int32_t> units(list ? list->count : 0);
    if (!units.empty())
        uom_GetUnitIndices(classId, units.data(), static_cast<int32_t>(units.size()));
    return units;
}

// "*", with the thousand or million that the default has, for the unit that the node holds.
std::string defaultMark(UomStructNode *node, int32_t unit) {
    if (node->unit != unit || unit <= UOM_NULL)
        return "";
    char multiplier[16] = "";
    uom_GetUOMMultiplierString(node, multiplier, sizeof multiplier);
    return "*" + (*multiplier ? " " + std::string(multiplier) : "");
}

void printUnitsOf(UomStructNode *node, bool marked) {
    TextTable table;
    table.rows.push_back({"Unit", "Offset", "Factor", "Description"});
    for (const int32_t unit : unitsOf(node->baseClass)) {
        double offset, factor;
        uom_GetConvConstants(unit, &offset, &factor);
        table.rows.push_back({unitText(unit, UOM_STYLE_TOKEN), shortestNumber(offset), shortestNumber(factor),
                              unitText(unit, UOM_STYLE_LONG_NAME)});
        if (marked)
            table.rows.back().insert(table.rows.back().begin(), defaultMark(node, unit));
    }
    if (marked)
        table.rows[0].insert(table.rows[0].begin(), "");
    print(table);
}

std::string heading(const UomStructNode *node) {
    const std::string exponent = node->baseExponent == 1 ? "" : " " + std::to_string(node->baseExponent);
    return classText(node->baseClass, UOM_STYLE_LONG_NAME) + " (" + classText(node->baseClass, UOM_STYLE_TOKEN) +
           exponent + ")";
}

bool isParenthesis(const UomStructNode *node) {
    return node->baseClass < FIRST_CLASS;
}

int runUnits(const std::string &classString, const std::string &slate) {
    const Chain chain = newChain(fromTerminal(classString));
    if (!slate.empty())
        uom_InitializeUnits(chain.get(), slateNumber(slate));
    const bool headings = chain->next != nullptr || chain->baseClass != chain->classId;
    for (UomStructNode *node = chain.get(); node; node = node->next) {
        if (isParenthesis(node))
            continue;
        if (headings)
            std::cout << (node == chain.get() ? "" : "\n") << heading(node) << '\n';
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
