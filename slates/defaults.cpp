// The entry and exit of a slate's defaults. A base class has a pair of unit and multiplier, and a write to it
// sets off the rules of propagation; a composite class has a table of pairs, one a slot, and sets off
// nothing.
#include "slates/defaults.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/propagation.h"
#include "slates/properties.h"
#include "slates/unit_entry.h"
#include "slates/working_units.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/table.h"
#include "support/text.h"
#include "text/display_units.h"
#include "text/unit_text.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

enum DefaultStatus : int32_t {
    DEFAULT_DONE = UOM_DONE,
    DEFAULT_REFUSED = UOM_REFUSED,
    DEFAULT_NO_MEMORY = UOM_NO_MEMORY
};

// Both text operations judge the slate and the class name alike. The slate, or -1 with a message.
int32_t acceptSlate(const Catalogue &catalogue, const char *slateName, const char *className) {
    error_Clear();
    if (str_IsEmpty(slateName)) {
        error_Set("Unit-of-Measure slate is missing or blank.");
        return -1;
    }
    if (str_IsEmpty(className)) {
        error_Set("Unit-of-Measure class is missing or blank.");
        return -1;
    }
    const int32_t slate = uom_GetSetType(catalogue, slateName);
    if (slate < 1 || !slate_AnyRecord(catalogue, slate)) {
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
        if (units[i] > NO_UNIT)
            return true;
    return false;
}

int32_t writeComposite(const Catalogue &catalogue, UomSlate *slate, int32_t classId, const int32_t *units,
                       const int32_t *multipliers) {
    const int32_t slots = uom_GetUnitMax(catalogue, classId);
    const uint32_t place = static_cast<uint32_t>(classId);
    UomTable *stated = table_Record<UomTable>(slate->compositeDefaults, classId);
    if (!statesAnything(units, slots)) {
        table_Free(stated);
        if (stated)
            table_PutPointer(slate->compositeDefaults, place, 0);
        return DEFAULT_DONE;
    }
    if (!stated) {
        stated = table_Create(2 * static_cast<uint32_t>(slots), TABLE_INT64);
        if (!stated || !table_PutRecord(slate->compositeDefaults, place, stated)) {
            table_Free(stated);
            return DEFAULT_REFUSED;
        }
    }
    if (stated->count < 2 * static_cast<uint32_t>(slots) && !table_Resize(stated, 2 * static_cast<uint32_t>(slots)))
        return DEFAULT_REFUSED;
    for (int32_t i = 0; i < slots; ++i) {
        table_SetInteger(stated, static_cast<uint32_t>(2 * i), units[i]);
        table_SetInteger(stated, static_cast<uint32_t>(2 * i + 1), multipliers ? multipliers[i] : 0);
    }
    return DEFAULT_DONE;
}

int32_t writeBase(Catalogue &catalogue, Running &running, UomSlate *slate, int32_t slateIndex, int32_t classId,
                  const int32_t *units, const int32_t *multipliers) {
    if (!units || !multipliers)
        return DEFAULT_REFUSED;
    const uint32_t place = 2 * static_cast<uint32_t>(classId);
    if (table_Count(slate->classDefaults) < place + 2 && !table_Resize(slate->classDefaults, place + 2))
        return DEFAULT_NO_MEMORY;
    table_SetInteger(slate->classDefaults, place, units[0]);
    table_SetInteger(slate->classDefaults, place + 1, multipliers[0]);
    // What the rules give is not looked at, but that they could run.
    const MemoryWatch memory;
    uom_PropagateClassDefault(catalogue, running, slateIndex, classId, units, multipliers);
    return memory.exhausted() ? DEFAULT_NO_MEMORY : DEFAULT_DONE;
}

// The text of the pair that the slate itself states.
void readBase(const Catalogue &catalogue, const UomSlate &slate, int32_t classId, char *out, int32_t length) {
    const uint32_t place = 2 * static_cast<uint32_t>(classId);
    const int32_t unit = static_cast<int32_t>(table_Get(slate.classDefaults, place));
    const int32_t code = static_cast<int32_t>(table_Get(slate.classDefaults, place + 1));
    const UomUnit *record = table_Record<UomUnit>(catalogue.units.records, unit); // the placeholder as well
    multiplier_Write(code, record ? record->multiplierStyle : 0, out, static_cast<size_t>(length));
    const int32_t used = static_cast<int32_t>(std::strlen(out));
    uom_GetUnitText(catalogue, unit, out + used, length - used, STYLE_DEFAULT);
}

} // namespace

int32_t uom_SetClassDefault(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                            const int32_t *units, const int32_t *multipliers) {
    UomSlate *record = slate_Record(catalogue, slate);
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!record || !row)
        return DEFAULT_REFUSED;
    if (row->baseClass[0] != 0)
        return writeComposite(catalogue, record, classId, units, multipliers);
    return writeBase(catalogue, running, record, slate, classId, units, multipliers);
}

