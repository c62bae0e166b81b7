// The data file in one pass of two stages: options and units first, then sections that name units by token.
//
// The second stage is a state machine whose keywords, with the states that allow them, stand in one table.
// Lines that name what does not exist are passed over in silence; only a keyword in a wrong place fails.
#include "loading/data_file.h"

#include <cstring>
#include <iterator>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "conversion/prepared.h"
#include "loading/data_lines.h"
#include "loading/slate_lines.h"
#include "slates/custom_classes.h"
#include "slates/lists.h"
#include "slates/registry.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

namespace {

enum SectionState {
    BETWEEN_SECTIONS,
    IN_CLASS_LIST,
    SELECT_LIST_NAME,
    IN_SELECT_LIST,
    IN_COMMON_LIST,
    SLATE_NAME,
    IN_SLATE
};

const char *const applicationListNames[] = {
    "OXTimeList",         "OXRateMassList",     "OXRateMoleList",    "OXRateLiqVolList",    "OXRateVapVolList",
    "OXDensMassList",     "OXDensLiqVolList",   "OXDensMoleList",    "OXDensVapVolList",    "OXEnthalpyEnergyList",
    "OXEnthalpyMassList", "OXEnthalpyMoleList", "DensPetroMassList", "OXLengthList",        "OXHeatCapList",
    "KSBasisList",        "OXBasisList",        "OXCakeresMassList", "OXCakeresLengthList",
};
static_assert(std::size(applicationListNames) == APPLICATION_LISTS, "In the order of ApplicationList.");

struct FileOption {
    const char *word;
    int32_t Modes::*flag;
    int32_t value;
};
const FileOption fileOptions[] = {
    {"kesta", &Modes::kesta, 1},       {"vel2go", &Modes::vel2go, 1},      {"orbex", &Modes::orbex, 1},
    {"mole", &Modes::moleQuantity, 1}, {"molar", &Modes::moleQuantity, 0}, {"uommult", &Modes::allowMult, 1},
    {"qx71", &Modes::qx71, 1},
};

struct WellKnownUnit {
    NamedUnit unit;
    const char *token;
    const char *second; // looked up when the first is absent
};
const WellKnownUnit wellKnownUnits[] = {
    {&NamedUnits::UOM_BASMOLE, "Mole", nullptr},          {&NamedUnits::UOM_BASMASS, "Mass", nullptr},
    {&NamedUnits::UOM_BASMOLAR, "Molar", nullptr},        {&NamedUnits::UOM_BASACTV, "Vol", "Volume"},
    {&NamedUnits::UOM_BASLIQV, "Liq. Vol.", "StdLiqVol"}, {&NamedUnits::UOM_BASVAPV, "Vap. Vol.", "StdVapVol"},
#define WELL_KNOWN(variable, token) {&NamedUnits::variable, token, nullptr},
#include "catalogue/well_known_units.def"
#undef WELL_KNOWN
};

// The reader in the middle of a file. What a section has open is freed with it: a file may end inside a
// section.
struct Reader {
    Catalogue &catalogue;
    Running &running;
    const char *name; // of the file, for messages
    DataLines lines = {};
    bool inUnitList = false;
    SectionState state = BETWEEN_SECTIONS;
    char *opened = nullptr;       // name of the open select list or slate
    UomTable *table = nullptr;    // texts of the open list
    std::string_view slateText;   // from the open slate's first line on
    int32_t applicationList = -1; // the open select list is this one of the application's
    KnownLines known = {};        // of the slates

