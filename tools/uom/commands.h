// The commands of the tool, one file a group. A new one is a function here and a row in main.cpp's table.
#ifndef UOM_TOOL_COMMANDS_H
#define UOM_TOOL_COMMANDS_H

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

// What goes to standard error behind "uom: ", with the exit status 1.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Does the work of a command, from the arguments that were read; the exit status of the tool.
using Action = std::function<int()>;

// Declares the arguments of a command and answers what does its work.
using AddCommand = Action (*)(CLI::App &command);

// Of all commands.
std::vector<std::string> commandNames();

Action addTyped(CLI::App &command);
Action addSearch(CLI::App &command);
Action addConvert(CLI::App &command);
Action addConstants(CLI::App &command);
Action addClasses(CLI::App &command);
Action addUnits(CLI::App &command);
Action addSlates(CLI::App &command);
Action addSlate(CLI::App &command);
Action addShow(CLI::App &command);
Action addRelated(CLI::App &command);
Action addKeyword(CLI::App &command);
Action addReport(CLI::App &command);
Action addCheck(CLI::App &command);

#endif
