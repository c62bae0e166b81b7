#include "prepare_conversion.h"

#include <utility>

#include "class_names.h"
#include "commands.h"
#include "text.h"

// The catalogue's text for what is typed beside the name of a slate, which stays as it is.
static std::string besideSlate(const std::string &classString, const std::string &text) {
    const std::string name = fromTerminal(text);
    if (uom_GetSetType(name.c_str()) > 0)
        return name;
    const auto entry = uom::tryReadEntry(classString, text);
    if (!entry)
        throw Failure(entry.message());
    if (entry->scale != 1.0 || entry->value)
        throw Failure("\"" + text + "\" is a multiple of a unit, and a slate has units alone.");
    return entry->units;
}

uom::Conversion prepareConversion(const std::string &classString, const std::string &from, const std::string &to,
                                  std::string *note) {
    const auto isSlate = [](const std::string &text) { return uom_GetSetType(fromTerminal(text).c_str()) > 0; };
    if (isSlate(from) || isSlate(to)) {
        requireClass(classString);
        return prepareClassic(classString, besideSlate(classString, from), besideSlate(classString, to));
    }
    auto conversion = uom::Conversion::tryFromEntries(trimmed(classString), from, to, note);
    if (!conversion)
        throw Failure(conversion.message());
    return std::move(conversion).take();
}

uom::Conversion prepareClassic(const std::string &classString, const std::string &from, const std::string &to) {
    auto conversion = uom::Conversion::tryMake(fromTerminal(classString), fromTerminal(from), fromTerminal(to));
    if (!conversion)
        throw Failure(conversion.message());
    return std::move(conversion).take();
}
