// uom keyword: units as the fixed-layout keyword text, and back.
#include <iostream>
#include <memory>

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
bool isSingleClass(UomStructNode *chain) {
    return uom_GetClassCount(chain) == 1 && chain->exponent == 1;
}

// Each unit must have a keyword, or the text would say less than the units do.
void requireUnitKeywords(const UomStructNode *chain) {
    for (const UomStructNode *node = chain; node; node = node->next)
        if (node->unit > UOM_NULL && unitText(node->unit, UOM_STYLE_KEYWORD).empty())
            throw Failure("The unit \"" + unitText(node->unit, UOM_STYLE_TOKEN) + "\" has no keyword.");
}

// A rate in moles is written in the mass unit of the same name; the library clears the unit when there is none.
bool lostUnit(UomStructNode *chain) {
    return uom_CheckForBasis(chain) && chain->next && chain->next->unit == UOM_NULL;
}

int runWrite(const KeywordArguments &arguments) {
    const Chain chain = newChain(fromTerminal(arguments.classString));
    if (uom_FillStructFromString(chain.get(), fromTerminal(arguments.units).c_str(), UOM_STYLE_TOKEN) != 0)
        throw Failure(libraryMessage());
    requireUnitKeywords(chain.get());
    char text[512] = "";
    if (isSingleClass(chain.get()))
        uom_StructToOXString(chain.get(), text, sizeof text);
    if (isBlank(std::string_view(text).substr(0, KEYWORD_WIDTH)))
        throw Failure("The class \"" + arguments.classString + "\" has no keyword text.");
    if (lostUnit(chain.get()))
        throw Failure("The units \"" + arguments.units + "\" have no keyword text.");
    std::cout << toTerminal(text) << '\n';
    return 0;
}

int runRead(const std::string &text) {
    char classString[512] = "", units[512] = "";
    const Chain chain(uom_ClassAndUnitToStruct(fromTerminal(text).c_str(), UOM_STYLE_KEYWORD));
    if (chain) {
        uom_BuildClassString(chain.get(), classString, sizeof classString, UOM_STYLE_TOKEN);
        uom_GetDisplayUnits(chain.get(), units, sizeof units, UOM_STYLE_TOKEN);
    }
    // Units that are not found leave their places empty: then the rest can't be read as units of the class.
    const Chain again(uom_Copy(chain.get()));
    if (!again || uom_FillStructFromString(again.get(), units, UOM_STYLE_TOKEN) != 0)
        throw Failure("The keyword text \"" + text + "\" is not understood.");
    std::cout << toTerminal(classString) << '\n' << toTerminal(units) << '\n';
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
