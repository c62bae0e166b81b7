// A prompt for many lines, with history and completion where the tool is built with a line editor.
#ifndef UOM_TOOL_PROMPT_H
#define UOM_TOOL_PROMPT_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

// What the prompt knows of the tool.
struct PromptCommands {
    std::vector<std::string> names;
    std::function<std::string(const std::string &command)> kinds; // of the names that complete its words
    std::function<void(const std::vector<std::string> &words)> run;
};

// Reads lines from the terminal until its end or "exit", and runs the words of each.
void runPrompt(const PromptCommands &commands);

// What may stand where `word` is begun, each as the whole word. Of a composite, its last part is completed, and there
// units, or classes, alone. `kinds` has a "c" for classes, "u" for units and aliases, "s" for slates. Names with blanks are
// left out unless they may stand. The library is started.
std::vector<std::string> namesThatComplete(const std::string &word, const std::string &kinds, bool blanksToo = false);

// The words of a line; blanks in them stand between quotes. Nothing when a quote is not closed.
std::optional<std::vector<std::string>> wordsOf(const std::string &line);

#endif
