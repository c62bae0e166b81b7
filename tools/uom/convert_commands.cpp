// uom convert, uom constants: numbers from one unit to another.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>

#include "commands.h"
#include "csv_command.h"
#include "library.h"
#include "table.h"
#include "text.h"

namespace {

constexpr const char *CSV_GROUP = "Columns of a CSV file";

// Unit texts as the classical operations read them; a typed text may be a multiple of its unit.
struct Units {
    std::string classString, from, to;
    double fromScale = 1.0, toScale = 1.0;
};

// FROM and TO are either the words behind CLASS or the names of two slates, by option.
struct ConversionArguments {
    std::vector<std::string> words;
    std::string fromSlate, toSlate, format;
    int digits = 12;
    bool classic = false;
    Output output = Output::TEXT;
    bool hasSlates() const { return !fromSlate.empty(); }
    size_t unitWords() const { return hasSlates() ? 1 : 3; }
};

void addConversionArguments(CLI::App &command, ConversionArguments &arguments, const std::string &words) {
    command
        .add_option("CLASS FROM TO" + words, arguments.words,
                    "Class string, source and target units (or names of slates)" +
                        std::string(words.empty() ? "" : ", values"))
        ->option_text(" ");
    CLI::Option *from = command
                            .add_option("--from-slate", arguments.fromSlate,
                                        "Convert from the units of this slate, in place of FROM and TO")
                            ->option_text("SLATE");
    CLI::Option *to =
        command.add_option("--to-slate", arguments.toSlate, "Convert to the units of this slate")->option_text("SLATE");
    from->needs(to);
    to->needs(from);
    command.add_flag("--classic", arguments.classic,
                     "Read unit texts as the classical operations do, which pass over what they do not know");
}

// The catalogue's text for a typed unit, and what one of the typed unit is in it. Names of slates stay as they are.
std::string readUnit(const std::string &classString, const std::string &text, double &scale) {
    const uom::Result<uom::Chain> chain = uom::Chain::tryMake(fromTerminal(classString));
    if (!chain)
        throw Failure(chain.message());
    if (uom_GetSetType(fromTerminal(text).c_str()) > 0)
        return fromTerminal(text);
    const auto entry = uom::tryReadEntry(classString, text);
    if (!entry)
        throw Failure(entry.message());
    scale = entry->scale * entry->value.value_or(1.0);
    return entry->units;
}

Units readUnits(const ConversionArguments &arguments) {
    if (arguments.hasSlates()) {
        uom::findSlate(arguments.fromSlate);
        uom::findSlate(arguments.toSlate);
        return {fromTerminal(arguments.words[0]), arguments.fromSlate, arguments.toSlate};
    }
    if (arguments.classic)
        return {fromTerminal(arguments.words[0]), fromTerminal(arguments.words[1]), fromTerminal(arguments.words[2])};
    Units units = {fromTerminal(arguments.words[0]), {}, {}};
    units.from = readUnit(arguments.words[0], arguments.words[1], units.fromScale);
    units.to = readUnit(arguments.words[0], arguments.words[2], units.toScale);
    return units;
}

// Too few words, or none at all, are wrong usage, not a failure of the conversion.
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
    if (units.fromScale != 1.0)
        value *= units.fromScale;
    if (uoms_ConvertArray(&value, 1, units.classString.c_str(), units.from.c_str(), units.to.c_str()) != UOM_DONE)
        refuse();
    return units.toScale == 1.0 ? value : value / units.toScale;
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
    factor *= units.fromScale / units.toScale;
    offset /= units.fromScale;
    TextTable table = {{{"factor", true}, {"offset", true}},
                       {{roundedNumber(factor, arguments.digits), roundedNumber(offset, arguments.digits)}}};
    table.upright = true;
    table.gap = 1;
    print(table, arguments.output);
    return 0;
}

// --- uom convert --csv

std::string validateColumn(const std::string &text) {
    return isColumnRequest(text) ? "" : "\"" + text + "\" is not NAME=FROM:TO, like P=psig:kPa@Pres";
}

// None that is a part of numbers.
const std::map<std::string, char> separators = {{",", ','}, {";", ';'}, {"|", '|'}, {":", ':'}, {"tab", '\t'}};

