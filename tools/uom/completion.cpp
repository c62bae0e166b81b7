// Completion of command lines in shells.
#include <algorithm>
#include <map>

#include "interface.h"

namespace {

std::string replaced(std::string text, const std::string &what, const std::string &with) {
    for (size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

std::string joined(const std::vector<std::string> &words, const std::string &between) {
    std::string text;
    for (const std::string &word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

std::vector<std::string> commandNames(const ToolInfo &info) {
    std::vector<std::string> names;
    for (const CommandInfo &command : info.commands)
        names.push_back(command.name);
    return names;
}

std::vector<std::string> optionNames(const CommandInfo &command) {
    std::vector<std::string> names;
    for (const OptionInfo &option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

// The options with a value that may stand in front of a command or of what is typed.
std::vector<std::string> valueOptions(const ToolInfo &info) {
    std::vector<std::string> names;
    for (const CommandInfo *command : {&info.tool, &info.commands.front()})
        for (const OptionInfo &option : command->options)
            if (!option.value.empty())
                names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

// What a shell does for a value, of which there may be a list: with files, with names of the catalogue, and else. "@" is
// for the kinds of names.
struct Actions {
    std::string files, names;
};
std::string actionOf(bool files, const std::string &kinds, const Actions &actions, const std::string &otherwise) {
    return files ? actions.files : kinds.empty() ? otherwise : replaced(actions.names, "@", kinds);
}
std::string actionOf(const OptionInfo &option, const Actions &actions, const std::string &otherwise) {
    return actionOf(takesFile(option), nameKinds(option), actions, otherwise);
}
std::string actionOf(const CommandInfo &command, const Actions &actions, const std::string &otherwise) {
    const bool files = std::any_of(command.arguments.begin(), command.arguments.end(), takesFile);
    return actionOf(files, nameKinds(command), actions, otherwise);
}

// --- bash

const Actions BASH = {"_uom_files", "_uom_names @"};

// The case of an option in front of the word: "COMMAND:--option" with what completes its value.
std::string bashValueCases(const CommandInfo &command, const std::string &pattern) {
    std::string text;
    for (const OptionInfo &option : command.options) {
        if (option.value.empty())
            continue;
        std::vector<std::string> patterns;
        for (const std::string &name : option.names)
            patterns.push_back(pattern + ":" + name);
        const std::string action = actionOf(option, BASH, "_uom_words '" + joined(option.choices, " ") + "'");
        text += "    " + joined(patterns, " | ") + ") " + action + "; return ;;\n";
    }
    return text;
}

std::string bashWordCase(const CommandInfo &command, const std::string &globals) {
    const std::string action = actionOf(command, {" || " + BASH.files, " || " + BASH.names}, "");
    return "    " + command.name + ") _uom_options '" + joined(optionNames(command), " ") + " " + globals + "'" +
           action + " ;;\n";
}

std::string bashScript(const ToolInfo &info) {
    const std::string globals = joined(optionNames(info.tool), " ");
    const std::string commands = joined(commandNames(info), " ");
    std::string text =
        "# bash completion for uom\n"
        "_uom_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\"); }\n"
        "_uom_files() {\n"
        "    compopt -o filenames 2>/dev/null\n"
        "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
        "}\n"
        "_uom_names() { mapfile -t COMPREPLY < <(\"${COMP_WORDS[0]}\" --complete \"$1:$current\" 2>/dev/null); }\n"
        "_uom_options() {\n"
        "    [[ $current == -* ]] || return 1\n"
        "    _uom_words \"$1\"\n"
        "}\n"
        "_uom() {\n"
        "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' i\n"
        "    COMPREPLY=()\n"
        "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
        "        case ${COMP_WORDS[i]} in\n"
        "        " +
        joined(commandNames(info), " | ") +
        ") command=${COMP_WORDS[i]}; break ;;\n"
        "        " +
        joined(valueOptions(info), " | ") +
        ") i=$((i + 1)) ;;\n"
        "        --*) ;;\n"
        "        *) command=typed; break ;;\n"
        "        esac\n"
        "    done\n"
        "    case $command:$previous in\n";
    for (const CommandInfo &command : info.commands)
        text += bashValueCases(command, command.name);
    text += bashValueCases(info.tool, "*");
    text += "    esac\n"
            "    case $command in\n"
            "    '') _uom_options '" +
            globals + "' || { _uom_words '" + commands + "'; [[ ${COMPREPLY[*]} ]] || _uom_names u; } ;;\n";
    for (const CommandInfo &command : info.commands)
        text += bashWordCase(command, globals);
    return text + "    esac\n"
                  "}\n"
                  "complete -F _uom uom\n";
}

// --- zsh

std::string zshText(std::string text) {
    for (const char *special : {"\\", "[", "]", ":"})
        text = replaced(text, special, std::string("\\") + special);
    return replaced(text, "'", "'\\''");
}

const Actions ZSH = {"_files", "_uom_names @"};

std::string zshAction(const OptionInfo &option) {
    return actionOf(option, ZSH, option.choices.empty() ? " " : "(" + joined(option.choices, " ") + ")");
}

// The words of _arguments, one a line; of an option with two names, two.
std::string zshOptions(const CommandInfo &command) {
    std::string text;
    for (const OptionInfo &option : command.options)
        for (const std::string &name : option.names) {
            text += std::string(" \\\n            '") + (option.repeats ? "*" : "") + name + "[" +
                    zshText(option.purpose) + "]";
            text += option.value.empty() ? "'" : ":" + zshText(option.value) + ":" + zshAction(option) + "'";
        }
    return text;
}

std::string zshScript(const ToolInfo &info) {
    const std::string globals = zshOptions(info.tool);
    std::string text = "#compdef uom\n"
                       "_uom_names() { compadd -U -- ${(f)\"$(_call_program names ${service:-uom} --complete "
                       "${argv[-1]}:${(q)PREFIX})\"} }\n"
                       "_uom() {\n"
                       "    local curcontext=$curcontext state\n"
                       "    local -a line commands\n"
                       "    commands=(\n";
    for (const CommandInfo &command : info.commands)
        text += "        '" + command.name + ":" + zshText(command.purpose) + "'\n";
    text += "    )\n"
            "    _arguments -C" +
            globals +
            " \\\n            '1: :->command' '*:: :->arguments'\n"
            "    case $state in\n"
            "    command) _describe command commands; _uom_names u ;;\n"
            "    arguments)\n"
            "        case $words[1] in\n";
    for (const CommandInfo &command : info.commands)
        text += "        " + command.name + ") _arguments" + zshOptions(command) + globals +
                " \\\n            '*: :" + actionOf(command, ZSH, " ") + "' ;;\n";
    const CommandInfo &typed = info.commands.front(); // whose name may be left out
    text += "        *) _arguments" + zshOptions(typed) + globals +
            " \\\n            '*: :" + actionOf(typed, ZSH, " ") + "' ;;\n";
    return text + "        esac ;;\n"
                  "    esac\n"
                  "}\n"
                  "if [ \"$funcstack[1]\" = _uom ]; then _uom \"$@\"; else compdef _uom uom; fi\n";
}

// --- fish

std::string fishText(const std::string &text) {
    return "'" + replaced(replaced(text, "\\", "\\\\"), "'", "\\'") + "'";
}

std::string fishName(const std::string &name) {
    return name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
}

const std::string FISH_NAMES = " -x -a '(uom --complete @:(commandline -ct) 2>/dev/null)'";
const Actions FISH = {" -r -F", FISH_NAMES};

std::string fishOptions(const CommandInfo &command, const std::string &condition) {
    std::string text;
    for (const OptionInfo &option : command.options) {
        text += "complete -c uom" + condition;
        for (const std::string &name : option.names)
            text += fishName(name);
        if (!option.value.empty())
            text += actionOf(option, FISH, " -x");
        if (!option.choices.empty())
            text += " -a " + fishText(joined(option.choices, " "));
        text += " -d " + fishText(option.purpose) + "\n";
    }
    return text;
}

std::string fishScript(const ToolInfo &info) {
    const std::string seen = "__fish_seen_subcommand_from ";
    const std::string none = fishText("not " + seen + joined(commandNames(info), " "));
    std::string text = "# fish completion for uom\n"
                       "complete -c uom -f\n" +
                       fishOptions(info.tool, "") + fishOptions(info.commands.front(), " -n " + none) +
                       "complete -c uom -n " + none + replaced(FISH_NAMES, "@", "u") + "\n";
    for (const CommandInfo &command : info.commands) {
        const std::string condition = " -n " + fishText(seen + command.name);
        text += "complete -c uom -n " + none + " -a " + command.name + " -d " + fishText(command.purpose) + "\n" +
                fishOptions(command, condition);
        const std::string action = actionOf(command, {" -F", FISH_NAMES}, "");
        if (!action.empty())
            text += "complete -c uom" + condition + action + "\n";
    }
    return text;
}

const std::map<std::string, std::string (*)(const ToolInfo &)> scripts = {
    {"bash", bashScript},
    {"zsh", zshScript},
    {"fish", fishScript},
};

} // namespace

std::string completionScript(const ToolInfo &info, const std::string &shell) {
    return scripts.at(shell)(info);
}