int32_t default_SetText(Catalogue &catalogue, Running &running, const char *slateName, const char *className,
                        const char *value, ClassDefault &read) {
    const int32_t slate = acceptSlate(catalogue, slateName, className);
    if (slate < 0)
        return DEFAULT_REFUSED;
    if (uoms_IsSetProperty(className)) {
        const int32_t status = uoms_PutSetProperty(catalogue, running, slateName, className, value);
        return status == DEFAULT_NO_MEMORY ? noMemory(className) : status;
    }
    const MemoryWatch memory;
    ParsedChain chain(catalogue, className);
    if (memory.exhausted())
        return noMemory(className);
    const int32_t classId = !chain.chain ? CLASS_NONE
                            : classstring_IsName(className)
                                ? chain.chain->classId
                                : class_Find(catalogue, className, catalogue.styles.scanClass);
    if (classId == CLASS_NONE) {
        error_Set("Unrecognized Unit-of-Measure class \"%s\".", className);
        return DEFAULT_REFUSED;
    }
    std::memset(read.units, 0, sizeof read.units);
    std::memset(read.multipliers, 0, sizeof read.multipliers);
    if (!str_IsEmpty(value)) {
        const int32_t status = uom_FillStructFromString(catalogue, chain.chain, value, catalogue.styles.scanUom);
        if (status >= 1)
            return status;
        chain_GetUnits(chain.chain, CHAIN_UNITS, read.units);
        chain_GetMultipliers(chain.chain, CHAIN_UNITS, read.multipliers);
    }
    read.classId = classId;
    const int32_t status = uom_SetClassDefault(catalogue, running, slate, classId, read.units, read.multipliers);
    return memory.exhausted() ? noMemory(className) : status;
}

int32_t uoms_SetClassDefault(Catalogue &catalogue, Running &running, const char *slateName, const char *className,
                             const char *value) {
    ClassDefault read;
    return default_SetText(catalogue, running, slateName, className, value, read);
}

int32_t uom_GetClassDefault(const Catalogue &catalogue, int32_t slate, int32_t classId, char *out, int32_t length) {
    if (!out || length < 1)
        return DEFAULT_REFUSED;
    *out = '\0';
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record || !class_IsValid(catalogue, classId))
        return DEFAULT_REFUSED;
    if (uom_IsClassBase(catalogue, classId)) {
        readBase(catalogue, *record, classId, out, length);
        return DEFAULT_DONE;
    }
    if (!table_Record<UomTable>(record->compositeDefaults, classId))
        return DEFAULT_DONE;
    // Slots that the slate leaves open are filled in from its parents, unlike a base class.
    const MemoryWatch memory;
    ParsedChain chain(catalogue, classId);
    if (memory.exhausted())
        return DEFAULT_NO_MEMORY;
    uom_InitializeUnits(catalogue, chain.chain, slate);
    uom_GetDisplayUnits(catalogue, chain.chain, out, length, STYLE_DEFAULT);
    return DEFAULT_DONE;
}

int32_t uoms_GetClassDefault(const Catalogue &catalogue, const char *slateName, const char *className, char *out,
                             int32_t length) {
    const int32_t slate = acceptSlate(catalogue, slateName, className);
    if (slate < 0)
        return DEFAULT_REFUSED;
    if (!out || length < 1) {
        error_Set("Output buffer for Unit-of-Measure is not specified.");
        return DEFAULT_REFUSED;
    }
    if (uoms_IsSetProperty(className))
        return uoms_GetSetProperty(catalogue, slateName, className, length, out);
    const int32_t classId = class_Find(catalogue, className, catalogue.styles.scanClass);
    return uom_GetClassDefault(catalogue, slate, classId, out, length);
}

int32_t uoms_IsClassDefault(const Catalogue &catalogue, const char *className, const char *slateName,
                            const char *text) {
    char stated[256];
    if (!text || uoms_GetClassDefault(catalogue, slateName, className, stated, sizeof stated) != 0)
        return 0;
    return std::strcmp(stated, text) == 0;
}

int32_t uom_IsUnitDefault(const Catalogue &catalogue, UomStruct chain) {
    int32_t units[CHAIN_UNITS];
    int32_t multipliers[CHAIN_UNITS];
    uom_GetDefaultUnits(catalogue, chain, catalogue.slateIndex.current, CHAIN_UNITS, units);
    uom_GetDefaultMults(catalogue, chain, catalogue.slateIndex.current, CHAIN_UNITS, multipliers);
    for (int32_t i = 0; chain && i < CHAIN_UNITS; chain = chain->next, ++i)
        if (chain->unit != units[i] || chain->multiplier != multipliers[i])
            return 0;
    return 1;
}

} // namespace uom
