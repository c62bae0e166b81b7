// uom convert, uom constants: numbers from one unit to another.
#include <cmath>
#include <cstdio>
#include <iostream>
#include <map>
#include <memory>

#include "class_names.h"
#include "commands.h"
#include "csv_command.h"
#include "library.h"
#include "options.h"
#include "prepare_conversion.h"
#include "table.h"
#include "text.h"

namespace {

constexpr const char *CSV_GROUP = "Columns of a CSV file";

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
                            ->option_text("SLATE")
                            ->check(notEmpty());
    CLI::Option *to = command.add_option("--to-slate", arguments.toSlate, "Convert to the units of this slate")
                          ->option_text("SLATE")
                          ->check(notEmpty());
    from->needs(to);
    to->needs(from);
    command.add_flag("--classic", arguments.classic,
                     "Read unit texts as the classical operations do, which pass over what they do not know");
}

// Between the units of the words, or of two slates.
uom::Conversion prepare(const ConversionArguments &arguments) {
    const std::vector<std::string> &words = arguments.words;
    requireClass(words[0]);
    if (arguments.hasSlates()) {
        requireSlate(arguments.fromSlate);
        requireSlate(arguments.toSlate);
        return prepareClassic(words[0], arguments.fromSlate, arguments.toSlate);
    }
    return arguments.classic ? prepareClassic(words[0], words[1], words[2])
                             : prepareConversion(words[0], words[1], words[2], nullptr);
}

// Too few words, or none at all, are wrong usage, not a failure of the conversion.
void requireUnitWords(const ConversionArguments &arguments) {
    if (arguments.words.size() < arguments.unitWords())
        throw CLI::RequiredError("CLASS, FROM and TO, or CLASS with --from-slate and --to-slate,");
}

std::string resultText(const ConversionArguments &arguments, double value) {
    return arguments.format.empty() ? roundedNumber(value, arguments.digits) : formatNumber(arguments.format, value);
}

void addResult(const ConversionArguments &arguments, TextTable &table, const std::string &typed, double result) {
    table.rows.push_back({typed, resultText(arguments, result)});
}

TextTable resultTable() {
    return {{{"Value", true}, {"Result", true}}};
}

// As text a result a line, else with its value.
void printResults(const ConversionArguments &arguments, const TextTable &table) {
    if (arguments.output != Output::TEXT)
        return print(table, arguments.output);
    for (const auto &row : table.rows)
        std::cout << row[1] << '\n';
}

int convertWords(const ConversionArguments &arguments, const uom::Conversion &conversion) {
    TextTable table = resultTable();
    for (size_t i = arguments.unitWords(); i < arguments.words.size(); ++i) {
        const std::string &word = arguments.words[i];
        const auto value = parseNumber(word);
        if (!value)
            throw Failure(numberFault(word));
        const double result = conversion(*value);
        if (std::isfinite(*value) && !std::isfinite(result))
            throw Failure("\"" + std::string(trimmed(word)) + "\" has no finite result.");
        addResult(arguments, table, std::string(trimmed(word)), result);
    }
    printResults(arguments, table);
    return 0;
}

// What is wrong with a line of input, and its result.
std::string convertLine(const uom::Conversion &conversion, const std::string &text, double &result) {
    const auto value = parseNumber(text);
    if (!value)
        return numberFault(text);
    result = conversion(*value);
    return std::isfinite(*value) && !std::isfinite(result) ? "\"" + text + "\" has no finite result." : "";
}

// Each line of input has its line of output, empty where there is no number: a column stays in step with what it was
// taken from. 1 when a line was no number.
int convertInput(const ConversionArguments &arguments, const uom::Conversion &conversion) {
    int status = 0;
    std::string line;
    TextTable table = resultTable();
    LineReader reader(std::cin);
    for (int number = 1; reader.next(line); ++number) {
        const std::string text(trimmed(line));
        double result = 0.0;
        const std::string fault = text.empty() ? "" : convertLine(conversion, text, result);
        const std::string shown = text.empty() || !fault.empty() ? "" : resultText(arguments, result);
        if (arguments.output == Output::TEXT)
            std::cout << shown << '\n';
        else
            table.rows.push_back({text, shown});
        if (fault.empty())
            continue;
        std::cerr << "uom: standard input:" << number << ": " << toMessage(fault) << '\n';
        status = 1;
    }
    // The stream takes a failed read for the end; the file knows better.
    if (std::ferror(stdin))
        throw Failure("Unable to read the standard input.");
    if (arguments.output != Output::TEXT)
        print(table, arguments.output);
    return status;
}

std::string validateFormat(const std::string &format) {
    return isNumberFormat(format) ? "" : "\"" + format + "\" is not a printf format for one number, like %.6g";
}

int runConvert(const ConversionArguments &arguments) {
    const uom::Conversion conversion = prepare(arguments); // bad units fail before any input is read
    if (arguments.words.size() > arguments.unitWords())
        return convertWords(arguments, conversion);
    return convertInput(arguments, conversion);
}

int runConstants(const ConversionArguments &arguments) {
    const auto constants = prepare(arguments).constants();
    if (!constants && arguments.hasSlates())
        throw Failure("The conversion is not linear.");
    if (!constants)
        throw Failure("The conversion from \"" + arguments.words[1] + "\" to \"" + arguments.words[2] +
                      "\" is not linear.");
    TextTable table = {
        {{"factor", true}, {"offset", true}},
        {{roundedNumber(constants->factor, arguments.digits), roundedNumber(constants->offset, arguments.digits)}}};
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
const std::map<std::string, char> separators = {{",", ','}, {";", ';'},    {"|", '|'},
                                                {":", ':'}, {"tab", '\t'}, {"\t", '\t'}};

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
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->check(CLI::Validator(validateColumn, ""))
        ->needs(csv)
        ->group(CSV_GROUP);
    command.add_option("--class", arguments.classString, "Class of the columns that name none")
        ->option_text("CLASS")
        ->check(notEmpty())
        ->needs(csv)
        ->group(CSV_GROUP);
    command.add_option("-o", arguments.output, "Write to this file; - or none is standard output")
        ->option_text("FILE")
        ->needs(csv)
        ->group(CSV_GROUP);
    command.add_flag("--no-header", arguments.noHeader, "The first line is a row like others")
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
    if (arguments.conversion.classic && !hasClasses(arguments.csv))
        throw CLI::RequiredError("A class for each column, with --classic,");
    if (arguments.conversion.output != Output::TEXT)
        throw CLI::ExcludesError("--csv", "--output");
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
    addOutput(command, conversion.output);
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
        "number, or those of --precision. All else goes through byte for byte. A cell that is no number or has no\n"
        "finite result stays as it is and is told on standard error, with its row (the first is 1, a header line\n"
        "too), and so is a row that ends in front of its cell; the first 20 of them, and how many there are more.\n"
        "Then the tool ends with 3. Empty rows, empty cells and NaN are no fault. The file of -o takes its name when\n"
        "all is written.\n"
        "  uom convert --csv log.csv --column P=psig:kPa@Pres --column 3=F:C@Temp -o metric.csv");
    return [arguments, csv, precision] {
        if (csv->empty())
            return runConvert(arguments->conversion);
        arguments->csv.classic = arguments->conversion.classic;
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
