// From the load-time state to a catalogue ready for use, and back.
//
// Start-up is one fixed sequence: words, constants, class table, null slate, unit table, data file, modes,
// slate indices, renames by mode, consistency, gauge pressure. The words go before the file, whose options
// decide only what is still open. Compiled class rows are not restored by clean-up: a later start finds them
// as the last one left them.
#include "catalogue/startup.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/data_file.h"
#include "catalogue/platform.h"
#include "catalogue/slate_table.h"
#include "catalogue/state.h"
#include "catalogue/units.h"
#include "slates/custom_classes.h"
#include "slates/lists.h"
#include "support/memory.h"
#include "support/numbers.h"
#include "support/text.h"

namespace {

struct OptionWord {
    const char *word;
    int32_t *flag;
    int32_t value;
    bool firstWins; // only an undecided flag is set
};
const OptionWord optionWords[] = {
    {"kesta", &uomModeKesta, 1, false},     {"vel2go", &uomModeVel2go, 1, false}, {"orbex", &uomModeOrbex, 1, false},
    {"allowmult", &uomAllowMult, 1, false}, {"qx71", &uomModeQx71, 1, false},     {"mole", &uomMoleQuantity, 1, true},
    {"molar", &uomMoleQuantity, 0, true},
};

struct NamedSlate {
    int32_t *index;
    const char *name;
};
const NamedSlate namedSlates[] = {
    {&UOM_SET_ENGLISH, "English"},   {&UOM_SET_METRIC, "Metric"},         {&UOM_SET_SI, "SI"},
    {&UOM_SET_INTERNAL, "Internal"}, {&UOM_SET_OXINTERNAL, "OXInternal"}, {&UOM_SET_CURRENT, "Current"},
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

void readOptions(int32_t count, const char *const *words) {
    for (int32_t i = 0; words && i < count; ++i) {
        const char *word = words[i];
        const OptionWord *option = word ? findOption(word) : nullptr;
        if (option && (!option->firstWins || *option->flag < 0))
            *option->flag = option->value;
        if (!word || option)
            continue;
        // The word behind a bare path option is a path, whatever it looks like.
        if (isPathWord(word) && !word[2])
            ++i;
    }
}

void resetOptions() {
    uomModeKesta = uomModeVel2go = uomModeOrbex = -1;
    uomAllowMult = uomModeQx71 = uomMoleQuantity = -1;
    defaultScanClassStyle = defaultScanUOMStyle = defaultDisplayStyle = STYLE_TOKEN;
}

void freeUnitTable() {
    for (uint32_t i = 0; i < tbl_Count(uomUnitTable); ++i) {
        UomUnit *unit = tbl_Record<UomUnit>(uomUnitTable, i);
        if (!unit)
            continue;
        mem_Free(unit->token);
        mem_Free(unit->keyword);
        mem_Free(unit->description);
        mem_Free(unit);
    }
    tbl_Free(uomUnitTable);
    uomUnitTable = nullptr;
    unit_DropIndex();
}

// The table and the custom rows.
void freeClassTable() {
    for (uint32_t i = STATIC_CLASSES; i < tbl_Count(uomClassTable); ++i)
        class_FreeRow(class_Row(static_cast<int32_t>(i)));
    tbl_Free(uomClassTable);
    uomClassTable = nullptr;
    class_DropIndex();
}

bool enterClassRows() {
    uomClassTable = tbl_Create(STATIC_CLASSES, TABLE_INT64);
    uomClassCount = 0;
    for (uint32_t i = 0; uomClassTable && i < STATIC_CLASSES; ++i) {
        tbl_PutRecord(uomClassTable, i, &uomStaticRows[i]);
        ++uomClassCount;
    }
    class_IndexTexts();
    return uomClassTable != nullptr;
}

void setModes(int32_t orbex, int32_t kesta, int32_t vel2go, int32_t allowMult) {
    uomModeOrbex = orbex;
    uomModeKesta = kesta;
    uomModeVel2go = vel2go;
    if (uomAllowMult < 0)
        uomAllowMult = allowMult;
}

void settleModes() {
    if (uomModeOrbex > 0)
        setModes(uomModeOrbex, 0, 0, 0);
    else if (uomModeKesta > 0)
        setModes(0, uomModeKesta, 0, 1);
    else if (uomModeVel2go > 0)
        setModes(0, 0, uomModeVel2go, 1);
    else
        setModes(1, 0, 0, 0);
    if (uomMoleQuantity < 0)
        uomMoleQuantity = 1;
    if (uomModeQx71 < 0)
        uomModeQx71 = 0;
}

void findNamedSlates() {
    for (const NamedSlate &slate : namedSlates)
        *slate.index = uom_GetSetType(slate.name);
    UOM_SET_MAX = uom_GetSetCount();
}

// A unit's new texts; null leaves one as it is.
struct UnitRename {
    const int32_t *unit;
    const char *token;
    const char *description;
};
const UnitRename simulatorRenames[] = {
    {&UOM_BASLIQV, nullptr, "Standard Liquid Volume"},
    {&UOM_BASVAPV, nullptr, "Standard Vapor Volume"},
};
const UnitRename orbexRenames[] = {
    {&UOM_BASLIQV, "Liq. Vol.", "Liquid Volume"},
    {&UOM_BASVAPV, "Vap. Vol.", "Vapor Volume"},
    {&UOM_U_TON, "tons", nullptr},
};

bool renameUnit(const UnitRename &rename) {
    UomUnit *unit = unit_Record(*rename.unit);
    if (!unit)
        return true;
    if (rename.token && mem_ExchangeText(&unit->token, rename.token) != 0)
        return false;
    return !rename.description || mem_ExchangeText(&unit->description, rename.description) == 0;
}

// The Basis list is resolved before the units are renamed: it names them as the file does.
bool renameByMode() {
    const bool simulator = uomModeKesta != 0 || uomModeVel2go != 0;
    if (!simulator && uomModeOrbex == 0)
        return true;
    const ApplicationList basisList = simulator ? LIST_KS_BASIS : LIST_OX_BASIS;
    bool done = uoms_SetClassList("Basis", uomListTables[basisList]) != UOM_NO_MEMORY;
    if (simulator) {
        for (const UnitRename &rename : simulatorRenames)
            done = done && renameUnit(rename);
        uomStaticRows[CLASS_VAP_VOL].altToken = "VapVol";
    } else {
        for (const UnitRename &rename : orbexRenames)
            done = done && renameUnit(rename);
    }
    uomStaticRows[CLASS_LIQ_VOL].altToken = "Vol";
    unit_IndexTokens();
    class_IndexTexts();
    return done;
}

// Moles in place of Molar; a compiled row keeps it, so a later start with "molar" finds Mole there too.
void countQuantitiesInMoles() {
    if (uomMoleQuantity == 0)
        return;
    uomStaticRows[CLASS_QUANTITY].baseClass[1] = CLASS_MOLE;
    uomStaticRows[CLASS_RATE].baseClass[1] = CLASS_MOLE;
}

int32_t noMemory() {
    error_Set("UOM Initialization: memory is exhausted.");
    return UOM_NO_MEMORY;
}

void freeLists(UomClassRow *row) {
    if (row->uomChoices != row->uomList)
        mem_Free(row->uomChoices);
    mem_Free(row->uomList);
    row->uomChoices = row->uomList = nullptr;
    unit_IndexList(row);
}

void freeAll() {
    for (uint32_t i = 0; i < tbl_Count(uomExtraTables); ++i)
        tbl_Free(tbl_Record<UomTable>(uomExtraTables, i));
    tbl_Free(uomExtraTables);
    uomExtraTables = nullptr;
    freeUnitTable();
    for (int32_t slate = uom_GetSetCount() - 1; slate >= 0; --slate)
        uom_DeleteSet(slate);
    tbl_Free(uomSlateTable);
    uomSlateTable = nullptr;
    for (int32_t i = 1; i < uomClassCount; ++i)
        if (UomClassRow *row = class_Row(i))
            freeLists(row);
    freeClassTable();
    for (UomTable *&list : uomListTables) {
        tbl_Free(list);
        list = nullptr;
    }
}

} // namespace

void startup_FreeAll() {
    freeAll();
}

int32_t startup_CheckTables() {
    int32_t status = UOM_DONE;
    for (int32_t i = 0; i < STATIC_CLASSES; ++i) {
        if (uomStaticRows[i].index == i)
            continue;
        error_Set("UOM Initialization: UOM Class table is inconsistent");
        status = UOM_START_BAD_CLASSES;
        break;
    }
    for (int32_t i = 0; i < uomUnitCount; ++i) {
        const UomUnit *unit = tbl_Record<UomUnit>(uomUnitTable, i);
        if (unit && unit->index == i)
            continue;
        error_Set("UOM Initialization: UOM Unit table is inconsistent");
        return UOM_START_BAD_UNITS;
    }
    return status;
}

const char *uom_GetVersion(void) {
    return UOM_VERSION;
}

int32_t startup_NameDataFile(const char *path) {
    const bool fits = std::strlen(path) < sizeof uomDataFile;
    str_CopyBounded(uomDataFile, sizeof uomDataFile, fits ? path : "");
    return fits ? UOM_DONE : data_RefuseFile(path);
}

void startup_ExplainPlaces(const DataFilePlaces &places) {
    char text[LAST_ERROR_SIZE];
    TextWriter writer(text, sizeof text);
    for (int32_t i = 0; i < places.count; ++i) {
        str_Write(writer, i == 0 ? "\"" : i + 1 < places.count ? "\", \"" : "\" and \"");
        str_Write(writer, places.paths[i]);
    }
    error_Set("%s Looked for it as %s\".", uomLastError, text);
}

int32_t uom_FindDataFile(char *out, int32_t size) {
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

int32_t uom_Init(void) {
    DataFilePlaces places;
    const bool found = platform_FindDataFile(places);
    const char *const words[] = {"-f", places.paths[places.count - 1]};
    const int32_t status = uom_Init2(2, words);
    if (status == UOM_START_NO_FILE && !found)
        startup_ExplainPlaces(places);
    return status;
}

// The sequence of start-up, from the words to the gauge pressure.
static int32_t start(int32_t count, const char *const *words) {
    freeAll(); // what a failed start left
    resetOptions();
    readOptions(count, words);
    const char *path = namedPath(count, words, true);
    if (path && startup_NameDataFile(path) != UOM_DONE)
        return UOM_START_NO_FILE;
    num_InitConstants();
    if (!enterClassRows())
        return noMemory();
    UOM_SET_NULL = uoms_NewSet("");
    uomUnitTable = tbl_Create(0, TABLE_UINT64);
    if (UOM_SET_NULL < 0 || !uomUnitTable) {
        UOM_SET_NULL = 0;
        return noMemory();
    }
    const int32_t read = uom_ReadDataFile(uomDataFile);
    if (read != UOM_DONE)
        return read;
    settleModes();
    findNamedSlates();
    if (!renameByMode())
        return noMemory();
    countQuantitiesInMoles();
    const int32_t status = startup_CheckTables();
    uom_SetGaugePressureBasis(UOM_SET_CURRENT);
    return status;
}

int32_t uom_Init2(int32_t count, const char *const *words) {
    if (uomInitDone == 1)
        return UOM_DONE;
    const MemoryWatch memory;
    const int32_t status = start(count, words);
    // Lines of the file are passed over when they fail, but not for want of memory.
    if (memory.exhausted()) {
        freeAll();
        return noMemory();
    }
    uomInitDone = status == UOM_DONE || status == UOM_START_BAD_CLASSES || status == UOM_START_BAD_UNITS;
    return status;
}

int32_t uom_Init3(int32_t count, const char *const *words) {
    if (uomInitDone == 1) {
        const char *path = namedPath(count, words, false);
        if (str_IsEmpty(path) || str_EqualNoCase(path, uomDataFile))
            return UOM_DONE;
        uom_Cleanup();
    }
    return uom_Init2(count, words);
}

void uom_Cleanup(void) {
    if (uomInitDone == 0)
        return;
    uomInitDone = 0;
    freeAll();
    uomModeKesta = uomModeOrbex = uomModeVel2go = -1;
    uomAllowMult = uomModeQx71 = -1;
}
