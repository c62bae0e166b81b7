// uom slates, uom slate, uom show: the sets of default units, and what a quantity is shown in.
#include <iostream>
#include <map>
#include <memory>

#include "class_names.h"
#include "commands.h"
#include "library.h"
#include "options.h"
#include "table.h"
#include "text.h"

namespace {

const char *const flagNames[] = {"isSystem", "isHidden", "allowDelete", "allowModify"};

const std::map<std::string, int32_t> styleNames = {
    {"token", UOM_STYLE_TOKEN},
    {"keyword", UOM_STYLE_KEYWORD},
    {"tokensuper", UOM_STYLE_TOKEN_SUPER},
    {"tokenupper", UOM_STYLE_TOKEN_UPPER},
    {"longname", UOM_STYLE_LONG_NAME},
    {"html", UOM_STYLE_HTML},
};

constexpr int32_t KEY_VALUE_LINES = 2; // the layout

constexpr size_t UNKNOWN = std::string::npos;

// The slates by number; slate 0 has no name.
struct SlateTree {
    std::vector<std::string> names, parents;
    std::vector<size_t> roots; // UNKNOWN where not looked for
};

SlateTree readSlates() {
    SlateTree tree = {{""}, {""}, {}};
    for (const uom::SlateEntry &slate : uom::slates()) {
        tree.names.push_back(slate.name);
        tree.parents.push_back(slate.parent);
    }
    tree.roots.assign(tree.names.size(), UNKNOWN);
    return tree;
}

// The slate at the end of the line of parents: based on itself, or on one that does not exist. Slate 0 when the line
// goes in a circle, which the slates on the way have for a root until theirs is known.
size_t rootOf(SlateTree &tree, size_t at) {
    std::vector<size_t> line;
    while (tree.roots[at] == UNKNOWN) {
        line.push_back(at);
        tree.roots[at] = 0;
        const int32_t parent = uom_GetSetType(tree.parents[at].c_str());
        const auto next = static_cast<size_t>(parent);
        if (parent < 1 || next == at)
            tree.roots[at] = at;
        else
            at = next;
    }
    const size_t root = tree.roots[at];
    for (const size_t passed : line)
        tree.roots[passed] = root;
    return root;
}

std::string flagsOf(const std::string &slate) {
    std::string flags;
    for (const char *flag : flagNames)
        if (statedDefault(slate, flag) == "1")
            flags += (flags.empty() ? "" : " ") + std::string(flag);
    return flags;
}

int runSlates(Output output) {
    TextTable table = {{{"Name"}, {"Parent"}, {"Root"}, {"GaugePresBasis", true}, {"Properties"}}};
    SlateTree tree = readSlates();
    for (size_t i = 1; i < tree.names.size(); ++i) {
        const std::string &slate = tree.names[i];
        const std::string &root = tree.names[rootOf(tree, i)];
        table.rows.push_back({slate, tree.parents[i], root, statedDefault(slate, "GaugePresBasis"), flagsOf(slate)});
    }
    print(table, output);
    return 0;
}

struct SlateArguments {
    std::string name;
    int32_t layout = KEY_VALUE_LINES;
    Output output = Output::TEXT;
};

// Keys and values stand in one line, behind the slate's name as a section's.
void addKeyValueLines(TextTable &table, const std::vector<std::string> &lines) {
    for (const std::string &line : lines) {
        const size_t equals = line.find('=');
        if (equals != std::string::npos)
            table.rows.push_back({line.substr(0, equals), line.substr(equals + 1)});
    }
}

// Keys and values take turns, behind the name of the parent.
void addTurns(TextTable &table, const std::vector<std::string> &lines) {
    table.rows.push_back({"BasedOn", lines.empty() ? "" : lines[0]});
    for (size_t i = 2; i < lines.size(); i += 2)
        table.rows.push_back({lines[i - 1], lines[i]});
}

void printDefinition(const SlateArguments &arguments, const std::vector<std::string> &lines) {
    TextTable table = {{{"Key"}, {"Value"}}};
    if (arguments.layout == KEY_VALUE_LINES)
        addKeyValueLines(table, lines);
    else
        addTurns(table, lines);
    print(table, arguments.output);
}

int runSlate(const SlateArguments &arguments) {
    requireSlate(arguments.name);
    const auto lines = uom::slateDefinition(arguments.name, arguments.layout);
    if (arguments.output != Output::TEXT) {
        printDefinition(arguments, lines);
        return 0;
    }
    for (const std::string &line : lines)
        std::cout << toTerminal(line) << '\n';
    return 0;
}

struct ShowArguments {
    std::string classString, slate = "Current", units;
    int32_t style = UOM_STYLE_TOKEN;
};

std::string unitsAsGiven(const ShowArguments &arguments) {
    return filledChain(arguments.classString, arguments.units).units(arguments.style);
}

int runShow(const ShowArguments &arguments) {
    requireClass(arguments.classString);
    requireSlate(arguments.slate);
    const std::string text = arguments.units.empty()
                                 ? uom::displayUnits(arguments.classString, arguments.slate, arguments.style)
                                 : unitsAsGiven(arguments);
    std::cout << toTerminal(text) << '\n';
    return 0;
}

} // namespace

Action addSlates(CLI::App &command) {
    const auto output = std::make_shared<Output>(Output::TEXT);
    addOutput(command, *output);
    return [output] { return runSlates(*output); };
}

Action addSlate(CLI::App &command) {
    const auto arguments = std::make_shared<SlateArguments>();
    command.add_option("SLATE", arguments->name, "Name of the slate")->required();
    command
        .add_option("--layout", arguments->layout, "0 differences from the parent, 1 all classes, 2 key=value lines")
        ->check(CLI::Range(0, 2))
        ->capture_default_str();
    addOutput(command, arguments->output);
    command.footer("The text of layout 2 can be read back with --define.");
    return [arguments] { return runSlate(*arguments); };
}

Action addShow(CLI::App &command) {
    const auto arguments = std::make_shared<ShowArguments>();
    command.add_option("CLASS", arguments->classString, "Class string")->required();
    CLI::Option *slate = command.add_option("--slate", arguments->slate, "In the units of this slate")
                             ->capture_default_str()
                             ->option_text("SLATE");
    command.add_option("--units", arguments->units, "In these units")->excludes(slate)->check(notEmpty());
    addChoice(command, "--style", arguments->style, styleNames, "Style of the text, token by default");
    return [arguments] { return runShow(*arguments); };
}
