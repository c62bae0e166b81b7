// The unit sets of a chain, read and written as arrays parallel to its nodes, and the defaults behind them.
//
// The order of precedence: a slate's default, inherited through the based-on chain, and on top of it the unit
// that the chain fixes for the active root system.
#include "slates/working_units.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/state.h"
#include "slates/assign_units.h"
#include "slates/registry.h"
#include "support/table.h"
#include "uomstruct/chain.h"
#include "uomstruct/quotients.h"

namespace {

enum UnitKind : int32_t { KIND_IN_USE = 1, KIND_SLATE = 2, KIND_DEFAULT = 3 };

struct Default {
    int32_t unit;
    int32_t multiplier;
};

int32_t elementOf(const UomTable *table, int64_t index) {
    return index < 0 ? 0 : static_cast<int32_t>(tbl_Get(table, static_cast<uint32_t>(index)));
}

Default pairOf(const UomTable *table, int64_t place) {
    return {elementOf(table, 2 * place), elementOf(table, 2 * place + 1)};
}

// Reads what one slate states for a base class.
void readStated(const UomSlate &slate, int32_t classId, Default &found) {
    found.unit = elementOf(slate.classDefaults, 2 * int64_t{classId});
    if (found.unit > UOM_NULL)
        found.multiplier = elementOf(slate.classDefaults, 2 * int64_t{classId} + 1);
}

// Reads what one slate states for the first slot that holds the component; nothing where it states none.
void readStated(const UomSlate &slate, int32_t classId, int32_t component, Default &found) {
    const UomTable *stated = tbl_Record<UomTable>(slate.compositeDefaults, classId);
    const UomClassRow *row = class_ValidRow(classId);
    const int32_t slots = uom_GetUnitMax(classId);
    for (int32_t slot = 0; stated && row && slot < slots && static_cast<uint32_t>(slot) < stated->count; ++slot) {
        if (row->baseClass[slot] == 0 || row->baseClass[slot] != component)
            continue;
        found = pairOf(stated, slot);
        return;
    }
}

// Asks one slate after the other, from this one upward, until one states a unit. Without one the result is
// what was read last.
template <class Read> Default inherited(int32_t slate, Read read) {
    Default found = {UOM_NULL, 0};
    SlatePath path;
    while (slate_Visit(path, slate)) {
        const UomSlate *record = slate_AnyRecord(slate);
        if (!record)
            break;
        read(*record, found);
        slate = found.unit > UOM_NULL ? UOM_SET_NULL : slate_Parent(*record);
        if (slate < 1)
            break;
    }
    return found;
}

Default baseDefault(int32_t classId, int32_t slate) {
    return inherited(slate, [=](const UomSlate &record, Default &found) { readStated(record, classId, found); });
}

Default compositeDefault(int32_t classId, int32_t component, int32_t slate) {
    return inherited(slate,
                     [=](const UomSlate &record, Default &found) { readStated(record, classId, component, found); });
}

Default nodeDefault(int32_t classId, int32_t component, int32_t slate) {
    const UomClassRow *row = class_ValidRow(classId);
    if (!row || !class_IsComposite(*row))
        return baseDefault(classId, slate);
    const Default found = compositeDefault(classId, component, slate);
    return found.unit > UOM_NULL ? found : baseDefault(component, slate);
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
int32_t rootPlace(int32_t slate) {
    const int64_t place = int64_t{slate} - UOM_SET_ENGLISH;
    return place >= 0 && place < 3 ? static_cast<int32_t>(place) : -1;
}

// A basis node keeps the basis that it was given.
int32_t resolveUnit(const UomStructNode &node, int32_t slate) {
    if (node.baseClass == CLASS_BASIS && node.unit > UOM_NULL)
        return node.unit;
    return nodeDefault(node.classId, node.baseClass, slate).unit;
}

void readDefaults(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    bool skip = false;
    for (int32_t i = 0; chain && i < count; chain = chain->next, ++i) {
        units[i] = skip ? UOM_NULL : resolveUnit(*chain, slate);
        skip = !skip && unit_IsWholeQuotient(chain->baseClass, units[i]);
    }
}

void readSlateUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    if (slate == UOM_SET_CURRENT)
        slate = uomCurrentSet;
    if (!slate_IsRootSystem(slate) || !slate_IsValid(slate) || rootPlace(slate) < 0)
        return;
    for (int32_t i = 0; chain && i < count; chain = chain->next, ++i)
        units[i] = chain->slateUnit[rootPlace(slate)];
}

void writeSlateUnits(UomStruct chain, int32_t slate, int32_t count, const int32_t *units) {
    const int32_t place = rootPlace(slate);
    for (int32_t i = 0; place >= 0 && chain && i < count; chain = chain->next, ++i)
        chain->slateUnit[place] = units[i];
}

} // namespace

void uom_GetBaseDefault(int32_t classId, int32_t slate, int32_t *unit, int32_t *multiplier) {
    give(baseDefault(classId, slate), unit, multiplier);
}

