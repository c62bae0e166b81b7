#include "prompt.h"

#include <algorithm>
#include <iostream>
#include <set>

#include "library.h"
#include "line_editor.h"
#include "text.h"

namespace {

using Names = std::set<std::string>;

void addClasses(Names &names) {
    for (const uom::ClassEntry &entry : uom::classes())
        names.insert(entry.token);
}

void addUnits(Names &names) {
    for (const uom::ClassEntry &entry : uom::classes())
        for (const uom::UnitEntry &unit : uom::units(entry.number))
            names.insert(toTerminal(unit.token));
    for (const uom::Alias &alias : uom::aliases())
        names.insert(toTerminal(alias.name));
}

void addSlates(Names &names) {
    for (const uom::SlateEntry &slate : uom::slates())
        names.insert(toTerminal(slate.name));
}

struct NameKind {
    char letter;
    void (*add)(Names &names);
    bool inComposites;
};
const NameKind nameKinds[] = {{'c', addClasses, true}, {'u', addUnits, true}, {'s', addSlates, false}};

Names namesOf(const std::string &kinds, bool inComposite) {
    Names names;
    for (const NameKind &kind : nameKinds)
        if (kinds.find(kind.letter) != std::string::npos && (kind.inComposites || !inComposite))
            kind.add(names);
    return names;
}

bool beginsWith(const std::string &name, std::string_view start, bool anyCase) {
    const std::string_view head = std::string_view(name).substr(0, start.size());
    return anyCase ? equalNoCase(head, start) : head == start;
}

// A line cut at its blanks; `quote` is the one that is not closed, or 0.
struct CutLine {
    std::vector<std::string> words = {};
    char quote = '\0';
    size_t opened = 0; // where the quote stands
};

CutLine cut(const std::string &line) {
    CutLine found;
    bool inWord = false;
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool isQuote = found.quote ? c == found.quote : c == '"' || c == '\'';
        if (!found.quote && !isQuote && (c == ' ' || c == '\t')) {
            inWord = false;
            continue;
        }
        if (!inWord)
            found.words.emplace_back();
        inWord = true;
        if (!isQuote) {
            found.words.back() += c;
            continue;
        }
        found.opened = i;
        found.quote = found.quote ? '\0' : c;
    }
    return found;
}

// Commands and units at the head of a line, then what the command takes.
Completions complete(const PromptCommands &commands, const std::string &line, size_t begin) {
    CutLine before = cut(line.substr(0, begin));
    const size_t start = before.quote ? before.opened + 1 : begin;
    if (before.quote) // what it holds up to here is a part of the word
        before = cut(line.substr(0, start - 1));
    std::vector<std::string> &words = before.words;
    if (!words.empty() && words[0] == "uom")
        words.erase(words.begin());
    const std::string word = line.substr(start);
    const bool quoted = start > 0 && (line[start - 1] == '"' || line[start - 1] == '\'');
    Completions found = {{}, quoted ? line[start - 1] : ' '};
    const auto &names = commands.names;
    if (words.empty() && !quoted)
        std::copy_if(names.begin(), names.end(), std::back_inserter(found.words),
                     [&](const std::string &name) { return name.starts_with(word); });
    const bool isCommand = !words.empty() && std::find(names.begin(), names.end(), words[0]) != names.end();
    const std::string kinds = isCommand ? commands.kinds(words[0]) : "u";
    for (const std::string &name : namesThatComplete(word, kinds, quoted))
        found.words.push_back(name.substr(begin - start));
    return found;
}

// What people write in front of a line from habit.
std::vector<std::string> withoutHabits(std::vector<std::string> words) {
    if (!words.empty() && words[0] == "uom")
        words.erase(words.begin());
    return words;
}

} // namespace

std::vector<std::string> namesThatComplete(const std::string &word, const std::string &kinds, bool blanksToo) {
    if (word.starts_with('-'))
        return {};
    const size_t sign = word.find_last_of("/-*(");
    const size_t begin = sign == std::string::npos ? 0 : sign + 1;
    const Names names = namesOf(kinds, begin > 0);
    std::vector<std::string> found;
    for (const bool anyCase : {false, true}) {
        for (const std::string &name : names)
            if (beginsWith(name, std::string_view(word).substr(begin), anyCase) &&
                (blanksToo || name.find(' ') == std::string::npos))
                found.push_back(word.substr(0, begin) + name);
        if (!found.empty())
            break;
    }
    return found;
}

std::optional<std::vector<std::string>> wordsOf(const std::string &line) {
    const CutLine found = cut(line);
    return found.quote ? std::nullopt : std::optional(found.words);
}

void runPrompt(const PromptCommands &commands) {
    std::cout << "uom " << uom::version() << ": 250 kPag psia converts; help tells the commands, exit ends.\n";
    beginLines([&](const std::string &line, size_t begin) { return complete(commands, line, begin); });
    while (const auto line = nextLine("uom> ")) {
        const auto read = wordsOf(*line);
        if (!read) {
            std::cerr << "uom: A quotation mark is not closed.\n";
            continue;
        }
        const std::vector<std::string> words = withoutHabits(*read);
        if (words.size() == 1 && (words[0] == "exit" || words[0] == "quit"))
            break;
        if (!words.empty())
            commands.run(words);
    }
}
