// From the load-time state to a catalogue ready for use, and back.
//
// Start-up is one fixed sequence: words, constants, class table, null slate, unit table, data file, modes,
// slate indices, renames by mode, consistency, gauge pressure. The words go before the file, whose options
// decide only what is still open. Compiled class rows are not restored by clean-up: a later start finds them
// as the last one left them.
#include "loading/startup.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <iterator>
#include <string_view>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "loading/data_file.h"
#include "slates/custom_classes.h"
#include "slates/gauge_pressure.h"
#include "slates/lists.h"
#include "slates/registry.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

namespace {

struct OptionWord {
    const char *word;
    int32_t Modes::*flag;
    int32_t value;
    bool firstWins; // only an undecided flag is set
};
const OptionWord optionWords[] = {
    {"kesta", &Modes::kesta, 1, false},       {"vel2go", &Modes::vel2go, 1, false},
    {"orbex", &Modes::orbex, 1, false},       {"allowmult", &Modes::allowMult, 1, false},
    {"qx71", &Modes::qx71, 1, false},         {"mole", &Modes::moleQuantity, 1, true},
    {"molar", &Modes::moleQuantity, 0, true},
};

struct NamedSlate {
    int32_t NamedSlates::*index;
    const char *name;
};
const NamedSlate namedSlates[] = {
    {&NamedSlates::english, "English"},   {&NamedSlates::metric, "Metric"},         {&NamedSlates::si, "SI"},
    {&NamedSlates::internal, "Internal"}, {&NamedSlates::oxInternal, "OXInternal"}, {&NamedSlates::current, "Current"},
};

bool startsLikeOption(const char *word) {
    return *word == '-' || *word == '/';
}

const OptionWord *findOption(const char *word) {
    const char *bare = startsLikeOption(word) ? word + 1 : word;
    for (const OptionWord &option : optionWords)
        if (str_EqualNoCase(bare, option.word))
            return &option;
    return nullptr;
}

bool isPathWord(const char *word) {
    return startsLikeOption(word) && str_Lower(word[1]) == 'f';
}

// The path that the words name, null when they name none; a later path option replaces an earlier one. An "-f"
// without a word behind it names the empty path when `clears`, and counts for nothing otherwise.
const char *namedPath(int32_t count, const char *const *words, bool clears) {
    const char *path = nullptr;
    for (int32_t i = 0; words && i < count; ++i) {
        const char *word = words[i];
        if (!word || findOption(word) || !isPathWord(word))
            continue;
        if (word[2])
            path = word + 2;
        else if (++i < count)
            path = words[i] ? words[i] : "";
        else if (clears)
            path = "";
    }
    return path;
}

void readOptions(Catalogue &catalogue, int32_t count, const char *const *words) {
    for (int32_t i = 0; words && i < count; ++i) {
        const char *word = words[i];
        const OptionWord *option = word ? findOption(word) : nullptr;
        if (option && (!option->firstWins || catalogue.modes.*option->flag < 0))
            catalogue.modes.*option->flag = option->value;
        if (!word || option)
            continue;
        // The word behind a bare path option is a path, whatever it looks like.
        if (isPathWord(word) && !word[2])
            ++i;
    }
}

void resetOptions(Catalogue &catalogue) {
    catalogue.modes.kesta = catalogue.modes.vel2go = catalogue.modes.orbex = -1;
    catalogue.modes.allowMult = catalogue.modes.qx71 = catalogue.modes.moleQuantity = -1;
    catalogue.styles.scanClass = catalogue.styles.scanUom = catalogue.styles.display = STYLE_TOKEN;
}

void freeUnitTable(Catalogue &catalogue) {
    for (uint32_t i = 0; i < table_Count(catalogue.units.records); ++i)
        mem_Free(table_Record<UomUnit>(catalogue.units.records, i));
    table_Free(catalogue.units.records);
    catalogue.units.records = nullptr;
    unit_DropIndex(catalogue);
}

// The table and the custom rows.
void freeClassTable(Catalogue &catalogue) {
    for (uint32_t i = STATIC_CLASSES; i < table_Count(catalogue.classes.rows); ++i)
        class_FreeRow(class_Row(catalogue, static_cast<int32_t>(i)));
    table_Free(catalogue.classes.rows);
    catalogue.classes.rows = nullptr;
    class_DropIndex(catalogue);
}

bool enterClassRows(Catalogue &catalogue) {
    ClassTable &classes = catalogue.classes;
    if (!classes.copied)
        std::copy(std::begin(uomStaticRows), std::end(uomStaticRows), std::begin(classes.compiled));
    classes.copied = true;
    classes.rows = table_Create(STATIC_CLASSES, TABLE_INT64);
    classes.count = 0;
    for (uint32_t i = 0; classes.rows && i < STATIC_CLASSES; ++i) {
        table_PutRecord(classes.rows, i, &classes.compiled[i]);
        ++classes.count;
    }
    class_IndexTexts(catalogue);
    return classes.rows != nullptr;
}

void setModes(Catalogue &catalogue, int32_t orbex, int32_t kesta, int32_t vel2go, int32_t allowMult) {
    catalogue.modes.orbex = orbex;
    catalogue.modes.kesta = kesta;
    catalogue.modes.vel2go = vel2go;
    if (catalogue.modes.allowMult < 0)
        catalogue.modes.allowMult = allowMult;
}

void settleModes(Catalogue &catalogue) {
    if (catalogue.modes.orbex > 0)
        setModes(catalogue, catalogue.modes.orbex, 0, 0, 0);
    else if (catalogue.modes.kesta > 0)
        setModes(catalogue, 0, catalogue.modes.kesta, 0, 1);
    else if (catalogue.modes.vel2go > 0)
        setModes(catalogue, 0, 0, catalogue.modes.vel2go, 1);
    else
        setModes(catalogue, 1, 0, 0, 0);
    if (catalogue.modes.moleQuantity < 0)
        catalogue.modes.moleQuantity = 1;
    if (catalogue.modes.qx71 < 0)
        catalogue.modes.qx71 = 0;
}

void findNamedSlates(Catalogue &catalogue) {
    for (const NamedSlate &slate : namedSlates)
        catalogue.slateIndex.*slate.index = uom_GetSetType(catalogue, slate.name);
}

// A unit's new texts; null leaves one as it is.
struct UnitRename {
    NamedUnit unit;
    const char *token;
    const char *description;
};
const UnitRename simulatorRenames[] = {
    {&NamedUnits::UOM_BASLIQV, nullptr, "Standard Liquid Volume"},
    {&NamedUnits::UOM_BASVAPV, nullptr, "Standard Vapor Volume"},
};
const UnitRename orbexRenames[] = {
    {&NamedUnits::UOM_BASLIQV, "Liq. Vol.", "Liquid Volume"},
    {&NamedUnits::UOM_BASVAPV, "Vap. Vol.", "Vapor Volume"},
    {&NamedUnits::UOM_U_TON, "tons", nullptr},
};

void renameUnit(Catalogue &catalogue, const UnitRename &rename) {
    UomUnit *unit = unit_Record(catalogue, catalogue.named.*rename.unit);
    if (unit && rename.token)
        unit->token = rename.token;
    if (unit && rename.description)
        unit->description = rename.description;
}

// The Basis list is resolved before the units are renamed: it names them as the file does.
bool renameByMode(Catalogue &catalogue) {
    const bool simulator = catalogue.modes.kesta != 0 || catalogue.modes.vel2go != 0;
    if (!simulator && catalogue.modes.orbex == 0)
        return true;
    const ApplicationList basisList = simulator ? LIST_KS_BASIS : LIST_OX_BASIS;
    const bool done = uoms_SetClassList(catalogue, "Basis", catalogue.lists.application[basisList]) != UOM_NO_MEMORY;
    if (simulator) {
        for (const UnitRename &rename : simulatorRenames)
            renameUnit(catalogue, rename);
        catalogue.classes.compiled[CLASS_VAP_VOL].altToken = "VapVol";
    } else {
        for (const UnitRename &rename : orbexRenames)
            renameUnit(catalogue, rename);
    }
    catalogue.classes.compiled[CLASS_LIQ_VOL].altToken = "Vol";
    unit_IndexTokens(catalogue);
    class_IndexTexts(catalogue);
    return done;
}

// Moles in place of Molar; a compiled row keeps it, so a later start with "molar" finds Mole there too.
void countQuantitiesInMoles(Catalogue &catalogue) {
    if (catalogue.modes.moleQuantity == 0)
        return;
    catalogue.classes.compiled[CLASS_QUANTITY].baseClass[1] = CLASS_MOLE;
    catalogue.classes.compiled[CLASS_RATE].baseClass[1] = CLASS_MOLE;
}

int32_t noMemory() {
    error_Set("UOM Initialization: memory is exhausted.");
    return UOM_NO_MEMORY;
}

void freeLists(const Catalogue &catalogue, UomClassRow *row) {
    if (row->uomChoices != row->uomList)
        mem_Free(row->uomChoices);
    mem_Free(row->uomList);
    row->uomChoices = row->uomList = nullptr;
    unit_IndexList(catalogue, row);
}

void freeAll(Catalogue &catalogue) {
    catalogue_DropWords(catalogue);
    mem_Free(catalogue.aliasText);
    catalogue.aliasText = nullptr;
    for (uint32_t i = 0; i < table_Count(catalogue.lists.common); ++i)
        table_Free(table_Record<UomTable>(catalogue.lists.common, i));
    table_Free(catalogue.lists.common);
    catalogue.lists.common = nullptr;
    freeUnitTable(catalogue);
    for (int32_t slate = uom_GetSetCount(catalogue) - 1; slate >= 0; --slate)
        uom_DeleteSet(catalogue, slate);
    table_Free(catalogue.slates.records);
    catalogue.slates.records = nullptr;
    slate_IndexNames(catalogue); // a table that could not shrink left an index of the places that it kept
    for (int32_t i = 1; i < catalogue.classes.count; ++i)
        if (UomClassRow *row = class_Row(catalogue, i))
            freeLists(catalogue, row);
    freeClassTable(catalogue);
    for (UomTable *&list : catalogue.lists.application) {
        table_Free(list);
        list = nullptr;
    }
}

} // namespace

