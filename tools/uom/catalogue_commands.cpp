// uom classes, uom units: what there is to convert.
#include <iostream>
#include <memory>

#include "class_names.h"
#include "commands.h"
#include "library.h"
#include "options.h"
#include "table.h"
#include "text.h"

namespace {

std::vector<uom::ClassEntry> allClasses() {
    std::vector<uom::ClassEntry> classes;
    for (int32_t c = 1; c < uom_GetUOMClassCount(); ++c) {
        const std::string token = uom::classText(c);
        if (!token.empty())
            classes.push_back({c, token, uom::classText(c, UOM_STYLE_LONG_NAME), uom::classText(c, UOM_STYLE_KEYWORD)});
    }
    return classes;
}

int runClasses(bool all, Output output) {
    TextTable table = {{{"Number", true}, {"Token"}, {"Long name"}, {"Keyword"}, {"Components"}}};
    table.rightAligned = 1;
    for (const uom::ClassEntry &entry : all ? allClasses() : uom::classes())
        table.rows.push_back(
            {std::to_string(entry.number), entry.token, entry.longName, entry.keyword, componentsOf(entry.number)});
    print(table, output);
    return 0;
}

// "*", with the thousand or million that the default has, for the unit that the node holds.
std::string defaultMark(const UomStructNode &node, int32_t unit) {
    if (node.unit != unit || unit <= UOM_NULL)
        return "";
    const std::string multiplier = uom::multiplierText(node);
    return "*" + (multiplier.empty() ? "" : " " + multiplier);
}

// The columns are the mark, the class, and then those that every table of units has.
TextTable unitTable() {
    return {{{"", false, "Default"}, {"Class"}, {"Unit"}, {"Offset", true}, {"Factor", true}, {"Description"}}};
}

void addUnitsOf(TextTable &table, const UomStructNode &node) {
    const std::string token = uom::classText(node.baseClass);
    for (const uom::UnitEntry &unit : uom::units(node.baseClass))
        table.rows.push_back({defaultMark(node, unit.number), token, unit.token, shortestNumber(unit.offset),
                              shortestNumber(unit.factor), unit.description});
}

void eraseColumn(TextTable &table, std::ptrdiff_t column) {
    table.columns.erase(table.columns.begin() + column);
    for (auto &row : table.rows)
        row.erase(row.begin() + column);
}

std::string heading(const UomStructNode &node) {
    const std::string exponent = node.baseExponent == 1 ? "" : " " + std::to_string(node.baseExponent);
    return uom::classText(node.baseClass, UOM_STYLE_LONG_NAME) + " (" + uom::classText(node.baseClass) + exponent + ")";
}

bool isParenthesis(const UomStructNode &node) {
    return node.baseClass < FIRST_CLASS;
}

std::vector<UomStructNode> componentNodes(const uom::Chain &chain) {
    std::vector<UomStructNode> nodes;
    for (const UomStructNode &node : chain)
        if (!isParenthesis(node))
            nodes.push_back(node);
    return nodes;
}

// A table for each component, where there are several each under its heading.
void printUnitsText(const uom::Chain &chain, bool marked) {
    const UomStructNode *first = chain.get();
    const bool headings = first->next != nullptr || first->baseClass != first->classId;
    const char *gap = "";
    for (const UomStructNode &node : componentNodes(chain)) {
        if (headings)
            std::cout << gap << heading(node) << '\n';
        gap = "\n";
        TextTable table = unitTable();
        addUnitsOf(table, node);
        eraseColumn(table, 1);
        if (!marked)
            eraseColumn(table, 0);
        print(table, Output::TEXT);
    }
}

struct UnitsArguments {
    std::string classString, slate;
    Output output = Output::TEXT;
};

// One table, in which the units tell their classes: those offered for a quantity that is made of several first, without
// numbers.
void printUnitsTable(const uom::Chain &chain, bool marked, const UnitsArguments &arguments) {
    TextTable table = unitTable();
    if (chain.get()->next)
        for (const std::string &choice : uom::choices(arguments.classString))
            table.rows.push_back({"", chain.classText(), choice, "", "", "Offered"});
    for (const UomStructNode &node : componentNodes(chain))
        addUnitsOf(table, node);
    if (!marked)
        eraseColumn(table, 0);
    print(table, arguments.output);
}

// What interfaces offer for a quantity that is made of several.
void printChoices(const std::string &classString) {
    const std::vector<std::string> choices = uom::choices(classString);
    if (choices.empty())
        return;
    std::cout << "Offered:";
    for (const std::string &choice : choices)
        std::cout << (&choice == &choices[0] ? " " : ", ") << toTerminal(choice);
    std::cout << "\n\n";
}

int runUnits(const UnitsArguments &arguments) {
    const uom::Chain chain = requireClass(arguments.classString);
    const bool several = chain.get() && chain.get()->next;
    if (several && arguments.output == Output::TEXT)
        printChoices(arguments.classString);
    const bool marked = !arguments.slate.empty();
    if (marked)
        uom_InitializeUnits(chain.get(), requireSlate(arguments.slate));
    if (arguments.output == Output::TEXT)
        printUnitsText(chain, marked);
    else
        printUnitsTable(chain, marked, arguments);
    return 0;
}

} // namespace

Action addClasses(CLI::App &command) {
    struct Arguments {
        bool all = false;
        Output output = Output::TEXT;
    };
    const auto arguments = std::make_shared<Arguments>();
    command.add_flag("--all", arguments->all, "Parentheses and internal classes too");
    addOutput(command, arguments->output);
    command.footer("The classes for users: those compiled in and those of the data file, without the parentheses and\n"
                   "the classes that serve the library alone, which have numbers too.");
    return [arguments] { return runClasses(arguments->all, arguments->output); };
}

Action addUnits(CLI::App &command) {
    const auto arguments = std::make_shared<UnitsArguments>();
    command.add_option("CLASS", arguments->classString, "Class, or class string")->required();
    command.add_option("--slate", arguments->slate, "Mark the default units of this slate with *")
        ->option_text("SLATE")
        ->check(notEmpty());
    addOutput(command, arguments->output);
    command.footer("Value in base units = (value + offset) * factor; the offset counts in temperatures and pressures.\n"
                   "For a composite class, the units of its components.");
    return [arguments] { return runUnits(*arguments); };
}
