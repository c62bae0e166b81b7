#include "prompt.h"

#include <iostream>
#include <set>

#include "library.h"
#include "line_editor.h"
#include "text.h"

namespace {

std::set<std::string> allNames() {
    std::set<std::string> names;
    for (const uom::ClassEntry &entry : uom::classes()) {
        names.insert(entry.token);
        for (const uom::UnitEntry &unit : uom::units(entry.number))
            names.insert(toTerminal(unit.token));
    }
    for (const uom::Alias &alias : uom::aliases())
        names.insert(toTerminal(alias.name));
    for (const uom::SlateEntry &slate : uom::slates())
        names.insert(toTerminal(slate.name));
    return names;
}

bool beginsWith(const std::string &name, std::string_view start, bool anyCase) {
    const std::string_view head = std::string_view(name).substr(0, start.size());
    return anyCase ? equalNoCase(head, start) : head == start;
}

} // namespace

std::vector<std::string> namesThatComplete(const std::string &word) {
    const size_t sign = word.find_last_of("/-*(");
    const size_t begin = sign == std::string::npos ? 0 : sign + 1;
    const std::set<std::string> names = allNames();
    std::vector<std::string> found;
    for (const bool anyCase : {false, true}) {
        for (const std::string &name : names)
            if (beginsWith(name, std::string_view(word).substr(begin), anyCase) && name.find(' ') == std::string::npos)
                found.push_back(word.substr(0, begin) + name);
        if (!found.empty())
            break;
    }
    return found;
}

std::vector<std::string> wordsOf(const std::string &line) {
    std::vector<std::string> words;
    char quote = '\0';
    bool inWord = false;
    for (const char c : line) {
        const bool isQuote = quote ? c == quote : c == '"' || c == '\'';
        if (!quote && !isQuote && (c == ' ' || c == '\t')) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (isQuote)
            quote = quote ? '\0' : c;
        else
            words.back() += c;
    }
    return words;
}

void runPrompt(const std::vector<std::string> &commands,
               const std::function<void(const std::vector<std::string> &words)> &run) {
    std::cout << "uom " << uom::version() << ": 250 kPag psia converts; --help tells the commands, exit ends.\n";
    beginLines([&](const std::string &word, bool isFirst) {
        std::vector<std::string> found;
        for (const std::string &command : commands)
            if (isFirst && command.starts_with(word))
                found.push_back(command);
        const std::vector<std::string> names = namesThatComplete(word);
        found.insert(found.end(), names.begin(), names.end());
        return found;
    });
    while (const auto line = nextLine("uom> ")) {
        const std::vector<std::string> words = wordsOf(*line);
        if (words.size() == 1 && (words[0] == "exit" || words[0] == "quit"))
            break;
        if (!words.empty())
            run(words);
    }
}
