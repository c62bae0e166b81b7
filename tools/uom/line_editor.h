// Lines from a terminal.
#ifndef UOM_TOOL_LINE_EDITOR_H
#define UOM_TOOL_LINE_EDITOR_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct Completions {
    std::vector<std::string> words;
    char behind = ' '; // a word that is the only one
};

// What the word between `begin` and the cursor may become, where `line` ends at the cursor.
using CompleteWord = std::function<Completions(const std::string &line, size_t begin)>;

// Takes the keys of the terminal from now on, and lines of former times from the user's history.
void beginLines(const CompleteWord &complete);

// The next line, in UTF-8 as it was typed; nothing at the end. An interrupt (Ctrl-C) drops what was typed, and so does what
// is no UTF-8, which is told: the line is empty then. The history is kept: $XDG_STATE_HOME/uom/history, else
// ~/.local/state/uom/history.
std::optional<std::string> nextLine(const char *prompt);

#endif
