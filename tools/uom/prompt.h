// A prompt for many lines, with history and completion where the tool is built with a line editor.
#ifndef UOM_TOOL_PROMPT_H
#define UOM_TOOL_PROMPT_H

#include <functional>
#include <string>
#include <vector>

// Reads lines from the terminal until its end or "exit", and runs the words of each.
void runPrompt(const std::vector<std::string> &commands,
               const std::function<void(const std::vector<std::string> &words)> &run);

// What may stand where `word` is begun, each as the whole word: names of classes, units, aliases and slates. Of a
// composite, its last part is completed. The library is started.
std::vector<std::string> namesThatComplete(const std::string &word);

// The words of a line; blanks in them stand between quotes.
std::vector<std::string> wordsOf(const std::string &line);

#endif
