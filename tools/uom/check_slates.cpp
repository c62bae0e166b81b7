// Class lines and slate lines of a data file. The library has been started with the file, passed over what it
// refused, and tells why when the line is put to it again.
#include <algorithm>
#include <set>

#include "class_names.h"
#include "data_file.h"
#include "library.h"
#include "text.h"

namespace {

const char *const wellKnownSlates[] = {"English", "Metric", "SI", "Internal", "OXInternal", "Current"};

// Takes the slate lines in place of their own slates, which stay as the file made them.
constexpr const char *SCRATCH_SLATE = "scratch slate";

struct ClassDefinition {
    std::string name, definition;
};

struct SlateChecker {
    Findings &findings;
    std::vector<ClassDefinition> made = {}; // the custom classes, in the order in which the file made them
    int32_t seen = 0;                       // of these up to the line in hand
    std::set<std::string> slates = {};      // in lower case, up to the line in hand
};

void report(SlateChecker &checker, int line, const std::string &text) {
    checker.findings.push_back({line, text});
}

// The text of any slate lists all custom classes, as "NewClass0=Name,definition".
std::vector<ClassDefinition> customClasses() {
    std::vector<ClassDefinition> classes;
    for (const std::string &line : uom::slateDefinition(SCRATCH_SLATE)) {
        const size_t equals = line.find('=');
        const size_t comma = line.find(',', std::min(equals, line.size()));
        if (line.starts_with("NewClass") && comma != std::string::npos)
            classes.push_back({line.substr(equals + 1, comma - equals - 1), line.substr(comma + 1)});
    }
    return classes;
}

// --- class lines

// Why the library refuses a class now; a class that it makes now was defined too early in the file.
std::string refusal(const std::string &name, const char *definition) {
    if (uoms_NewClass(name.c_str(), definition) != 0)
        return uom::lastMessage();
    uoms_DeleteClass(name.c_str());
    return "UOM class \"" + name + "\" was not created: \"" + definition + "\" is only known further down.";
}

void checkNewClass(SlateChecker &checker, int line, const std::string &name, const char *definition) {
    const auto next = static_cast<size_t>(checker.seen);
    if (definition && next < checker.made.size() && checker.made[next].name == name &&
        checker.made[next].definition == definition)
        ++checker.seen;
    else
        report(checker, line, refusal(name, definition));
}

void checkClassList(SlateChecker &checker, const Section &section) {
    for (const DataLine &line : section.lines)
        checkNewClass(checker, line.number, line.tokens[0], line.tokens.size() > 1 ? line.tokens[1].c_str() : nullptr);
}

// --- slate lines

struct SlateLine {
    int number;
    std::string key, value;
};

void checkNewClassLine(SlateChecker &checker, const SlateLine &line) {
    const size_t comma = line.value.find(',');
    if (comma == std::string::npos)
        report(checker, line.number, "\"" + line.key + "\" needs a class, a comma and its definition");
    else
        checkNewClass(checker, line.number, line.value.substr(0, comma), line.value.c_str() + comma + 1);
}

// A parent may stand anywhere in the file.
void checkParent(SlateChecker &checker, const SlateLine &line) {
    if (!uom::tryFindSlate(line.value))
        report(checker, line.number, "the parent \"" + line.value + "\" is no slate");
}

void checkSource(SlateChecker &checker, const SlateLine &line) {
    if (!checker.slates.count(lowerCase(line.value)))
        report(checker, line.number, "the slate \"" + line.value + "\" is not known here and is not copied");
}

void checkDefault(SlateChecker &checker, const SlateLine &line) {
    const std::string fault = propertyFault(line.key, line.value);
    const int32_t custom = compiledClass(line.key) ? 0 : customClass(line.key);
    if (!fault.empty())
        report(checker, line.number, fault);
    else if (custom >= UOM_COMPILED_CLASSES + checker.seen)
        report(checker, line.number, "the class \"" + line.key + "\" is only known further down");
    else if (const auto set = uom::trySetDefault(SCRATCH_SLATE, line.key, line.value); !set)
        report(checker, line.number, set.message());
}

struct SlateKey {
    const char *key;
    void (*check)(SlateChecker &checker, const SlateLine &line);
};
const SlateKey slateKeys[] = {
    {"NewClasses", [](SlateChecker &, const SlateLine &) {}},
    {"BasedOn", checkParent},
    {"Parent", checkParent},
    {"CopyFrom", checkSource},
};

void checkSlateLine(SlateChecker &checker, const DataLine &line) {
    const size_t equals = line.text.find('=');
    if (equals == std::string::npos) {
        report(checker, line.number, "\"" + line.text + "\" is not a key=value line");
        return;
    }
    const SlateLine parts = {line.number, line.text.substr(0, equals), line.text.substr(equals + 1)};
    for (const SlateKey &known : slateKeys)
        if (equalNoCase(parts.key, known.key))
            return known.check(checker, parts);
    if (equalNoCase(parts.key.substr(0, 8), "NewClass"))
        checkNewClassLine(checker, parts);
    else
        checkDefault(checker, parts);
}

void checkSlate(SlateChecker &checker, const Section &section) {
    checker.slates.insert(lowerCase(section.name));
    for (const DataLine &line : section.lines)
        checkSlateLine(checker, line);
}

// While the file is read, a basis is any unit of the list "Basis"; start-up puts another one in force.
void restoreBasis(const DataFile &file) {
    std::vector<std::string> tokens;
    for (const Section &section : file.sections) {
        if (section.kind != SectionKind::SELECT_LIST || !equalNoCase(section.name, "Basis"))
            continue;
        tokens.clear();
        for (const DataLine &item : section.lines)
            tokens.push_back(item.tokens[0]);
    }
    uoms_SetUOMChoices("Basis", uom::Table::ofTexts(tokens).get());
}

} // namespace

void checkClassesAndSlates(const DataFile &file, Findings &findings) {
    SlateChecker checker = {findings};
    restoreBasis(file);
    uoms_NewSet(SCRATCH_SLATE);
    checker.made = customClasses();
    for (const Section &section : file.sections) {
        if (section.kind == SectionKind::CLASS_LIST)
            checkClassList(checker, section);
        if (section.kind == SectionKind::SLATE)
            checkSlate(checker, section);
    }
    for (const char *slate : wellKnownSlates)
        if (!checker.slates.count(lowerCase(slate)))
            report(checker, file.lastLine, "the slate \"" + std::string(slate) + "\" is missing");
}