    Reader(Catalogue &into, Running &conversions, const char *fileName, std::string_view text)
        : catalogue(into), running(conversions), name(fileName) {
        lines.ahead = text;
        lines.delimiters = DATA_DELIMITERS;
    }
    ~Reader() { closeSection(); }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    void closeSection() {
        table_Free(table);
        table = nullptr;
        mem_Free(opened);
        opened = nullptr;
        applicationList = -1;
    }
};

int32_t statusOf(bool done) {
    return done ? UOM_DONE : UOM_NO_MEMORY;
}

// --- first stage

void readOption(Reader &reader) {
    Modes &modes = reader.catalogue.modes;
    const char *word = data_NextToken(reader.lines);
    for (const FileOption &option : fileOptions)
        if (str_EqualNoCase(word, option.word) && modes.*option.flag < 0)
            modes.*option.flag = option.value;
}

int32_t readUnit(Reader &reader) {
    const char *keyword = data_NextToken(reader.lines);
    const char *description = data_NextToken(reader.lines);
    UomUnit *unit = unit_New(reader.lines.first, keyword, description);
    if (!unit)
        return UOM_NO_MEMORY;
    unit->index = static_cast<int32_t>(table_Count(reader.catalogue.units.records));
    unit->multiplierStyle = num_LeadingInt(data_NextToken(reader.lines));
    unit->offset = num_LeadingDouble(data_NextToken(reader.lines));
    unit->factor = num_LeadingDouble(data_NextToken(reader.lines));
    if (table_PutRecord(reader.catalogue.units.records, TABLE_APPEND, unit))
        return UOM_DONE;
    mem_Free(unit);
    return UOM_NO_MEMORY;
}

void resolveWellKnownUnits(Catalogue &catalogue) {
    for (const WellKnownUnit &known : wellKnownUnits) {
        int32_t unit = unit_FindToken(catalogue, known.token);
        if (unit <= NO_UNIT && known.second)
            unit = unit_FindToken(catalogue, known.second);
        catalogue.named.*known.unit = unit;
    }
}

// Reads options and units; `ended` tells whether the end mark, and not the end of the file, ended the list.
int32_t readUnitStage(Reader &reader, bool *ended) {
    *ended = false;
    while (!*ended && data_NextLine(reader.lines)) {
        const std::string_view first(reader.lines.first);
        int32_t status = UOM_DONE;
        if (first == "ENDUOMLIST")
            *ended = true;
        else if (first == "UOMOPTION")
            readOption(reader);
        else if (first == "BEGINUOMLIST")
            reader.inUnitList = true;
        else if (reader.inUnitList)
            status = readUnit(reader);
        if (status != UOM_DONE)
            return status;
    }
    reader.catalogue.units.count = static_cast<int32_t>(table_Count(reader.catalogue.units.records));
    unit_IndexTokens(reader.catalogue);
    resolveWellKnownUnits(reader.catalogue);
    return UOM_DONE;
}

// --- second stage: what the lines of a section do

// Makes the custom class of the line; a refused one leaves its message and is passed over.
int32_t readClassLine(Reader &reader) {
    const char *name = reader.lines.first;
    // The "=" directly behind a quoted name belongs to it, as it ends a plain one.
    if (reader.lines.firstQuoted && *reader.lines.rest == '=')
        ++reader.lines.rest;
    const char *definition = data_NextToken(reader.lines);
    const char *longName = data_NextToken(reader.lines);
    if (uoms_NewClass(reader.catalogue, reader.running, name, definition) == UOM_NO_MEMORY)
        return UOM_NO_MEMORY;
    if (str_IsEmpty(longName))
        return UOM_DONE;
    const int32_t classId = class_Find(reader.catalogue, name, reader.catalogue.styles.scanClass);
    return classId >= STATIC_CLASSES ? class_SetName(reader.catalogue, classId, longName) : UOM_DONE;
}

int32_t applicationListOf(std::string_view name) {
    for (int32_t i = 0; i < APPLICATION_LISTS; ++i)
        if (name == applicationListNames[i])
            return i;
    return -1;
}

int32_t readSelectListName(Reader &reader) {
    reader.state = IN_SELECT_LIST;
    reader.applicationList = applicationListOf(reader.lines.first);
    UomTable *table = table_Create(0, TABLE_TEXT);
    if (reader.applicationList < 0) {
        reader.table = table;
    } else {
        table_Free(reader.catalogue.lists.application[reader.applicationList]);
        reader.catalogue.lists.application[reader.applicationList] = table;
    }
    return statusOf(table && mem_DupText(&reader.opened, reader.lines.first) == 0);
}

int32_t readListItem(Reader &reader) {
    UomTable *table =
        reader.applicationList < 0 ? reader.table : reader.catalogue.lists.application[reader.applicationList];
    return statusOf(table_PutText(table, TABLE_APPEND, reader.lines.first) != 0);
}

int32_t readSlateName(Reader &reader) {
    reader.state = IN_SLATE;
    reader.slateText = reader.lines.ahead;
    const char *name = reader.lines.first;
    return statusOf(mem_DupText(&reader.opened, name) == 0 &&
                    (uom_GetSetType(reader.catalogue, name) >= 1 || uoms_NewSet(reader.catalogue, name) >= 0));
}

int32_t readPlainLine(Reader &reader) {
    switch (reader.state) {
    case IN_CLASS_LIST:
        return readClassLine(reader);
    case SELECT_LIST_NAME:
        return readSelectListName(reader);
    case IN_SELECT_LIST:
    case IN_COMMON_LIST:
        return readListItem(reader);
    case SLATE_NAME:
        return readSlateName(reader);
    case IN_SLATE: // read again when the slate ends
    case BETWEEN_SECTIONS:
        break;
    }
    return UOM_DONE;
}

// --- second stage: what the keywords do

int32_t endSelectList(Reader &reader) {
    int32_t status = UOM_DONE;
    if (reader.applicationList < 0)
        status = uoms_SetClassList(reader.catalogue, reader.opened, reader.table);
    reader.closeSection();
    return status == UOM_NO_MEMORY ? status : UOM_DONE;
}

int32_t beginCommonList(Reader &reader) {
    reader.table = table_Create(0, TABLE_TEXT);
    return statusOf(reader.table != nullptr);
}

int32_t endCommonList(Reader &reader) {
    if (!reader.catalogue.lists.common)
        reader.catalogue.lists.common = table_Create(0, TABLE_UINT64);
    if (!table_PutRecord(reader.catalogue.lists.common, TABLE_APPEND, reader.table))
        return UOM_NO_MEMORY;
    reader.table = nullptr;
    return UOM_DONE;
}

int32_t endSlate(Reader &reader) {
    const std::string_view text = str_Head(reader.slateText, reader.slateText.size() - reader.lines.ahead.size());
    const int32_t status = slatelines_Apply(reader.catalogue, reader.running, reader.opened, text, reader.known);
    reader.closeSection();
    return status == UOM_NO_MEMORY ? status : UOM_DONE;
}

struct SectionKeyword {
    const char *word;
    SectionState allowedIn;
    SectionState next;
    const char *delimiters; // for the first tokens from here on; null leaves them
    int32_t (*act)(Reader &reader);
};
const SectionKeyword sectionKeywords[] = {
    {"BEGINCLASSLIST", BETWEEN_SECTIONS, IN_CLASS_LIST, DATA_KEY_DELIMITERS, nullptr},
    {"ENDCLASSLIST", IN_CLASS_LIST, BETWEEN_SECTIONS, DATA_DELIMITERS, nullptr},
    {"BEGINLIST", BETWEEN_SECTIONS, SELECT_LIST_NAME, nullptr, nullptr},
    {"ENDLIST", IN_SELECT_LIST, BETWEEN_SECTIONS, nullptr, endSelectList},
    {"ENDSELECTLISTS", BETWEEN_SECTIONS, BETWEEN_SECTIONS, nullptr, nullptr},
    {"BEGINCOMMONLIST", BETWEEN_SECTIONS, IN_COMMON_LIST, nullptr, beginCommonList},
    {"ENDCOMMONLIST", IN_COMMON_LIST, BETWEEN_SECTIONS, nullptr, endCommonList},
    {"BEGINSLATE", BETWEEN_SECTIONS, SLATE_NAME, DATA_KEY_DELIMITERS, nullptr},
    {"ENDSLATE", IN_SLATE, BETWEEN_SECTIONS, DATA_DELIMITERS, endSlate},
};

const SectionKeyword *findKeyword(const char *word) {
    for (const SectionKeyword &keyword : sectionKeywords)
        if (*word == *keyword.word && std::strcmp(word, keyword.word) == 0)
            return &keyword;
    return nullptr;
}

int32_t readKeyword(Reader &reader, const SectionKeyword &keyword) {
    if (reader.state != keyword.allowedIn) {
        error_Set("UOM File \"%s\", Error on line %d, \"%s\" not expected.", reader.name, reader.lines.number,
                  keyword.word);
        return UOM_START_BAD_STRUCTURE;
    }
    reader.state = keyword.next;
    if (keyword.delimiters)
        reader.lines.delimiters = keyword.delimiters;
    return keyword.act ? keyword.act(reader) : UOM_DONE;
}

// A slate's lines wait for its end, but for the keyword among them.
bool waitsForEnd(const Reader &reader) {
    const std::string_view line = reader.lines.raw;
    return reader.state == IN_SLATE && str_IsLetter(line.front()) && line.front() != 'B' && line.front() != 'E';
}

int32_t readSectionStage(Reader &reader) {
    while (data_NextRawLine(reader.lines)) {
        if (waitsForEnd(reader) || !data_CutFirst(reader.lines) || !*reader.lines.first)
            continue;
        const SectionKeyword *keyword = findKeyword(reader.lines.first);
        const int32_t status = keyword ? readKeyword(reader, *keyword) : readPlainLine(reader);
        if (status != UOM_DONE)
            return status;
    }
    return UOM_DONE;
}

int32_t refuseMemory(const char *name) {
    error_Set("Unable to read the Unit of Measure data file \"%s\": memory is exhausted.", name);
    return UOM_NO_MEMORY;
}

int32_t readStages(Reader &reader) {
    bool ended;
    int32_t status = readUnitStage(reader, &ended);
    if (status == UOM_DONE && ended)
        status = readSectionStage(reader);
    return status == UOM_NO_MEMORY ? refuseMemory(reader.name) : status;
}

} // namespace

