// The entry and exit of a slate's defaults. A base class has a pair of unit and multiplier, and a write to it
// sets off the rules of propagation; a composite class has a table of pairs, one a slot, and sets off
// nothing.
#include "slates/defaults.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/state.h"
#include "catalogue/units.h"
#include "slates/propagation.h"
#include "slates/properties.h"
#include "support/scoped.h"
#include "support/table.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/unit_scan.h"

namespace {

enum DefaultStatus : int32_t {
    DEFAULT_DONE = UOM_DONE,
    DEFAULT_REFUSED = UOM_REFUSED,
    DEFAULT_NO_MEMORY = UOM_NO_MEMORY
};

// Both text operations judge the slate and the class name alike. The slate, or -1 with a message.
int32_t acceptSlate(const char *slateName, const char *className) {
    error_Clear();
    if (str_IsEmpty(slateName)) {
        error_Set("Unit-of-Measure slate is missing or blank.");
        return -1;
    }
    if (str_IsEmpty(className)) {
        error_Set("Unit-of-Measure class is missing or blank.");
        return -1;
    }
    const int32_t slate = uom_GetSetType(slateName);
    if (slate < 1 || !slate_AnyRecord(slate)) {
        error_Set("Unrecognized Unit-of-Measure slate \"%s\".", slateName);
        return -1;
    }
    return slate;
}

int32_t noMemory(const char *className) {
    error_Set("The default of the Unit-of-Measure class \"%s\" was not set: memory is exhausted.", className);
    return DEFAULT_NO_MEMORY;
}

bool statesAnything(const int32_t *units, int32_t count) {
    for (int32_t i = 0; units && i < count; ++i)
        if (units[i] > UOM_NULL)
            return true;
    return false;
}

int32_t writeComposite(UomSlate *slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    const int32_t slots = uom_GetUnitMax(classId);
    const uint32_t place = static_cast<uint32_t>(classId);
    UomTable *stated = tbl_Record<UomTable>(slate->compositeDefaults, classId);
    if (!statesAnything(units, slots)) {
        tbl_Free(stated);
        if (stated)
            tbl_PutPointer(slate->compositeDefaults, place, 0);
        return DEFAULT_DONE;
    }
    if (!stated) {
        stated = tbl_Create(2 * static_cast<uint32_t>(slots), TABLE_INT64);
        if (!stated || !tbl_PutRecord(slate->compositeDefaults, place, stated)) {
            tbl_Free(stated);
            return DEFAULT_REFUSED;
        }
    }
    for (int32_t i = 0; i < slots; ++i) {
        tbl_PutNumber(stated, static_cast<uint32_t>(2 * i), units[i]);
        tbl_PutNumber(stated, static_cast<uint32_t>(2 * i + 1), multipliers ? multipliers[i] : 0);
    }
    return DEFAULT_DONE;
}

int32_t writeBase(UomSlate *slate, int32_t slateIndex, int32_t classId, const int32_t *units,
                  const int32_t *multipliers) {
    if (!units || !multipliers)
        return DEFAULT_REFUSED;
    const uint32_t place = 2 * static_cast<uint32_t>(classId);
    // The multiplier goes first: it makes the room for both.
    if (!tbl_PutNumber(slate->classDefaults, place + 1, multipliers[0]) ||
        !tbl_PutNumber(slate->classDefaults, place, units[0]))
        return DEFAULT_NO_MEMORY;
    // What the rules give is not looked at, but that they could run.
    const MemoryWatch memory;
    uom_PropagateClassDefault(slateIndex, classId, units, multipliers);
    return memory.exhausted() ? DEFAULT_NO_MEMORY : DEFAULT_DONE;
}

// The text of the pair that the slate itself states.
void readBase(const UomSlate &slate, int32_t classId, char *out, int32_t length) {
    const uint32_t place = 2 * static_cast<uint32_t>(classId);
    const int32_t unit = static_cast<int32_t>(tbl_Get(slate.classDefaults, place));
    const int32_t code = static_cast<int32_t>(tbl_Get(slate.classDefaults, place + 1));
    const UomUnit *record = tbl_Record<UomUnit>(uomUnitTable, unit); // the placeholder as well
    const UomMultiplierRow *row = multiplier_Find(code);
    if (row && record && record->multiplierStyle == 1)
        str_FormatBounded(out, static_cast<size_t>(length), "%s ", row->apiText);
    else if (row)
        str_FormatBounded(out, static_cast<size_t>(length), "%s*", row->siText);
    const int32_t used = static_cast<int32_t>(std::strlen(out));
    uom_GetUnitText(unit, out + used, length - used, STYLE_DEFAULT);
}

} // namespace

