// The lists of a data file: whether they name what there is, and whether all that need one have one.
#include <map>
#include <set>

#include "class_names.h"
#include "data_file.h"
#include "library.h"
#include "text.h"

namespace {

// Start-up gives the class Basis the units of one of these.
const char *const neededLists[] = {"KSBasisList", "OXBasisList"};

struct ListChecker {
    const DataFile &file;
    Findings &findings;
    std::set<std::string> applicationLists;
    std::map<std::string, bool> units = {};     // tokens in lower case; true for the placeholder
    std::map<std::string, int> lineOfList = {}; // by the class's token, or the application list's name
    std::set<int32_t> classesWithUnits = {};
    int firstUser = 0; // line of the first section that needs lists; 0 while there is none
};

void report(ListChecker &checker, int line, const std::string &text) {
    checker.findings.push_back({line, text});
}

// The count of the items that are units.
int checkItems(ListChecker &checker, const Section &list) {
    int found = 0;
    for (const DataLine &item : list.lines) {
        const auto unit = checker.units.find(lowerCase(item.tokens[0]));
        if (unit == checker.units.end())
            report(checker, item.number, "\"" + item.tokens[0] + "\" in the list \"" + list.name + "\" is no unit");
        else if (unit->second)
            report(checker, item.number,
                   "the placeholder \"" + item.tokens[0] + "\" in the list \"" + list.name + "\" can't be a unit");
        else
            ++found;
    }
    return found;
}

void checkSelectList(ListChecker &checker, const Section &list) {
    const bool application = checker.applicationLists.count(list.name) > 0;
    const int32_t classId = application ? 0 : compiledClass(list.name);
    const int found = checkItems(checker, list);
    // A custom class has a list of its own only behind the class lines.
    if (!application && classId == 0) {
        if (customClass(list.name) == 0 || !checker.firstUser)
            report(checker, list.line, "the list \"" + list.name + "\" names no class and no application list");
        return;
    }
    if (found > 0)
        checker.classesWithUnits.insert(classId);
    const std::string key = application ? list.name : uom::classText(classId);
    const auto [first, isNew] = checker.lineOfList.emplace(key, list.line);
    if (!isNew)
        report(checker, list.line,
               "the list \"" + list.name + "\" replaces that of line " + std::to_string(first->second));
    if (checker.firstUser && !application)
        report(checker, list.line, "the list \"" + list.name + "\" stands behind classes or slates that may need it");
}

void checkCommonList(ListChecker &checker, const Section &list) {
    if (list.lines.empty())
        report(checker, list.line, "the common list \"" + list.name + "\" has no items");
}

void checkSection(ListChecker &checker, const Section &section) {
    switch (section.kind) {
    case SectionKind::SELECT_LIST:
        checkSelectList(checker, section);
        break;
    case SectionKind::COMMON_LIST:
        checkCommonList(checker, section);
        break;
    case SectionKind::CLASS_LIST:
    case SectionKind::SLATE:
        if (!checker.firstUser)
            checker.firstUser = section.line;
        break;
    }
}

void checkMissing(ListChecker &checker) {
    for (int32_t c = FIRST_CLASS; c < UOM_COMPILED_CLASSES; ++c)
        if (uom_IsClassBase(c) && !checker.classesWithUnits.count(c))
            report(checker, checker.file.lastLine, "the class \"" + uom::classText(c) + "\" has no list of units");
    for (const char *needed : neededLists)
        if (!checker.lineOfList.count(needed))
            report(checker, checker.file.lastLine, "the list \"" + std::string(needed) + "\" is missing");
}

} // namespace

void checkLists(const DataFile &file, Findings &findings) {
    const std::vector<std::string> known = uom::Table(uom_GetKnownLists()).texts();
    ListChecker checker = {file, findings, {known.begin(), known.end()}};
    for (const DataLine &unit : file.units)
        checker.units.emplace(lowerCase(unit.tokens[0]), &unit == &file.units.front());
    for (const Section &section : file.sections)
        checkSection(checker, section);
    checkMissing(checker);
}