void startup_End(Catalogue &catalogue) {
    uom_Cleanup(catalogue);
    freeAll(catalogue);
    for (UomClassRow &row : catalogue.classes.compiled) {
        mem_Free(row.listName);
        mem_Free(row.note);
        row.listName = row.note = nullptr;
    }
}

int32_t startup_CheckTables(const Catalogue &catalogue) {
    int32_t status = UOM_DONE;
    for (int32_t i = 0; i < STATIC_CLASSES; ++i) {
        if (catalogue.classes.compiled[i].index == i)
            continue;
        error_Set("UOM Initialization: UOM Class table is inconsistent");
        status = UOM_START_BAD_CLASSES;
        break;
    }
    for (int32_t i = 0; i < catalogue.units.count; ++i) {
        const UomUnit *unit = table_Record<UomUnit>(catalogue.units.records, i);
        if (unit && unit->index == i)
            continue;
        error_Set("UOM Initialization: UOM Unit table is inconsistent");
        return UOM_START_BAD_UNITS;
    }
    return status;
}

int32_t startup_NameDataFile(Catalogue &catalogue, const char *path) {
    const bool fits = std::strlen(path) < sizeof catalogue.dataFile;
    str_CopyBounded(catalogue.dataFile, sizeof catalogue.dataFile, fits ? path : "");
    return fits ? UOM_DONE : data_RefuseFile(path);
}

