// uom slates, uom slate, uom show: the sets of default units, and what a quantity is shown in.
#include <iostream>
#include <map>
#include <memory>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

const char *const flagNames[] = {"isSystem", "isHidden", "allowDelete", "allowModify"};

const std::map<std::string, int32_t> styleNames = {
    {"token", 1}, {"keyword", 2}, {"tokensuper", 3}, {"tokenupper", 4}, {"longname", 5}, {"html", 6},
};

// The slate at the end of the line of parents: based on itself, or on one that does not exist.
std::string rootOf(std::string slate) {
    for (int32_t steps = 0; steps < UOM_SET_MAX; ++steps) {
        const std::string parent = slateParent(slate);
        if (equalNoCase(parent, slate) || uom_GetSetType(parent.c_str()) < 1)
            return slate;
        slate = parent;
    }
    return "";
}

std::string flagsOf(const std::string &slate) {
    std::string flags;
    for (const char *flag : flagNames)
        if (statedDefault(slate, flag) == "1")
            flags += (flags.empty() ? "" : " ") + std::string(flag);
    return flags;
}

int runSlates() {
    TextTable table;
    table.rows.push_back({"Name", "Parent", "Root", "GaugePresBasis", "Properties"});
    for (const std::string &slate : textLines(Table(uom_GetSetList()).get()))
        if (!slate.empty())
            table.rows.push_back(
                {slate, slateParent(slate), rootOf(slate), statedDefault(slate, "GaugePresBasis"), flagsOf(slate)});
    print(table);
    return 0;
}

int runSlate(const std::string &name, int32_t layout) {
    slateNumber(name);
    for (const std::string &line : textLines(Table(uoms_GetSetDefinition(name.c_str(), layout)).get()))
        std::cout << toTerminal(line) << '\n';
    return 0;
}

struct ShowArguments {
    std::string classString, slate = "Current", units;
    int32_t style = TOKEN_STYLE;
};

std::string unitsInSlate(const ShowArguments &arguments) {
    char text[8192];
    slateNumber(arguments.slate);
    uoms_GetDisplayUnits(arguments.classString.c_str(), arguments.slate.c_str(), text, sizeof text, arguments.style);
    if (!*text)
        newChain(arguments.classString); // an empty text for a class string that is understood is an answer
    return text;
}

std::string unitsAsGiven(const ShowArguments &arguments) {
    char text[8192];
    const Chain chain = newChain(arguments.classString);
    if (uom_FillStructFromString(chain.get(), fromTerminal(arguments.units).c_str(), TOKEN_STYLE) != 0)
        throw Failure(libraryMessage());
    uom_GetDisplayUnits(chain.get(), text, sizeof text, arguments.style);
    return text;
}

int runShow(const ShowArguments &arguments) {
    const std::string text = arguments.units.empty() ? unitsInSlate(arguments) : unitsAsGiven(arguments);
    std::cout << toTerminal(text) << '\n';
    return 0;
}

} // namespace

Action addSlates(CLI::App &) {
    return runSlates;
}

Action addSlate(CLI::App &command) {
    struct Arguments {
        std::string name;
        int32_t layout = 2;
    };
    const auto arguments = std::make_shared<Arguments>();
    command.add_option("NAME", arguments->name, "Name of the slate")->required();
    command
        .add_option("--layout", arguments->layout, "0 differences from the parent, 1 all classes, 2 key=value lines")
        ->check(CLI::Range(0, 2))
        ->capture_default_str();
    command.footer("The text of layout 2 can be read back with --define.");
    return [arguments] { return runSlate(arguments->name, arguments->layout); };
}

Action addShow(CLI::App &command) {
    const auto arguments = std::make_shared<ShowArguments>();
    command.add_option("CLASS", arguments->classString, "Class string")->required();
    CLI::Option *slate =
        command.add_option("--slate", arguments->slate, "In the units of this slate")->capture_default_str();
    command.add_option("--units", arguments->units, "In these units")->excludes(slate);
    command.add_option("--style", arguments->style, "Style of the text, token by default")
        ->transform(CLI::CheckedTransformer(styleNames, CLI::ignore_case));
    return [arguments] { return runShow(*arguments); };
}
