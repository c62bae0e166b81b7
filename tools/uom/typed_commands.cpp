// uom 250 kPag psia, uom search: what people type.
#include <iostream>
#include <memory>

#include "commands.h"
#include "library.h"
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

// What stands behind the number of a typed text, which would be a factor of the unit: another thing for 212 F.
std::string unitOf(const std::string &text) {
    size_t end = 0;
    for (size_t i = 1; i <= text.size(); ++i)
        if (parseNumber(trimmed(std::string_view(text).substr(0, i))))
            end = i;
    return std::string(trimmed(std::string_view(text).substr(end)));
}

// The value in the wanted units, read as people type or, with --classic, as the other commands of old do.
double convertTyped(const TypedArguments &arguments, const std::string &from, const std::string &to, double *value,
                    std::string *note) {
    const std::string unit = unitOf(from);
    if (arguments.classic) {
        const auto number = parseNumber(trimmed(std::string_view(from).substr(0, from.size() - unit.size())));
        *value = number.value_or(1.0);
        auto converted = uom::tryConvert(*value, arguments.classString, unit, to);
        if (!converted)
            throw Failure(converted.message());
        return *converted;
    }
    auto entry = uom::tryReadEntry(arguments.classString, from);
    *value = entry ? entry->value.value_or(1.0) : 1.0;
    auto conversion =
        uom::Conversion::tryFromEntries(arguments.classString, entry && entry->value ? unit : from, to, note);
    if (!conversion)
        throw Failure(conversion.message());
    return (*conversion)(*value);
}

int runTyped(const TypedArguments &arguments) {
    std::vector<std::string> words = arguments.words;
    if (words.size() > 2 && isLink(words[words.size() - 2]))
        words.erase(words.end() - 2);
    if (words.size() < 2)
        throw CLI::RequiredError("FROM and TO");
    if (arguments.classic && arguments.classString.empty())
        throw CLI::RequiredError("--class, with --classic,");
    const std::string from = join(words, words.size() - 1), to = words.back();
    double value;
    std::string note;
    const double converted = convertTyped(arguments, from, to, &value, &note);
    TextTable table = {
        {{"Value", true}, {"From"}, {"Result", true}, {"To"}},
        {{roundedNumber(value, arguments.digits), unitOf(from), roundedNumber(converted, arguments.digits), to}}};
    if (arguments.output == Output::TEXT)
        std::cout << table.rows[0][0] << ' ' << table.rows[0][1] << " = " << table.rows[0][2] << ' ' << to << '\n';
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
        ->option_text("CLASS");
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