int32_t uom_SetClassDefault(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    UomSlate *record = slate_Record(slate);
    const UomClassRow *row = class_ValidRow(classId);
    if (!record || !row)
        return DEFAULT_REFUSED;
    if (row->baseClass[0] != 0)
        return writeComposite(record, classId, units, multipliers);
    return writeBase(record, slate, classId, units, multipliers);
}

int32_t uoms_SetClassDefault(const char *slateName, const char *className, const char *value) {
    const int32_t slate = acceptSlate(slateName, className);
    if (slate < 0)
        return DEFAULT_REFUSED;
    if (uoms_IsSetProperty(className)) {
        const int32_t status = uoms_PutSetProperty(slateName, className, value);
        return status == DEFAULT_NO_MEMORY ? noMemory(className) : status;
    }
    const int32_t classId = class_Find(className, defaultScanClassStyle);
    const MemoryWatch memory;
    const ScopedChain chain(classId < 1 ? nullptr : uoms_New(className));
    if (memory.exhausted())
        return noMemory(className);
    if (!chain.chain) {
        error_Set("Unrecognized Unit-of-Measure class \"%s\".", className);
        return DEFAULT_REFUSED;
    }
    int32_t units[CHAIN_UNITS] = {};
    int32_t multipliers[CHAIN_UNITS] = {};
    if (!str_IsEmpty(value)) {
        const int32_t status = uom_FillStructFromString(chain.chain, value, defaultScanUOMStyle);
        if (status >= 1)
            return status;
        uom_GetCurrentUnits(chain.chain, CHAIN_UNITS, units);
        uom_GetMultipliers(chain.chain, CHAIN_UNITS, multipliers);
    }
    const int32_t status = uom_SetClassDefault(slate, classId, units, multipliers);
    return memory.exhausted() ? noMemory(className) : status;
}

int32_t uom_GetClassDefault(int32_t slate, int32_t classId, char *out, int32_t length) {
    if (!out || length < 1)
        return DEFAULT_REFUSED;
    *out = '\0';
    const UomSlate *record = slate_Record(slate);
    if (!record || !class_IsValid(classId))
        return DEFAULT_REFUSED;
    if (uom_IsClassBase(classId)) {
        readBase(*record, classId, out, length);
        return DEFAULT_DONE;
    }
    if (!tbl_Record<UomTable>(record->compositeDefaults, classId))
        return DEFAULT_DONE;
    // Slots that the slate leaves open are filled in from its parents, unlike a base class.
    const MemoryWatch memory;
    const ScopedChain chain(chain_OfClass(classId));
    if (memory.exhausted())
        return DEFAULT_NO_MEMORY;
    uom_InitializeUnits(chain.chain, slate);
    uom_GetDisplayUnits(chain.chain, out, length, STYLE_DEFAULT);
    return DEFAULT_DONE;
}

int32_t uoms_GetClassDefault(const char *slateName, const char *className, char *out, int32_t length) {
    const int32_t slate = acceptSlate(slateName, className);
    if (slate < 0)
        return DEFAULT_REFUSED;
    if (!out || length < 1) {
        error_Set("Output buffer for Unit-of-Measure is not specified.");
        return DEFAULT_REFUSED;
    }
    if (uoms_IsSetProperty(className))
        return uoms_GetSetProperty(slateName, className, length, out);
    const int32_t classId = class_Find(className, defaultScanClassStyle);
    return uom_GetClassDefault(slate, classId, out, length);
}

int32_t uoms_IsClassDefault(const char *className, const char *slateName, const char *text) {
    char stated[256];
    if (!text || uoms_GetClassDefault(slateName, className, stated, sizeof stated) != 0)
        return 0;
    return std::strcmp(stated, text) == 0;
}

int32_t uom_IsUnitDefault(UomStruct chain) {
    int32_t units[CHAIN_UNITS];
    int32_t multipliers[CHAIN_UNITS];
    uom_GetDefaultUnits(chain, UOM_SET_CURRENT, CHAIN_UNITS, units);
    uom_GetDefaultMults(chain, UOM_SET_CURRENT, CHAIN_UNITS, multipliers);
    for (int32_t i = 0; chain && i < CHAIN_UNITS; chain = chain->next, ++i)
        if (chain->unit != units[i] || chain->multiplier != multipliers[i])
            return 0;
    return 1;
}
