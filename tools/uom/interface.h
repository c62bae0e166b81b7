// What the tool's commands and options are, as plain records read from what --help is made of; and what is written from
// them for shells and for man.
#ifndef UOM_TOOL_INTERFACE_H
#define UOM_TOOL_INTERFACE_H

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

struct OptionInfo {
    std::vector<std::string> names;   // with their dashes, the short ones first; of an argument, none
    std::string value;                // what stands behind it, as --help has it; empty for a flag
    std::string purpose;              // one line
    std::vector<std::string> choices; // the values that there are, if they are known
    std::string group;
    bool repeats;
};

struct CommandInfo {
    std::string name; // "uom" of the tool itself
    std::string purpose;
    std::string usage;
    std::string footer; // lines
    std::vector<OptionInfo> arguments, options;
};

struct ToolInfo {
    std::string version; // "uom 1.0.0"
    CommandInfo tool;    // the global options, for every command
    std::vector<CommandInfo> commands;
};

// Hidden options are left out, and --help stands with the tool's own options alone.
ToolInfo describeTool(const CLI::App &app);

bool takesFile(const OptionInfo &option);

// The kinds of names of the catalogue that may stand there, as namesThatComplete takes them; empty for none.
std::string nameKinds(const OptionInfo &option);
std::string nameKinds(const CommandInfo &command); // of its words

// Shell "bash", "zsh" or "fish".
std::string completionScript(const ToolInfo &info, const std::string &shell);
std::string manPage(const ToolInfo &info);

#endif
