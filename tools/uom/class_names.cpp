#include "class_names.h"

#include <cstdlib>
#include <utility>

#include "commands.h"
#include "library.h"
#include "nearest.h"
#include "text.h"

static int32_t findClass(int32_t first, int32_t end, const std::string &name, int32_t style) {
    for (int32_t c = first; c < end; ++c)
        if (equalNoCase(uom::classText(c, style), name))
            return c;
    return 0;
}

static int32_t findClass(int32_t first, int32_t end, const std::string &name) {
    if (name.empty())
        return 0;
    const int32_t byToken = findClass(first, end, name, UOM_STYLE_TOKEN);
    return byToken ? byToken : findClass(first, end, name, UOM_STYLE_LONG_NAME);
}

int32_t compiledClass(const std::string &name) {
    // The one alternative token that is not the work of start-up.
    return findClass(FIRST_CLASS, UOM_COMPILED_CLASSES, equalNoCase(name, "VapVol") ? "StdVapVol" : name);
}

int32_t customClass(const std::string &name) {
    return findClass(UOM_COMPILED_CLASSES, uom_GetUOMClassCount(), name);
}

uom::Chain requireClass(const std::string &classString) {
    auto chain = uom::Chain::tryMake(fromTerminal(classString));
    if (chain)
        return std::move(chain).take();
    const std::vector<std::string> classes = uom::entryClasses(classString);
    if (!classes.empty())
        throw Failure("\"" + classString + "\" is no class; it is a unit of " + classes[0] + " (see uom units " +
                      classes[0] + ").");
    const auto asked = uom::tryReadEntry(classString, "kg");
    const bool suggested = !asked && asked.message().find("Did you mean") != std::string::npos;
    throw Failure(suggested ? asked.message() : chain.message());
}

std::string unitSuggestion(const std::string &classString, const std::string &units) {
    UomEntry entry;
    uom_ReadEntry(classString.c_str(), units.c_str(), &entry);
    const std::string text = *entry.suggestion ? entry.suggestion : entry.units;
    return text.empty() || text == units ? "" : " Did you mean \"" + text + "\"?";
}

uom::Chain filledChain(const std::string &classString, const std::string &units) {
    uom::Chain chain = requireClass(classString);
    if (const auto filled = chain.tryFill(fromTerminal(units)); !filled)
        throw Failure(filled.message() + unitSuggestion(classString, units));
    return chain;
}

std::string slateFault(const std::string &name) {
    const auto found = uom::tryFindSlate(fromTerminal(name));
    if (found)
        return "";
    std::vector<std::string> names;
    for (const uom::SlateEntry &slate : uom::slates())
        names.push_back(toTerminal(slate.name));
    return found.message() + didYouMean(name, names);
}

int32_t requireSlate(const std::string &name) {
    if (const std::string fault = slateFault(name); !fault.empty())
        throw Failure(fault);
    return uom::findSlate(fromTerminal(name));
}

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