std::string validateSeparator(const std::string &text) {
    return separators.count(text) ? "" : "\"" + text + "\" does not separate cells";
}

void addSeparator(CLI::App &command, CLI::Option *csv, char &separator) {
    command
        .add_option_function<std::string>(
            "--separator", [&separator](const std::string &text) { separator = separators.at(text); },
            "Between the cells: , ; | : or tab; a comma by default")
        ->option_text("CHAR")
        ->check(CLI::Validator(validateSeparator, ""))
        ->needs(csv)
        ->group(CSV_GROUP);
}

CLI::Option *addCsvArguments(CLI::App &command, CsvArguments &arguments) {
    CLI::Option *csv =
        command.add_option("--csv", arguments.input, "Convert columns of this CSV file; - is standard input")
            ->option_text("FILE")
            ->group(CSV_GROUP);
    command
        .add_option("--column", arguments.columns,
                    "NAME=FROM:TO or NAME=FROM:TO@CLASS; NAME is a heading or a number from 1; may be repeated")
        ->option_text("COLUMN")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->check(CLI::Validator(validateColumn, ""))
        ->needs(csv)
        ->group(CSV_GROUP);
    command.add_option("--class", arguments.classString, "Class of the columns that name none")
        ->option_text("CLASS")
        ->needs(csv)
        ->group(CSV_GROUP);
    command.add_option("-o", arguments.output, "Write to this file; - or none is standard output")
        ->option_text("FILE")
        ->needs(csv)
        ->group(CSV_GROUP);
    command
        .add_flag_callback(
            "--no-header", [&arguments] { arguments.header = false; }, "The first line is a row like others")
        ->needs(csv)
        ->group(CSV_GROUP);
    addSeparator(command, csv, arguments.separator);
    return csv;
}

struct ConvertArguments {
    ConversionArguments conversion;
    CsvArguments csv;
};

void requireCsvColumns(const ConvertArguments &arguments) {
    if (!arguments.conversion.words.empty())
        throw CLI::ExtrasError({arguments.conversion.words.back()});
    if (arguments.csv.columns.empty())
        throw CLI::RequiredError("--column");
}

} // namespace

Action addConvert(CLI::App &command) {
    const auto arguments = std::make_shared<ConvertArguments>();
    ConversionArguments &conversion = arguments->conversion;
    addConversionArguments(command, conversion, " VALUE");
    CLI::Option *precision = addPrecision(command, conversion.digits);
    CLI::Option *format = command.add_option("--format", conversion.format, "printf format of the results, like %.6g")
                              ->check(CLI::Validator(validateFormat, "FORMAT"))
                              ->excludes(precision);
    CLI::Option *csv = addCsvArguments(command, arguments->csv);
    csv->excludes(format)->excludes(command.get_option("--from-slate"))->excludes(command.get_option("--to-slate"));
    command.parse_complete_callback([arguments, csv] {
        if (csv->empty())
            requireUnitWords(arguments->conversion);
        else
            requireCsvColumns(*arguments);
    });
    command.footer(
        "Without values, reads them from standard input, one a line, and prints a line for each.\n"
        "\n"
        "With --csv, numbers in the columns named are replaced by their shortest texts that read back as the same\n"
        "number, or those of --precision. All else goes through byte for byte. A cell that is no number stays as it "
        "is\n"
        "and is told on standard error, with its row (the first is 1, a header line too); the first 20 of them, and "
        "how\n"
        "many there are more. Then the tool ends with 3. Empty cells and NaN are no fault.\n"
        "  uom convert --csv log.csv --column P=psig:kPa@Pres --column 3=F:C@Temp -o metric.csv");
    return [arguments, csv, precision] {
        if (csv->empty())
            return runConvert(arguments->conversion);
        arguments->csv.digits = precision->empty() ? FULL_PRECISION : arguments->conversion.digits;
        return convertCsv(arguments->csv);
    };
}

Action addConstants(CLI::App &command) {
    const auto arguments = std::make_shared<ConversionArguments>();
    addConversionArguments(command, *arguments, "");
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
