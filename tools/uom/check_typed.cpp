// uom check of files of aliases and of slate definitions: what the strict reader makes of each line.
#include <fstream>
#include <map>

#include "commands.h"
#include "data_file.h"
#include "library.h"
#include "system.h"
#include "text.h"

namespace {

struct Line {
    int number;
    std::string text; // without blanks at the ends and comments
};

std::vector<Line> readLines(const std::string &path) {
    std::ifstream file(path);
    std::vector<Line> lines;
    std::string line;
    for (int number = 1; readLine(file, line, number); ++number) {
        const std::string text(trimmed(line.substr(0, line.find(" //"))));
        if (!text.empty() && text.substr(0, 2) != "//")
            lines.push_back({number, text});
    }
    return lines;
}

bool isHeading(const Line &line) {
    return line.text.front() == '[' && line.text.back() == ']';
}

std::string insideOf(const Line &heading) {
    return std::string(trimmed(std::string_view(heading.text).substr(1, heading.text.size() - 2)));
}

std::vector<std::string> wordsOf(const std::string &text) {
    std::vector<std::string> words;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find_first_of(" ,", begin), text.size());
        if (end > begin)
            words.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

// Why the unit text is none, empty when it is one. A part of a quantity has no class of its own.
std::string unitFault(const std::string &classString, const std::string &text) {
    const auto entry = uom::tryReadEntry(classString, text);
    const bool part = !entry && classString.empty() && entry.message().find("unit of no class") != std::string::npos;
    return entry || part ? "" : entry.message();
}

void checkBinding(const Line &line, const std::vector<std::string> &classes, Findings &findings) {
    for (const std::string &name : classes)
        if (!uom::isClass(name))
            findings.push_back({line.number, "there is no class \"" + name + "\""});
}

void checkAlias(const Line &line, const std::vector<std::string> &classes, std::map<std::string, int> &first,
                Findings &findings) {
    const size_t mark = line.text.find(" = ");
    if (mark == std::string::npos) {
        findings.push_back({line.number, "this is no \"alias = unit text\""});
        return;
    }
    const std::string name(trimmed(line.text.substr(0, mark))), text(trimmed(line.text.substr(mark + 3)));
    for (const std::string &bound : classes.empty() ? std::vector<std::string>{""} : classes) {
        const auto [place, isNew] = first.emplace(bound + ":" + name, line.number);
        if (!isNew)
            findings.push_back(
                {line.number, "\"" + name + "\" stands in line " + std::to_string(place->second) + " already"});
    }
    if (const std::string fault = unitFault("", text); !fault.empty())
        findings.push_back({line.number, fault});
}

bool isSlateKey(const std::string &key) {
    for (const char *known : {"BasedOn", "Parent", "CopyFrom", "NewClasses", "GaugePresBasis", "isSystem", "isHidden",
                              "allowDelete", "allowModify"})
        if (equalNoCase(key, known))
            return true;
    return lowerCase(key).starts_with("newclass");
}

void checkSlateLine(const Line &line, Findings &findings) {
    const size_t mark = line.text.find('=');
    const std::string key(trimmed(line.text.substr(0, mark)));
    const std::string value(mark == std::string::npos ? "" : trimmed(line.text.substr(mark + 1)));
    if (const std::string fault = propertyFault(key, value); !fault.empty())
        findings.push_back({line.number, fault});
    if (isSlateKey(key))
        return;
    if (!uom::isClass(fromTerminal(key))) {
        const auto asked = uom::tryReadEntry(key, "kg");
        findings.push_back({line.number, asked ? "" : asked.message()});
        return;
    }
    const auto entry = uom::tryReadEntry(key, value);
    if (!value.empty() && !entry)
        findings.push_back({line.number, entry.message()});
    else if (entry && (entry->scale != 1.0 || !uom::unitsFit(key, fromTerminal(value))))
        findings.push_back({line.number, "a slate takes units as the catalogue prints them: \"" + entry->units + "\""});
}

} // namespace

FileKind kindOf(const std::string &path) {
    FileKind kind = FileKind::DATA;
    if (!isRegularFile(path)) // a pipe is not waited for
        return kind;
    for (const Line &line : readLines(path)) {
        if (line.text == "BEGINUOMLIST")
            return FileKind::DATA;
        if (line.text.find(" = ") != std::string::npos)
            kind = FileKind::ALIASES;
        else if (kind == FileKind::DATA && isHeading(line))
            kind = FileKind::SLATE;
    }
    return kind;
}

void checkAliases(const std::string &path, Findings &findings) {
    std::vector<std::string> classes;
    std::map<std::string, int> first;
    for (const Line &line : readLines(path)) {
        if (!isHeading(line)) {
            checkAlias(line, classes, first, findings);
            continue;
        }
        classes = wordsOf(insideOf(line));
        checkBinding(line, classes, findings);
    }
}

void checkSlateFile(const std::string &path, Findings &findings) {
    for (const Line &line : readLines(path))
        if (!isHeading(line))
            checkSlateLine(line, findings);
}
