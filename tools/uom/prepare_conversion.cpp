#include "prepare_conversion.h"

#include <utility>

#include "commands.h"
#include "text.h"

uom::Conversion prepareConversion(const std::string &classString, const std::string &from, const std::string &to) {
    // The names of slates stand for their units.
    const auto isSlate = [](const std::string &text) { return uom_GetSetType(text.c_str()) > 0; };
    auto conversion = isSlate(from) || isSlate(to)
                          ? uom::Conversion::tryMake(fromTerminal(classString), fromTerminal(from), fromTerminal(to))
                          : uom::Conversion::tryFromEntries(trimmed(classString), from, to);
    if (!conversion)
        throw Failure(conversion.message());
    return std::move(conversion).take();
}
