// Slate definition text from files, a line at a time: the library tells in its last-error text alone what it
// could not apply, and that text holds one message.
#include <fstream>
#include <optional>

#include "class_names.h"
#include "commands.h"
#include "library.h"
#include "start.h"
#include "text.h"

namespace {

struct DefinitionLine {
    std::string path;
    int number;
    std::string slate, key, text;
    std::optional<std::string> value; // behind the first "="
};

// What went wrong with a line, empty when nothing.
using Complaint = std::string;

bool isKey(const DefinitionLine &line, std::string_view key) {
    return equalNoCase(line.key, key);
}

bool isNewClass(const DefinitionLine &line) {
    return equalNoCase(line.key.substr(0, 8), "NewClass") && !isKey(line, "NewClasses");
}

bool classExists(const std::string &name) {
    return uom_GetClassType(name.c_str(), UOM_STYLE_TOKEN) >= 1;
}

// Hands the line to the library; its message, empty when it wrote none.
Complaint putLine(const DefinitionLine &line) {
    statedDefault(line.slate, "isSystem"); // clears the last-error text
    uom::putSlateDefinition(line.slate, std::vector<std::string>{"[" + line.slate + "]", line.text});
    return uom::lastMessage();
}

// The library has a message for every line of this key, so whether the class is there decides. One that was
// there before is no fault: a slate's own text names all custom classes.
Complaint putNewClass(const DefinitionLine &line) {
    const size_t comma = line.value->find(',');
    if (comma == std::string::npos)
        return "\"" + line.key + "\" needs a class, a comma and its definition.";
    const std::string name = line.value->substr(0, comma);
    if (classExists(name))
        return "";
    putLine(line);
    if (classExists(name))
        return "";
    return uom::tryNewClass(name, line.value->substr(comma + 1)).message();
}

Complaint copySlate(const DefinitionLine &line) {
    const uom::Result<int32_t> source = uom::tryFindSlate(*line.value);
    if (!source)
        return slateFault(*line.value);
    putLine(line);
    return "";
}

Complaint apply(const DefinitionLine &line) {
    if (!line.value)
        return "\"" + line.text + "\" is not a key=value line.";
    if (isNewClass(line))
        return putNewClass(line);
    if (isKey(line, "CopyFrom"))
        return copySlate(line);
    const Complaint fault = propertyFault(line.key, *line.value);
    if (!fault.empty())
        return fault;
    const Complaint refused = putLine(line);
    return refused.empty() ? "" : refused + unitSuggestion(line.key, *line.value);
}

bool isParent(const DefinitionLine &line) {
    return isKey(line, "BasedOn") || isKey(line, "Parent");
}

struct DefinitionReader {
    std::string slate;                   // of the open section
    std::vector<DefinitionLine> parents; // judged at the end: a parent may stand behind its children
    std::vector<DefinitionFault> faults;
};

void complain(DefinitionReader &reader, const std::string &path, int line, const Complaint &complaint) {
    if (!complaint.empty())
        reader.faults.push_back({path, line, complaint});
}

Complaint openSection(DefinitionReader &reader, const std::string &text) {
    reader.slate.clear();
    const size_t end = text.find(']');
    const std::string name = text.substr(1, end == std::string::npos ? end : end - 1);
    if (end != text.size() - 1 || name.empty())
        return "\"" + text + "\" is not a section name.";
    reader.slate = name;
    if (!uom::tryFindSlate(name) && uoms_NewSet(name.c_str()) < 0)
        throw std::bad_alloc();
    return "";
}

Complaint readKeyLine(DefinitionReader &reader, const std::string &path, int number, const std::string &text) {
    DefinitionLine line = {path, number, reader.slate, text, text, std::nullopt};
    if (line.slate.empty())
        return "\"" + text + "\" does not belong to a slate.";
    const size_t equals = text.find('=');
    if (equals != std::string::npos) {
        line.key = text.substr(0, equals);
        line.value = text.substr(equals + 1);
    }
    if (line.value && line.key.empty())
        return "\"" + text + "\" has nothing in front of the \"=\".";
    if (line.value && isParent(line))
        reader.parents.push_back(line);
    return apply(line);
}

bool isPassedOver(const std::string &text) {
    return text.empty() || text.starts_with('#') || text.starts_with("//");
}

void readFile(DefinitionReader &reader, const std::string &path) {
    std::ifstream file(path);
    std::string line;
    reader.slate.clear();
    LineReader lines(file);
    for (int number = 1; lines.next(line); ++number) {
        const std::string text = fromTerminal(trimmed(line));
        if (!isPassedOver(text))
            complain(reader, path, number,
                     text[0] == '[' ? openSection(reader, text) : readKeyLine(reader, path, number, text));
    }
    // A directory opens, but does not read.
    if (!file.is_open() || file.bad())
        throw Failure("Unable to read the slate definitions \"" + path + "\".");
}

} // namespace

std::vector<DefinitionFault> applyDefinitions(const std::vector<std::string> &paths) {
    DefinitionReader reader;
    for (const std::string &path : paths)
        readFile(reader, path);
    for (const DefinitionLine &line : reader.parents)
        complain(reader, line.path, line.number, slateFault(*line.value));
    return reader.faults;
}

void readDefinitions(const std::vector<std::string> &paths) {
    std::string complaints;
    for (const DefinitionFault &fault : applyDefinitions(paths))
        complaints +=
            (complaints.empty() ? "" : "\nuom: ") + fault.path + ":" + std::to_string(fault.line) + ": " + fault.text;
    if (!complaints.empty())
        throw Failure(complaints);
}
