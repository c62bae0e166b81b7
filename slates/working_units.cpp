// The unit sets of a chain, read and written as arrays parallel to its nodes, and the defaults behind them.
//
// The order of precedence: a slate's default, inherited through the based-on chain, and on top of it the unit
// that the chain fixes for the active root system.
#include "slates/working_units.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "conversion/prepared.h"
#include "slates/assign_units.h"
#include "slates/registry.h"
#include "support/table.h"
#include "uomstruct/chain.h"
#include "uomstruct/quotients.h"

namespace uom {

namespace {

enum UnitKind : int32_t { KIND_IN_USE = 1, KIND_SLATE = 2, KIND_DEFAULT = 3 };

struct Default {
    int32_t unit;
    int32_t multiplier;
};

int32_t elementOf(const UomTable *table, int64_t index) {
    return index < 0 ? 0 : static_cast<int32_t>(table_Get(table, static_cast<uint32_t>(index)));
}

Default pairOf(const UomTable *table, int64_t place) {
    return {elementOf(table, 2 * place), elementOf(table, 2 * place + 1)};
}

// Reads what one slate states for a base class.
void readStated(const UomSlate &slate, int32_t classId, Default &found) {
    found.unit = elementOf(slate.classDefaults, 2 * int64_t{classId});
    if (found.unit > NO_UNIT)
        found.multiplier = elementOf(slate.classDefaults, 2 * int64_t{classId} + 1);
}

// The first slot of a composite class that holds the component, -1 when none does.
int32_t slotOf(const Catalogue &catalogue, int32_t classId, int32_t component) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    for (int32_t slot = 0; row && component != CLASS_NONE && slot < uom_GetUnitMax(catalogue, classId); ++slot)
        if (row->baseClass[slot] == component)
            return slot;
    return -1;
}

// Reads what one slate itself states for a component of a composite class. False when it states nothing.
bool readStated(const Catalogue &catalogue, const UomSlate &slate, int32_t classId, int32_t component, Default &found) {
    const UomTable *stated = table_Record<UomTable>(slate.compositeDefaults, classId);
    const int32_t slot = stated ? slotOf(catalogue, classId, component) : -1;
    if (slot < 0 || static_cast<uint32_t>(slot) >= stated->count)
        return false;
    found = pairOf(stated, slot);
    return true;
}

// Asks one slate after the other, from this one upward, until one states a unit. Without one the result is
// what was read last.
template <class Read> Default inherited(const Catalogue &catalogue, int32_t slate, Read read) {
    Default found = {NO_UNIT, 0};
    SlatePath path;
    while (slate_Visit(path, slate)) {
        const UomSlate *record = slate_AnyRecord(catalogue, slate);
        if (!record)
            break;
        read(*record, found);
        slate = found.unit > NO_UNIT ? NO_SLATE : slate_Parent(catalogue, *record);
        if (slate < 1)
            break;
    }
    return found;
}

Default baseDefault(const Catalogue &catalogue, int32_t classId, int32_t slate) {
    return inherited(catalogue, slate,
                     [&](const UomSlate &record, Default &found) { readStated(record, classId, found); });
}

Default compositeDefault(const Catalogue &catalogue, int32_t classId, int32_t component, int32_t slate) {
    return inherited(catalogue, slate, [&](const UomSlate &record, Default &found) {
        readStated(catalogue, record, classId, component, found);
    });
}

Default nodeDefault(const Catalogue &catalogue, int32_t classId, int32_t component, int32_t slate) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || !class_IsComposite(*row))
        return baseDefault(catalogue, classId, slate);
    const Default found = compositeDefault(catalogue, classId, component, slate);
    return found.unit > NO_UNIT ? found : baseDefault(catalogue, component, slate);
}

void give(Default found, int32_t *unit, int32_t *multiplier) {
    *unit = found.unit;
    *multiplier = found.multiplier;
}

void clear(int32_t *out, int32_t count) {
    if (out && count > 0)
        std::memset(out, 0, static_cast<size_t>(count) * sizeof *out);
}

