// uom keyword: units as the fixed-layout keyword text, and back.
#include <iostream>
#include <memory>

#include "class_names.h"
#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

constexpr size_t KEYWORD_WIDTH = 5; // the class, and the blank behind it

struct KeywordArguments {
    std::string classString, units, text;
};

bool isBlank(std::string_view text) {
    return trimmed(text).empty();
}

// The layout has room for one class, without an exponent.
bool isSingleClass(const uom::Chain &chain) {
    return uom_GetClassCount(chain.get()) == 1 && chain.begin()->exponent == 1;
}

// Each unit must have a keyword, or the text would say less than the units do.
void requireUnitKeywords(const uom::Chain &chain) {
    for (const UomStructNode &node : chain)
        if (node.unit > UOM_NULL && uom::unitText(node.unit, UOM_STYLE_KEYWORD).empty())
            throw Failure("The unit \"" + uom::unitText(node.unit) + "\" has no keyword.");
}

// A rate in moles is written in the mass unit of the same name; the library clears the unit when there is none.
bool lostUnit(const uom::Chain &chain) {
    const UomStructNode *behind = chain.begin()->next;
    return uom_CheckForBasis(chain.get()) && behind && behind->unit == UOM_NULL;
}

int runWrite(const KeywordArguments &arguments) {
    const uom::Chain chain = filledChain(arguments.classString, arguments.units);
    requireUnitKeywords(chain);
    std::string text;
    if (isSingleClass(chain))
        text = uom::wholeText([&](char *out, int32_t size) { uom_StructToOXString(chain.get(), out, size); });
    if (isBlank(std::string_view(text).substr(0, KEYWORD_WIDTH)))
        throw Failure("The class \"" + arguments.classString + "\" has no keyword text.");
    if (lostUnit(chain))
        throw Failure("The units \"" + arguments.units + "\" have no keyword text.");
    std::cout << toTerminal(text) << '\n';
    return 0;
}

int runRead(const std::string &text) {
    const uom::Chain chain(uom_ClassAndUnitToStruct(fromTerminal(text).c_str(), UOM_STYLE_KEYWORD));
    const std::string units = chain.units();
    // Units that are not found leave their places empty: then the rest can't be read as units of the class.
    if (!chain.copy().tryFill(units))
        throw Failure("The keyword text \"" + text + "\" is not understood.");
    std::cout << toTerminal(chain.classText()) << '\n' << toTerminal(units) << '\n';
    return 0;
}

} // namespace

Action addKeyword(CLI::App &command) {
    const auto arguments = std::make_shared<KeywordArguments>();
    CLI::Option *classString = command.add_option("CLASS", arguments->classString, "Class string");
    CLI::Option *units = command.add_option("UNITS", arguments->units, "Units, to be written as keyword text");
    CLI::Option *read = command.add_option("--read", arguments->text, "Print class string and units of a keyword text")
                            ->option_text("TEXT")
                            ->excludes(classString)
                            ->excludes(units);
    command.parse_complete_callback([read, units] {
        if (read->empty() && units->empty())
            throw CLI::RequiredError("CLASS and UNITS, or --read,");
    });
    command.footer("A keyword text has four characters for the class, a blank, and twenty for the units.");
    return [arguments, read] { return read->empty() ? runWrite(*arguments) : runRead(arguments->text); };
}
