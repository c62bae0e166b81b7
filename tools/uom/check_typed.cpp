// uom check of files of aliases and of slate definitions: what the strict reader makes of each line.
#include <algorithm>
#include <fstream>
#include <map>

#include "commands.h"
#include "data_file.h"
#include "library.h"
#include "start.h"
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
    LineReader reader(file);
    for (int number = 1; reader.next(line); ++number) {
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

// The tokens of all units, with a class of each.
std::map<std::string, std::string> allTokens() {
    std::map<std::string, std::string> tokens;
    for (const uom::ClassEntry &entry : uom::classes())
        for (const uom::UnitEntry &unit : uom::units(entry.number))
            tokens.emplace(toTerminal(unit.token), entry.token);
    return tokens;
}

void checkAlias(const Line &line, const std::vector<std::string> &classes, std::map<std::string, int> &first,
                const std::map<std::string, std::string> &tokens, Findings &findings) {
    const size_t mark = line.text.find(" = ");
    if (mark == std::string::npos) {
        findings.push_back({line.number, "this is no \"alias = unit text\""});
        return;
    }
    const std::string name(trimmed(line.text.substr(0, mark))), text(trimmed(line.text.substr(mark + 3)));
    const auto token = tokens.find(name);
    if (classes.empty() && token != tokens.end() && text != name)
        findings.push_back({line.number, "\"" + name + "\" is a unit of " + token->second + ", which the alias hides"});
    for (const std::string &bound : classes.empty() ? std::vector<std::string>{""} : classes) {
        const auto [place, isNew] = first.emplace(bound + ":" + name, line.number);
        if (!isNew)
            findings.push_back(
                {line.number, "\"" + name + "\" stands in line " + std::to_string(place->second) + " already"});
    }
    if (const std::string fault = unitFault("", text); !fault.empty())
        findings.push_back({line.number, fault});
}

// --- slates

// A file of slate definitions, on which --define has been at work: what that refused, and what is likely not to be meant.
struct SlateFile {
    Findings &findings;
    std::map<std::string, int> sections = {}; // in lower case, with the line of the first
    std::map<std::string, int> keys = {};     // of the section, in lower case
    std::string slate = {};                   // of the section; empty where there is none
};

void addFinding(Findings &findings, int line, const std::string &text) {
    const bool known =
        std::any_of(findings.begin(), findings.end(), [line](const Finding &finding) { return finding.line == line; });
    if (!known && !text.empty())
        findings.push_back({line, text});
}

bool isSlateKey(const std::string &key) {
    for (const char *known : {"BasedOn", "Parent", "CopyFrom", "NewClasses", "GaugePresBasis", "isSystem", "isHidden",
                              "allowDelete", "allowModify"})
        if (equalNoCase(key, known))
            return true;
    return lowerCase(key).starts_with("newclass");
}

// The line where a name stands first, and whether that is in front of this one.
std::string repeated(std::map<std::string, int> &lines, const std::string &name, int line) {
    const auto [first, isNew] = lines.emplace(lowerCase(name), line);
    return isNew ? "" : "\"" + name + "\" stands in line " + std::to_string(first->second) + " already";
}

// What a strict reader has against units that the classical operations may take.
std::string slateUnitFault(const std::string &key, const std::string &value) {
    if (value.empty())
        return "there are no units behind \"" + key + "=\"";
    if (!uom::isClass(fromTerminal(key))) {
        const auto asked = uom::tryReadEntry(key, "kg");
        return asked ? "" : asked.message();
    }
    const auto entry = uom::tryReadEntry(key, value);
    if (!entry)
        return entry.message();
    const bool fits = entry->scale == 1.0 && uom::unitsFit(key, fromTerminal(value));
    return fits ? "" : "a slate takes units as the catalogue prints them: \"" + entry->units + "\"";
}

void checkHeading(SlateFile &file, const Line &line) {
    file.keys.clear();
    file.slate = isHeading(line) ? insideOf(line) : "";
    if (!file.slate.empty())
        addFinding(file.findings, line.number, repeated(file.sections, file.slate, line.number));
}

// A line of parents that leads back to its own slate; one that is its own parent has none.
std::string circle(const std::string &slate) {
    std::map<std::string, std::string> parents;
    for (const uom::SlateEntry &entry : uom::slates())
        parents.emplace(lowerCase(entry.name), lowerCase(entry.parent));
    const std::string start = lowerCase(slate);
    std::string at = start, way;
    for (size_t most = parents.size(); most > 0; --most) {
        const std::string parent = parents[at];
        if (parent == start && at != start)
            return "\"" + slate + "\" is based on itself, by way of " + way;
        if (parent.empty() || parent == at)
            return "";
        at = parent;
        way += (way.empty() ? "\"" : ", \"") + at + "\"";
    }
    return "";
}

void checkKeyLine(SlateFile &file, const Line &line) {
    const size_t mark = line.text.find('=');
    if (mark == std::string::npos || mark == 0 || file.slate.empty())
        return; // --define has told it
    const std::string key(trimmed(line.text.substr(0, mark))), value(trimmed(line.text.substr(mark + 1)));
    if (const std::string again = repeated(file.keys, key, line.number); !again.empty())
        file.findings.push_back({line.number, again});
    if (!isSlateKey(key))
        addFinding(file.findings, line.number, slateUnitFault(key, value));
    if ((equalNoCase(key, "BasedOn") || equalNoCase(key, "Parent")) && !equalNoCase(value, file.slate))
        addFinding(file.findings, line.number, circle(file.slate));
}

} // namespace

FileKind kindOf(const std::string &path) {
    if (!isRegularFile(path)) // a pipe is not waited for
        return FileKind::DATA;
    const std::vector<Line> lines = readLines(path);
    FileKind kind = lines.empty() ? FileKind::DATA : FileKind::UNKNOWN;
    for (const Line &line : lines) {
        if (isDataKeyword(line.text.substr(0, line.text.find_first_of(" \t"))))
            return FileKind::DATA;
        if (line.text.find(" = ") != std::string::npos)
            kind = FileKind::ALIASES;
        else if (kind == FileKind::UNKNOWN && (line.text.front() == '[' || line.text.find('=') != std::string::npos))
            kind = FileKind::SLATE;
    }
    return kind;
}

void checkAliases(const std::string &path, Findings &findings) {
    std::vector<std::string> classes;
    std::map<std::string, int> first;
    const std::map<std::string, std::string> tokens = allTokens();
    for (const Line &line : readLines(path)) {
        if (line.text.front() == '[' && !isHeading(line))
            findings.push_back({line.number, "\"" + line.text + "\" has no \"]\" at its end"});
        else if (isHeading(line)) {
            classes = wordsOf(insideOf(line));
            checkBinding(line, classes, findings);
        } else {
            checkAlias(line, classes, first, tokens, findings);
        }
    }
}

void checkSlateFile(const std::string &path, Findings &findings) {
    Findings strict, refused;
    for (const DefinitionFault &fault : applyDefinitions({path}))
        refused.push_back({fault.line, fault.text});
    SlateFile file = {strict};
    for (const Line &line : readLines(path)) {
        if (line.text.front() == '#')
            continue;
        if (line.text.front() == '[')
            checkHeading(file, line);
        else
            checkKeyLine(file, line);
    }
    for (const Finding &finding : refused)
        addFinding(strict, finding.line, finding.text);
    findings.insert(findings.end(), strict.begin(), strict.end());
}