void uom_SetDataFileName(Catalogue &catalogue, const char *path) {
    if (!str_IsEmpty(path))
        startup_NameDataFile(catalogue, path);
}

void startup_ExplainPlaces(const DataFilePlaces &places) {
    char text[LAST_ERROR_SIZE];
    TextWriter writer(text, sizeof text);
    for (int32_t i = 0; i < places.count; ++i) {
        str_Write(writer, i == 0 ? "\"" : i + 1 < places.count ? "\", \"" : "\" and \"");
        str_Write(writer, places.paths[i]);
    }
    error_Set("%s Looked for it as %s\".", error_Text(), text);
}

int32_t startup_FindDataFile(char *out, int32_t size) {
    if (!str_Open(out, size))
        return UOM_REFUSED;
    DataFilePlaces places;
    const bool found = platform_FindDataFile(places);
    const char *path = places.paths[places.count - 1];
    if (std::strlen(path) >= static_cast<size_t>(size))
        return UOM_REFUSED;
    str_CopyBounded(out, static_cast<size_t>(size), path);
    if (found)
        return UOM_DONE;
    data_RefuseFile(path);
    startup_ExplainPlaces(places);
    return UOM_REFUSED;
}

int32_t uom_Init(Catalogue &catalogue, Running &running) {
    DataFilePlaces places;
    const bool found = platform_FindDataFile(places);
    const char *const words[] = {"-f", places.paths[places.count - 1]};
    const int32_t status = uom_Init2(catalogue, running, 2, words);
    if (status == UOM_START_NO_FILE && !found)
        startup_ExplainPlaces(places);
    return status;
}