// The place of a root system in a node's slateUnit, -1 for any other slate.
int32_t rootPlace(const Catalogue &catalogue, int32_t slate) {
    const int64_t place = int64_t{slate} - catalogue.slateIndex.english;
    return place >= 0 && place < 3 ? static_cast<int32_t>(place) : -1;
}

// A basis node keeps the basis that it was given.
int32_t resolveUnit(const Catalogue &catalogue, const UomStructNode &node, int32_t slate) {
    if (node.baseClass == CLASS_BASIS && node.unit > NO_UNIT)
        return node.unit;
    return nodeDefault(catalogue, node.classId, node.baseClass, slate).unit;
}

void readDefaults(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    bool skip = false;
    for (int32_t i = 0; chain && i < count; chain = chain->next, ++i) {
        units[i] = skip ? NO_UNIT : resolveUnit(catalogue, *chain, slate);
        skip = !skip && unit_IsWholeQuotient(catalogue, chain->baseClass, units[i]);
    }
}

void readSlateUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    if (slate == catalogue.slateIndex.current)
        slate = catalogue.slates.currentRoot;
    if (!slate_IsRootSystem(catalogue, slate) || !slate_IsValid(catalogue, slate) || rootPlace(catalogue, slate) < 0)
        return;
    for (int32_t i = 0; chain && i < count; chain = chain->next, ++i)
        units[i] = chain->slateUnit[rootPlace(catalogue, slate)];
}

void writeSlateUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, const int32_t *units) {
    const int32_t place = rootPlace(catalogue, slate);
    for (int32_t i = 0; place >= 0 && chain && i < count; chain = chain->next, ++i)
        chain->slateUnit[place] = units[i];
}

} // namespace

void uom_GetBaseDefault(const Catalogue &catalogue, int32_t classId, int32_t slate, int32_t *unit,
                        int32_t *multiplier) {
    give(baseDefault(catalogue, classId, slate), unit, multiplier);
}

void uom_GetCompositeDefault(const Catalogue &catalogue, int32_t classId, int32_t componentClass, int32_t slate,
                             int32_t *unit, int32_t *multiplier) {
    give(compositeDefault(catalogue, classId, componentClass, slate), unit, multiplier);
}

void uom_GetNodeDefault(const Catalogue &catalogue, int32_t classId, int32_t componentClass, int32_t slate,
                        int32_t *unit, int32_t *multiplier) {
    give(nodeDefault(catalogue, classId, componentClass, slate), unit, multiplier);
}

int32_t uom_GetSlateClassUnit(const Catalogue &catalogue, int32_t classId, int32_t component, int32_t slate) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record || !class_IsValid(catalogue, classId))
        return NO_UNIT;
    if (uom_IsClassBase(catalogue, classId))
        return pairOf(record->classDefaults, classId).unit;
    if (!class_IsValid(catalogue, component))
        return NO_UNIT;
    Default found;
    if (readStated(catalogue, *record, classId, component, found))
        return found.unit;
    return pairOf(record->classDefaults, component).unit;
}

void uom_GetUnits(const Catalogue &catalogue, int32_t kind, int32_t slate, UomStruct chain, int32_t count,
                  int32_t *units) {
    clear(units, count);
    if (!units)
        return;
    if (kind == KIND_IN_USE)
        chain_GetUnits(chain, count, units);
    else if (kind == KIND_SLATE)
        readSlateUnits(catalogue, chain, slate, count, units);
    else if (kind == KIND_DEFAULT && slate_IsValid(catalogue, slate))
        readDefaults(catalogue, chain, slate, count, units);
}

void uom_GetDefaultUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom_GetUnits(catalogue, KIND_DEFAULT, slate, chain, count, units);
}

