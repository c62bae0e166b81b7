// uom convert, uom constants: numbers from one unit to another.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "table.h"
#include "text.h"

namespace {

struct Units {
    std::string classString, from, to;
};

// FROM and TO are either the words behind CLASS or the names of two slates, by option.
struct ConversionArguments {
    std::vector<std::string> words;
    std::string fromSlate, toSlate, format;
    int digits = 12;
    Output output = Output::TEXT;
    bool hasSlates() const { return !fromSlate.empty(); }
    size_t unitWords() const { return hasSlates() ? 1 : 3; }
};

CLI::Option *addPrecision(CLI::App &command, int &digits) {
    const std::string range = "1 to 17, or full for the shortest text that reads back as the same number";
    return command
        .add_option_function<std::string>(
            "--precision",
            [&digits, range](const std::string &text) {
                const auto count = parseNumber(text);
                const bool known =
                    text == "full" || (count && *count >= 1 && *count <= 17 && *count == std::floor(*count));
                if (!known)
                    throw CLI::ValidationError("--precision", "\"" + text + "\" is not " + range);
                digits = text == "full" ? FULL_PRECISION : static_cast<int>(*count);
            },
            "Significant digits: " + range + "; 12 by default")
        ->option_text("DIGITS");
}

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
        uom::findSlate(arguments.fromSlate);
        uom::findSlate(arguments.toSlate);
        return {fromTerminal(arguments.words[0]), arguments.fromSlate, arguments.toSlate};
    }
    return {fromTerminal(arguments.words[0]), fromTerminal(arguments.words[1]), fromTerminal(arguments.words[2])};
}

// Too few words are wrong usage, not a failure of the conversion.
void requireUnitWords(const ConversionArguments &arguments) {
    if (arguments.words.size() < arguments.unitWords())
        throw CLI::RequiredError("CLASS, FROM and TO, or CLASS with --from-slate and --to-slate,");
}

// Says why units were refused; of a class string with no class in it ("", "/") the library says nothing.
[[noreturn]] void refuse() {
    const std::string message = uom::lastMessage();
    throw Failure(message.empty() ? "The Unit-of-Measure class is missing." : message);
}

// Each value is a call of its own: what a value gives does not depend on its place in the input.
double convert(const Units &units, double value) {
    if (uoms_ConvertArray(&value, 1, units.classString.c_str(), units.from.c_str(), units.to.c_str()) != UOM_DONE)
        refuse();
    return value;
}

void printValue(const ConversionArguments &arguments, double value) {
    if (arguments.format.empty())
        std::cout << roundedNumber(value, arguments.digits) << '\n';
    else
        std::cout << formatNumber(arguments.format, value) << '\n';
}

int convertWords(const ConversionArguments &arguments, const Units &units) {
    std::vector<double> values;
    for (size_t i = arguments.unitWords(); i < arguments.words.size(); ++i) {
        const auto value = parseNumber(arguments.words[i]);
        if (!value)
            throw Failure("\"" + arguments.words[i] + "\" is not a number.");
        values.push_back(*value);
    }
    for (const double value : values)
        printValue(arguments, convert(units, value));
    return 0;
}

// Each line of input has its line of output, empty where there is no number: a column stays in step with what it was
// taken from. 1 when a line was no number.
int convertInput(const ConversionArguments &arguments, const Units &units) {
    int status = 0;
    std::string line;
    for (int number = 1; std::getline(std::cin, line); ++number) {
        const std::string text(trimmed(line));
        const auto value = parseNumber(text);
        if (value) {
            printValue(arguments, convert(units, *value));
            continue;
        }
        std::cout << '\n';
        if (text.empty())
            continue;
        std::cerr << "uom: standard input:" << number << ": \"" << toTerminal(text) << "\" is not a number.\n";
        status = 1;
    }
    // The stream takes a failed read for the end; the file knows better.
    if (std::ferror(stdin))
        throw Failure("Unable to read the standard input.");
    return status;
}

std::string validateFormat(const std::string &format) {
    return isNumberFormat(format) ? "" : "\"" + format + "\" is not a printf format for one number, like %.6g";
}

int runConvert(const ConversionArguments &arguments) {
    const Units units = readUnits(arguments);
    convert(units, 0.0); // bad units fail before any input is read
    if (arguments.words.size() > arguments.unitWords())
        return convertWords(arguments, units);
    return convertInput(arguments, units);
}

int runConstants(const ConversionArguments &arguments) {
    const Units units = readUnits(arguments);
    double factor, offset;
    const int32_t status =
        uoms_CalculateConvConstants(units.classString.c_str(), units.from.c_str(), units.to.c_str(), &factor, &offset);
    if (status == UOM_CONVERT_NOT_LINEAR)
        throw Failure("The conversion from \"" + units.from + "\" to \"" + units.to + "\" is not linear.");
    if (status != UOM_DONE)
        refuse();
    TextTable table = {{{"factor", true}, {"offset", true}},
                       {{roundedNumber(factor, arguments.digits), roundedNumber(offset, arguments.digits)}}};
    table.upright = true;
    table.gap = 1;
    print(table, arguments.output);
    return 0;
}

} // namespace

Action addConvert(CLI::App &command) {
    const auto arguments = addConversionArguments(command, " VALUE");
    command.add_option("--format", arguments->format, "printf format of the results, like %.6g")
        ->check(CLI::Validator(validateFormat, "FORMAT"))
        ->excludes(addPrecision(command, arguments->digits));
    command.parse_complete_callback([arguments] { requireUnitWords(*arguments); });
    command.footer("Without values, reads them from standard input, one a line, and prints a line for each.");
    return [arguments] { return runConvert(*arguments); };
}

Action addConstants(CLI::App &command) {
    const auto arguments = addConversionArguments(command, "");
    addPrecision(command, arguments->digits);
    addOutput(command, arguments->output);
    command.parse_complete_callback([arguments] {
        requireUnitWords(*arguments);
        if (arguments->words.size() > arguments->unitWords())
            throw CLI::ExtrasError({arguments->words.back()});
    });
    command.footer("y = (x + offset) * factor");
    return [arguments] { return runConstants(*arguments); };
}
