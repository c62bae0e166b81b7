#include "interface.h"

#include <algorithm>

#include "text.h"

namespace {

std::vector<std::string> split(const std::string &text, char separator) {
    std::vector<std::string> parts;
    size_t at = 0;
    for (size_t end; (end = text.find(separator, at)) != std::string::npos; at = end + 1)
        parts.push_back(text.substr(at, end - at));
    parts.push_back(text.substr(at));
    return parts;
}

// CLI11 tells what values it takes in the name of the type alone: "TEXT:{kesta,orbex}", "value in {csv->1,json->2} OR ...".
std::vector<std::string> choicesOf(const std::string &type) {
    const size_t open = type.find('{');
    const size_t close = type.find('}', open);
    if (open == std::string::npos || close == std::string::npos)
        return {};
    std::vector<std::string> choices = split(type.substr(open + 1, close - open - 1), ',');
    for (std::string &choice : choices)
        choice.resize(std::min(choice.size(), choice.find("->")));
    return choices;
}

std::string valueOf(const CLI::Option &option) {
    const std::string text(trimmed(option.get_option_text()));
    if (!text.empty())
        return text;
    const std::string type = option.get_type_name();
    return option.get_type_size() == 0 ? "" : type.substr(0, type.find(':'));
}

OptionInfo describeOption(const CLI::Option &option) {
    OptionInfo info = {{},
                       valueOf(option),
                       option.get_description(),
                       choicesOf(option.get_type_name()),
                       option.get_group(),
                       option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll};
    for (const std::string &name : option.get_snames())
        info.names.push_back("-" + name);
    for (const std::string &name : option.get_lnames())
        info.names.push_back("--" + name);
    if (info.names.empty())
        info.value = option.get_name(true);
    return info;
}

CommandInfo describeCommand(const CLI::App &app, const std::string &words) {
    const std::string usage = CLI::Formatter().make_usage(&app, words);
    CommandInfo info = {app.get_name(),
                        app.get_description(),
                        std::string(trimmed(usage.substr(usage.find(words)))),
                        app.get_footer(),
                        {},
                        {}};
    for (const CLI::Option *option : app.get_options())
        if (!option->get_group().empty() && (!app.get_parent() || option != app.get_help_ptr()))
            (option->nonpositional() ? info.options : info.arguments).push_back(describeOption(*option));
    return info;
}

} // namespace

ToolInfo describeTool(const CLI::App &app) {
    ToolInfo info = {app.version(), describeCommand(app, app.get_name()), {}};
    for (const CLI::App *command : app.get_subcommands([](const CLI::App *) { return true; }))
        info.commands.push_back(describeCommand(*command, app.get_name() + " " + command->get_name()));
    return info;
}

std::string nameKinds(const OptionInfo &option) {
    struct Kind {
        const char *value, *letters;
    };
    // FROM and TO may be names of slates where there is a class.
    static const Kind kinds[] = {{"CLASS FROM", "cus"}, {"CLASS", "c"}, {"FROM", "u"},
                                 {"UNITS", "u"},        {"SLATE", "s"}, {"WORDS", "cus"}};
    for (const Kind &kind : kinds)
        if (option.value.find(kind.value) != std::string::npos)
            return kind.letters;
    return "";
}

std::string nameKinds(const CommandInfo &command) {
    std::string letters;
    for (const OptionInfo &argument : command.arguments)
        for (const char letter : nameKinds(argument))
            if (letters.find(letter) == std::string::npos)
                letters += letter;
    return letters;
}

bool takesFile(const OptionInfo &option) {
    return option.value == "FILE";
}