int32_t data_RefuseFile(const char *path) {
    error_Set("Unable to open the Unit of Measure data file \"%s\".", path);
    return UOM_START_NO_FILE;
}

int32_t uom_ReadDataFile(Catalogue &catalogue, Running &running, const char *path) {
    FileText file;
    const ReadStatus read = platform_ReadFile(path, file);
    if (read == READ_REFUSED)
        return data_RefuseFile(path);
    if (read == READ_NO_MEMORY)
        return refuseMemory(path);
    return data_ReadText(catalogue, running, path, {file.text, file.length});
}

int32_t data_ReadText(Catalogue &catalogue, Running &running, const char *name, std::string_view text) {
    Reader reader(catalogue, running, name, str_WithoutMark(text));
    return readStages(reader);
}

// A text table of `count` names, each written by a function. Null when memory is exhausted.
template <class WriteName> static UomTable *nameTable(size_t count, WriteName writeName) {
    UomTable *table = table_Create(0, TABLE_TEXT);
    for (size_t i = 0; table && i < count; ++i) {
        char name[64];
        TextWriter writer(name, sizeof name);
        writeName(writer, i);
        if (!table_PutText(table, TABLE_APPEND, name)) {
            table_Free(table);
            return nullptr;
        }
    }
    return table;
}

UomTable *data_KnownUnits(void) {
    return nameTable(std::size(wellKnownUnits), [](TextWriter &writer, size_t i) {
        str_Write(writer, wellKnownUnits[i].token);
        if (!wellKnownUnits[i].second)
            return;
        str_Write(writer, '|');
        str_Write(writer, wellKnownUnits[i].second);
    });
}

UomTable *data_KnownLists(void) {
    return nameTable(std::size(applicationListNames),
                     [](TextWriter &writer, size_t i) { str_Write(writer, applicationListNames[i]); });
}

} // namespace uom
