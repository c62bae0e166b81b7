// Lines from a terminal.
#ifndef UOM_TOOL_LINE_EDITOR_H
#define UOM_TOOL_LINE_EDITOR_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

// What a word that is begun may become; `isFirst` of a line.
using CompleteWord = std::function<std::vector<std::string>(const std::string &word, bool isFirst)>;

// Takes the keys of the terminal from now on, and lines of former times from the user's history.
void beginLines(const CompleteWord &complete);

// The next line; nothing at the end. The history is kept: $XDG_STATE_HOME/uom/history, else ~/.local/state/uom/history.
std::optional<std::string> nextLine(const char *prompt);

#endif
