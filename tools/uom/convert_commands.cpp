// uom convert, uom constants: numbers from one unit to another.
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "text.h"

namespace {

struct Units {
    std::string classString, from, to;
};

// FROM and TO are either the words behind CLASS or the names of two slates, by option.
struct ConversionArguments {
    std::vector<std::string> words;
    std::string fromSlate, toSlate, format;
    bool hasSlates() const { return !fromSlate.empty(); }
    size_t unitWords() const { return hasSlates() ? 1 : 3; }
};

std::shared_ptr<ConversionArguments> addConversionArguments(CLI::App &command, const std::string &words) {
    auto arguments = std::make_shared<ConversionArguments>();
    command
        .add_option("CLASS FROM TO" + words, arguments->words,
                    "Class string, source and target units (or names of slates)" +
                        std::string(words.empty() ? "" : ", values"))
        ->option_text(" ")
        ->required();
    CLI::Option *from = command.add_option("--from-slate", arguments->fromSlate,
                                           "Convert from the units of this slate, in place of FROM and TO");
    CLI::Option *to = command.add_option("--to-slate", arguments->toSlate, "Convert to the units of this slate");
    from->needs(to);
    to->needs(from);
    return arguments;
}

Units readUnits(const ConversionArguments &arguments) {
    if (arguments.hasSlates()) {
        slateNumber(arguments.fromSlate);
        slateNumber(arguments.toSlate);
        return {fromTerminal(arguments.words[0]), arguments.fromSlate, arguments.toSlate};
    }
    return {fromTerminal(arguments.words[0]), fromTerminal(arguments.words[1]), fromTerminal(arguments.words[2])};
}

// Too few words are wrong usage, not a failure of the conversion.
void requireUnitWords(const ConversionArguments &arguments) {
    if (arguments.words.size() < arguments.unitWords())
        throw CLI::RequiredError("CLASS, FROM and TO, or CLASS with --from-slate and --to-slate,");
}

// Each value is a call of its own: what a value gives does not depend on its place in the input.
double convert(const Units &units, double value) {
    if (uoms_ConvertArray(&value, 1, units.classString.c_str(), units.from.c_str(), units.to.c_str()) != 0)
        throw Failure(libraryMessage());
    return value;
}

void printValue(const ConversionArguments &arguments, double value) {
    if (arguments.format.empty())
        std::cout << shortestNumber(value) << '\n';
    else
        std::cout << formatNumber(arguments.format, value) << '\n';
}

void convertWords(const ConversionArguments &arguments, const Units &units) {
    std::vector<double> values;
    for (size_t i = arguments.unitWords(); i < arguments.words.size(); ++i) {
        const auto value = parseNumber(arguments.words[i]);
        if (!value)
            throw Failure("\"" + arguments.words[i] + "\" is not a number.");
        values.push_back(*value);
    }
    for (const double value : values)
        printValue(arguments, convert(units, value));
}

void convertInput(const ConversionArguments &arguments, const Units &units) {
    std::string line;
    for (int number = 1; std::getline(std::cin, line); ++number) {
        const std::string text(trimmed(line));
        if (text.empty())
            continue;
        const auto value = parseNumber(text);
        if (!value)
            throw Failure("standard input:" + std::to_string(number) + ": \"" + text + "\" is not a number.");
        printValue(arguments, convert(units, *value));
    }
}

std::string validateFormat(const std::string &format) {
    return isNumberFormat(format) ? "" : "\"" + format + "\" is not a printf format for one number, like %.6g";
}

int runConvert(const ConversionArguments &arguments) {
    const Units units = readUnits(arguments);
    convert(units, 0.0); // bad units fail before any input is read
    if (arguments.words.size() > arguments.unitWords())
        convertWords(arguments, units);
    else
        convertInput(arguments, units);
    return 0;
}

int runConstants(const ConversionArguments &arguments) {
    const Units units = readUnits(arguments);
    double factor, offset;
    const int32_t status =
        uoms_CalculateConvConstants(units.classString.c_str(), units.from.c_str(), units.to.c_str(), &factor, &offset);
    if (status == 5)
        throw Failure("The conversion from \"" + units.from + "\" to \"" + units.to + "\" is not linear.");
    if (status != 0)
        throw Failure(libraryMessage());
    std::cout << "factor " << shortestNumber(factor) << "\noffset " << shortestNumber(offset) << '\n';
    return 0;
}

} // namespace

Action addConvert(CLI::App &command) {
    const auto arguments = addConversionArguments(command, " VALUE");
    command.add_option("--format", arguments->format, "printf format of the results, like %.6g")
        ->check(CLI::Validator(validateFormat, "FORMAT"));
    command.parse_complete_callback([arguments] { requireUnitWords(*arguments); });
    command.footer("Without values, reads them from standard input, one a line.");
    return [arguments] { return runConvert(*arguments); };
}

Action addConstants(CLI::App &command) {
    const auto arguments = addConversionArguments(command, "");
    command.parse_complete_callback([arguments] {
        requireUnitWords(*arguments);
        if (arguments->words.size() > arguments->unitWords())
            throw CLI::ExtrasError({arguments->words.back()});
    });
    command.footer("y = (x + offset) * factor");
    return [arguments] { return runConstants(*arguments); };
}