void uom_GetCompositeDefault(int32_t classId, int32_t componentClass, int32_t slate, int32_t *unit,
                             int32_t *multiplier) {
    give(compositeDefault(classId, componentClass, slate), unit, multiplier);
}

void uom_GetNodeDefault(int32_t classId, int32_t componentClass, int32_t slate, int32_t *unit, int32_t *multiplier) {
    give(nodeDefault(classId, componentClass, slate), unit, multiplier);
}

int32_t uom_GetSlateClassUnit(int32_t classId, int32_t component, int32_t slate) {
    const UomSlate *record = slate_Record(slate);
    if (!record || !class_IsValid(classId))
        return UOM_NULL;
    if (uom_IsClassBase(classId))
        return pairOf(record->classDefaults, classId).unit;
    if (!class_IsValid(component))
        return UOM_NULL;
    const UomTable *stated = tbl_Record<UomTable>(record->compositeDefaults, classId);
    const UomClassRow *row = class_Row(classId);
    for (int32_t slot = 0; stated && slot < uom_GetUnitMax(classId); ++slot)
        if (static_cast<uint32_t>(slot) < stated->count && row->baseClass[slot] == component)
            return pairOf(stated, slot).unit;
    return pairOf(record->classDefaults, component).unit;
}

void uom_GetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units) {
    clear(units, count);
    if (!units)
        return;
    if (kind == KIND_IN_USE)
        uom_GetCurrentUnits(chain, count, units);
    else if (kind == KIND_SLATE)
        readSlateUnits(chain, slate, count, units);
    else if (kind == KIND_DEFAULT && slate_IsValid(slate))
        readDefaults(chain, slate, count, units);
}

void uom_GetDefaultUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom_GetUnits(KIND_DEFAULT, slate, chain, count, units);
}

// Unlike the units: no test of the slate, no exception for a basis, and the skip looks at the unit that the
// node holds, not at the one that the slate gives. Kept.
void uom_GetDefaultMults(UomStruct chain, int32_t slate, int32_t count, int32_t *multipliers) {
    clear(multipliers, count);
    bool skip = false;
    for (int32_t i = 0; multipliers && chain && i < count; chain = chain->next, ++i) {
        if (!skip)
            multipliers[i] = nodeDefault(chain->classId, chain->baseClass, slate).multiplier;
        skip = !skip && unit_IsWholeQuotient(chain->baseClass, chain->unit);
    }
}

void uom_GetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom_GetUnits(KIND_SLATE, slate, chain, count, units);
}

void uom_SetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, const int32_t *units) {
    if (units)
        writeSlateUnits(chain, slate, count, units);
}

int32_t uom_SetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units) {
    if (!units)
        return count;
    if (kind == KIND_SLATE)
        writeSlateUnits(chain, slate, count, units);
    else if (kind == KIND_IN_USE)
        units_Assign(chain, count, units);
    return count;
}

int32_t uom_SetCurrentUnits(UomStruct chain, int32_t count, int32_t *units) {
    return uom_SetUnits(KIND_IN_USE, 0, chain, count, units);
}

void uom_InitializeUnits(UomStruct chain, int32_t slate) {
    int32_t units[CHAIN_UNITS];
    int32_t multipliers[CHAIN_UNITS];
    uom_GetDefaultUnits(chain, slate, CHAIN_UNITS, units);
    uom_GetDefaultMults(chain, slate, CHAIN_UNITS, multipliers);
    uom_SetUnits(KIND_IN_USE, 0, chain, CHAIN_UNITS, units);
    uom_SetMultipliers(chain, CHAIN_UNITS, multipliers);
}

void uom_InitializeCurrentUnits(UomStruct chain) {
    uom_InitializeUnits(chain, UOM_SET_CURRENT);
    const int32_t root = slate_IsRootSystem(uomCurrentSet) ? uomCurrentSet : UOM_SET_ENGLISH;
    if (root <= UOM_SET_NULL || rootPlace(root) < 0)
        return;
    int32_t fixed[CHAIN_UNITS] = {};
    const UomStructNode *node = chain;
    for (int32_t i = 0; node && i < CHAIN_UNITS; node = node->next, ++i)
        fixed[i] = node->slateUnit[rootPlace(root)];
    uom_SetUnits(KIND_IN_USE, 0, chain, CHAIN_UNITS, fixed);
}

int32_t uom_GetGlobalUnits(int32_t slate, int32_t *units, int32_t *multipliers) {
    const UomSlate *record = slate_Record(slate);
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

int32_t uom_SetGlobalUnits(int32_t slate, const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(slate);
    if (!record || !units || !multipliers)
        return 1;
    if (tbl_Count(record->classDefaults) < 2 * STATIC_CLASSES && !tbl_Resize(record->classDefaults, 2 * STATIC_CLASSES))
        return 11;
    for (uint32_t c = 0; c < STATIC_CLASSES; ++c) {
        tbl_PutNumber(record->classDefaults, 2 * c, units[c]);
        tbl_PutNumber(record->classDefaults, 2 * c + 1, multipliers[c]);
    }
    return 0;
}