// Where a start takes its data file from: the file that the words or the last start name, or a text in memory.
struct DataSource {
    std::string_view text;
    bool inMemory;
};

static int32_t readData(Catalogue &catalogue, Running &running, const DataSource &source) {
    if (source.inMemory)
        return data_ReadText(catalogue, running, "(text)", source.text);
    return uom_ReadDataFile(catalogue, running, catalogue.dataFile);
}

// Makes the path of the words that of the data file; a text in memory leaves none.
static int32_t nameSource(Catalogue &catalogue, const DataSource &source, int32_t count, const char *const *words) {
    const char *path = source.inMemory ? "" : namedPath(count, words, true);
    return path ? startup_NameDataFile(catalogue, path) : UOM_DONE;
}

// The sequence of start-up, from the words to the gauge pressure.
static int32_t run(Catalogue &catalogue, Running &running, const DataSource &source, int32_t count,
                   const char *const *words) {
    freeAll(catalogue); // what a failed start left
    resetOptions(catalogue);
    readOptions(catalogue, count, words);
    if (nameSource(catalogue, source, count, words) != UOM_DONE)
        return UOM_START_NO_FILE;
    num_InitConstants();
    if (!enterClassRows(catalogue))
        return noMemory();
    catalogue.units.records = table_Create(0, TABLE_UINT64);
    if (uoms_NewSet(catalogue, "") != NO_SLATE || !catalogue.units.records)
        return noMemory();
    const int32_t read = readData(catalogue, running, source);
    if (read != UOM_DONE)
        return read;
    settleModes(catalogue);
    findNamedSlates(catalogue);
    if (!renameByMode(catalogue))
        return noMemory();
    countQuantitiesInMoles(catalogue);
    assert(static_cast<uint32_t>(catalogue.units.count) == table_Count(catalogue.units.records));
    assert(static_cast<uint32_t>(catalogue.classes.count) == table_Count(catalogue.classes.rows));
    const int32_t status = startup_CheckTables(catalogue);
    uom_SetGaugePressureBasis(catalogue, catalogue.slateIndex.current);
    return status;
}

static int32_t start(Catalogue &catalogue, Running &running, const DataSource &source, int32_t count,
                     const char *const *words) {
    if (catalogue.started)
        return UOM_DONE;
    const MemoryWatch memory;
    const int32_t status = run(catalogue, running, source, count, words);
    // Lines of the file are passed over when they fail, but not for want of memory.
    if (memory.exhausted()) {
        freeAll(catalogue);
        return noMemory();
    }
    catalogue.started = status == UOM_DONE || status == UOM_START_BAD_CLASSES || status == UOM_START_BAD_UNITS;
    return status;
}

int32_t uom_Init2(Catalogue &catalogue, Running &running, int32_t count, const char *const *words) {
    return start(catalogue, running, {{}, false}, count, words);
}

int32_t startup_InitText(Catalogue &catalogue, Running &running, std::string_view text, int32_t count,
                         const char *const *words) {
    return start(catalogue, running, {text, true}, count, words);
}

int32_t uom_Init3(Catalogue &catalogue, Running &running, int32_t count, const char *const *words) {
    if (catalogue.started) {
        const char *path = namedPath(count, words, false);
        if (str_IsEmpty(path) || str_EqualNoCase(path, catalogue.dataFile))
            return UOM_DONE;
        uom_Cleanup(catalogue);
    }
    return uom_Init2(catalogue, running, count, words);
}

void uom_Cleanup(Catalogue &catalogue) {
    if (!catalogue.started)
        return;
    catalogue.started = false;
    freeAll(catalogue);
    catalogue.modes.kesta = catalogue.modes.orbex = catalogue.modes.vel2go = -1;
    catalogue.modes.allowMult = catalogue.modes.qx71 = -1;
}

} // namespace uom
