// What options take, with messages for people.
#ifndef UOM_TOOL_OPTIONS_H
#define UOM_TOOL_OPTIONS_H

#include <map>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

// Refuses "", which is mostly a variable of a shell that is not set.
CLI::Validator notEmpty();

// One of these words in any case, which it becomes; says which there are and which is near.
CLI::Validator oneOf(const std::vector<std::string> &words);

// The same for a value that the words stand for.
template <class Value>
CLI::Option *addChoice(CLI::App &command, const std::string &name, Value &value,
                       const std::map<std::string, Value> &choices, const std::string &purpose) {
    std::vector<std::string> words;
    for (const auto &choice : choices)
        words.push_back(choice.first);
    return command
        .add_option_function<std::string>(
            name, [&value, choices](const std::string &word) { value = choices.at(word); }, purpose)
        ->transform(oneOf(words));
}

#endif