// Unlike the units: no test of the slate, no exception for a basis, and the skip looks at the unit that the
// node holds, not at the one that the slate gives. Kept.
void uom_GetDefaultMults(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count,
                         int32_t *multipliers) {
    clear(multipliers, count);
    bool skip = false;
    for (int32_t i = 0; multipliers && chain && i < count; chain = chain->next, ++i) {
        if (!skip)
            multipliers[i] = nodeDefault(catalogue, chain->classId, chain->baseClass, slate).multiplier;
        skip = !skip && unit_IsWholeQuotient(catalogue, chain->baseClass, chain->unit);
    }
}

void uom_GetOverrideUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom_GetUnits(catalogue, KIND_SLATE, slate, chain, count, units);
}

void uom_SetOverrideUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count,
                          const int32_t *units) {
    if (units)
        writeSlateUnits(catalogue, chain, slate, count, units);
}

int32_t uom_SetUnits(const Catalogue &catalogue, int32_t kind, int32_t slate, UomStruct chain, int32_t count,
                     int32_t *units) {
    if (!units)
        return count;
    if (kind == KIND_SLATE)
        writeSlateUnits(catalogue, chain, slate, count, units);
    else if (kind == KIND_IN_USE)
        units_Assign(catalogue, chain, count, units);
    return count;
}

int32_t uom_SetCurrentUnits(const Catalogue &catalogue, UomStruct chain, int32_t count, int32_t *units) {
    return uom_SetUnits(catalogue, KIND_IN_USE, 0, chain, count, units);
}

void uom_InitializeUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate) {
    int32_t units[CHAIN_UNITS];
    int32_t multipliers[CHAIN_UNITS];
    uom_GetDefaultUnits(catalogue, chain, slate, CHAIN_UNITS, units);
    uom_GetDefaultMults(catalogue, chain, slate, CHAIN_UNITS, multipliers);
    uom_SetUnits(catalogue, KIND_IN_USE, 0, chain, CHAIN_UNITS, units);
    chain_SetMultipliers(chain, CHAIN_UNITS, multipliers);
}

void uom_InitializeCurrentUnits(const Catalogue &catalogue, UomStruct chain) {
    uom_InitializeUnits(catalogue, chain, catalogue.slateIndex.current);
    const int32_t root = slate_IsRootSystem(catalogue, catalogue.slates.currentRoot) ? catalogue.slates.currentRoot
                                                                                     : catalogue.slateIndex.english;
    if (root <= NO_SLATE || rootPlace(catalogue, root) < 0)
        return;
    int32_t fixed[CHAIN_UNITS] = {};
    const UomStructNode *node = chain;
    for (int32_t i = 0; node && i < CHAIN_UNITS; node = node->next, ++i)
        fixed[i] = node->slateUnit[rootPlace(catalogue, root)];
    uom_SetUnits(catalogue, KIND_IN_USE, 0, chain, CHAIN_UNITS, fixed);
}

void chain_TakeSlate(const Catalogue &catalogue, UomStruct chain, int32_t slate) {
    if (slate == catalogue.slateIndex.current)
        uom_InitializeCurrentUnits(catalogue, chain);
    else
        uom_InitializeUnits(catalogue, chain, slate);
}

int32_t uom_GetGlobalUnits(const Catalogue &catalogue, int32_t slate, int32_t *units, int32_t *multipliers) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record)
        return 1;
    for (int32_t c = 0; c < STATIC_CLASSES; ++c) {
        const Default pair = pairOf(record->classDefaults, c);
        if (units)
            units[c] = pair.unit;
        if (multipliers)
            multipliers[c] = pair.multiplier;
    }
    return 0;
}

int32_t uom_SetGlobalUnits(Catalogue &catalogue, int32_t slate, const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record || !units || !multipliers)
        return 1;
    if (table_Count(record->classDefaults) < 2 * STATIC_CLASSES &&
        !table_Resize(record->classDefaults, 2 * STATIC_CLASSES))
        return 11;
    for (uint32_t c = 0; c < STATIC_CLASSES; ++c) {
        table_PutNumber(record->classDefaults, 2 * c, units[c]);
        table_PutNumber(record->classDefaults, 2 * c + 1, multipliers[c]);
    }
    return 0;
}

} // namespace uom
