// uom 250 kPag psia, uom search: what people type.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
#include "nearest.h"
#include "options.h"
#include "table.h"
#include "text.h"

namespace {

struct TypedArguments {
    std::vector<std::string> words;
    std::string classString;
    int digits = 12;
    bool classic = false;
    Output output = Output::TEXT;
};

std::string join(const std::vector<std::string> &words, size_t count) {
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += (i > 0 ? " " : "") + words[i];
    return text;
}

bool isLink(const std::string &word) {
    return word == "to" || word == "as" || word == "->" || word == "=";
}

// As programs write numbers, and as people do: 5x10^3.
std::optional<double> readNumber(std::string_view text) {
    constexpr size_t LONGEST = 64;
    if (const auto number = parseNumber(text); number || text.size() > LONGEST)
        return number;
    const auto entry = uom::tryReadEntry("Dimensionless", text);
    return entry ? entry->value : std::nullopt;
}

// The number in front of a typed text and what stands behind it; there it would be a factor of the unit, another thing for
// 212 F.
struct NumberAndUnits {
    std::optional<double> number;
    std::string units;
};

NumberAndUnits splitNumber(std::string_view text) {
    NumberAndUnits split = {std::nullopt, std::string(trimmed(text))};
    for (size_t i = 1; i <= text.size(); ++i)
        if (const auto number = readNumber(text.substr(0, i)))
            split = {number, std::string(trimmed(text.substr(i)))};
    return split;
}

// Numbers with a sign of their own, and what is like a number and none.
constexpr std::string_view MINUS = "\xE2\x88\x92"; // U+2212

std::string withPlainMinus(const std::string &word) {
    return word.starts_with(MINUS) ? "-" + word.substr(MINUS.size()) : word;
}

void requireNumber(const std::string &typed) {
    const std::string_view text = trimmed(typed);
    const std::string word(text.substr(0, text.find(' ')));
    const bool hexadecimal = word.starts_with("0x") || word.starts_with("0X");
    const bool numeric = word.find_first_not_of("+-.0123456789eE") == std::string::npos && word.size() > 1;
    if (!parseNumber(word) && (hexadecimal || (numeric && word.find_first_of("0123456789") <= 1)))
        throw Failure(numberFault(word));
}

// A value with its units as they were typed.
struct Amount {
    double value;
    std::string units;
};

// What a typed text says; a number that is not in front of a unit is its factor: "1/min".
Amount amountOf(const TypedArguments &arguments, const std::string &typed) {
    const auto [number, units] = splitNumber(typed);
    if (arguments.classic)
        return {number.value_or(1.0), units};
    const auto entry = uom::tryReadEntry(arguments.classString, typed);
    if (number && units.starts_with(',')) // of 1,5 only the door knows what is wrong
        throw Failure(entry.message());
    // Products of no class are read beside the other text alone.
    const bool numbered = entry ? entry->value.has_value() : number && !units.starts_with('/');
    if (!numbered)
        return {1.0, typed};
    return {entry ? *entry->value : *number, units};
}

// The value in the wanted units, read as people type or, with --classic, as the other commands of old do.
double convertTyped(const TypedArguments &arguments, const Amount &from, const std::string &to, std::string *note) {
    if (arguments.classic) {
        auto converted = uom::tryConvert(from.value, arguments.classString, from.units, to);
        if (!converted)
            throw Failure(converted.message());
        return *converted;
    }
    auto conversion = uom::Conversion::tryFromEntries(arguments.classString, from.units, to, note);
    if (!conversion)
        throw Failure(conversion.message());
    return (*conversion)(from.value);
}

// What is a command for somebody who has misspelt it.
void refuseMisspeltCommand(const std::vector<std::string> &words) {
    const std::string &first = words.front();
    const std::string command = nearestName(first, commandNames());
    if (!command.empty() && uom::entryClasses(first).empty())
        throw CLI::ValidationError("\"" + first + "\" is no command and no unit. Did you mean \"" + command + "\"?");
}

int runTyped(const TypedArguments &arguments) {
    std::vector<std::string> words = arguments.words;
    if (std::any_of(words.begin(), words.end(), [](const std::string &word) { return trimmed(word).empty(); }))
        throw CLI::ValidationError("FROM and TO", "An empty text is no value and no unit");
    if (words.size() > 2 && isLink(words[words.size() - 2]))
        words.erase(words.end() - 2);
    if (words.size() < 2)
        throw CLI::RequiredError("FROM and TO");
    if (arguments.classic && arguments.classString.empty())
        throw CLI::RequiredError("--class, with --classic,");
    refuseMisspeltCommand(words);
    words[0] = withPlainMinus(std::string(trimmed(words[0])));
    requireNumber(words[0]);
    const Amount from = amountOf(arguments, join(words, words.size() - 1));
    const std::string &to = words.back();
    std::string note;
    const double converted = convertTyped(arguments, from, to, &note);
    if (std::isfinite(from.value) && !std::isfinite(converted))
        throw Failure(roundedNumber(from.value, arguments.digits) + " " + from.units + " has no finite result in \"" +
                      to + "\".");
    TextTable table = {
        {{"Value", true}, {"From"}, {"Result", true}, {"To"}},
        {{roundedNumber(from.value, arguments.digits), from.units, roundedNumber(converted, arguments.digits), to}}};
    if (arguments.output == Output::TEXT)
        std::cout << table.rows[0][0] << (from.units.starts_with('/') ? "" : " ") << from.units << " = "
                  << table.rows[0][2] << ' ' << to << '\n';
    else
        print(table, arguments.output);
    if (!note.empty())
        std::cerr << "uom: " << note << '\n';
    return 0;
}

struct SearchArguments {
    std::vector<std::string> words;
    int most = 20;
    Output output = Output::TEXT;
};

int runSearch(const SearchArguments &arguments) {
    const std::string words = join(arguments.words, arguments.words.size());
    TextTable table = {{{"Kind"}, {"Class"}, {"Name"}, {"Description"}}};
    for (const uom::Found &found : uom::search(words, arguments.most))
        table.rows.push_back({found.kind, found.classToken, found.token, found.description});
    if (table.rows.empty() && arguments.output != Output::TEXT)
        print(table, arguments.output);
    if (table.rows.empty())
        throw Failure("Nothing is found for \"" + words + "\".");
    print(table, arguments.output);
    return 0;
}

} // namespace

Action addTyped(CLI::App &command) {
    const auto arguments = std::make_shared<TypedArguments>();
    command.add_option("NUMBER FROM TO", arguments->words, "A number, or none, its unit, and the wanted unit")
        ->option_text(" ");
    command.add_option("--class", arguments->classString, "The quantity, where the units leave it open")
        ->option_text("CLASS")
        ->check(notEmpty());
    command.add_flag("--classic", arguments->classic, "Read unit texts as the classical operations do; needs --class");
    addPrecision(command, arguments->digits);
    addOutput(command, arguments->output);
    command.footer("The name of the command may be left out: uom 250 kPag psia.");
    return [arguments] { return runTyped(*arguments); };
}

Action addSearch(CLI::App &command) {
    const auto arguments = std::make_shared<SearchArguments>();
    command.add_option("WORDS", arguments->words, "Parts of names, tokens or descriptions")->required();
    command.add_option("--most", arguments->most, "So many finds at most; 20 by default")
        ->option_text("COUNT")
        ->check(CLI::Range(1, 1000));
    addOutput(command, arguments->output);
    return [arguments] { return runSearch(*arguments); };
}
