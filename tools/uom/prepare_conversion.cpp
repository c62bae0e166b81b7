#include "prepare_conversion.h"

#include <utility>

#include "commands.h"
#include "text.h"

uom::Conversion prepareConversion(const std::string &classString, const std::string &from, const std::string &to) {
    if (trimmed(classString).empty())
        throw Failure("The units \"" + from + "\" and \"" + to +
                      "\" need a class: put it behind them, like @Pres, or give it by --class (see uom classes).");
    auto conversion = uom::Conversion::tryMake(fromTerminal(classString), fromTerminal(from), fromTerminal(to));
    if (!conversion)
        throw Failure(conversion.message().empty() ? "The Unit-of-Measure class is missing." : conversion.message());
    return std::move(conversion).take();
}
