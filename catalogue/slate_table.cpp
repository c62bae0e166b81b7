#include "catalogue/slate_table.h"

#include "catalogue/state.h"
#include "support/name_index.h"
#include "support/table.h"
#include "support/text.h"

static NameIndex nameIndex;

static bool isNamed(int32_t slate, const char *name) {
    const UomSlate *record = slate_AnyRecord(slate);
    return record && str_EqualNoCase(record->name, name);
}

static bool indexSlate(int32_t place) {
    const UomSlate *slate = slate_AnyRecord(place);
    return !slate || !slate->name ||
           names_Add(nameIndex, slate->name, place, [=](int32_t i) { return isNamed(i, slate->name); });
}

void slate_IndexNames() {
    const int32_t count = uom_GetSetCount();
    if (count == 0)
        return names_Free(nameIndex);
    names_Reset(nameIndex, static_cast<uint32_t>(count));
    for (int32_t i = 0; nameIndex.places && i < count; ++i)
        indexSlate(i);
}

void slate_IndexLast() {
    if (!indexSlate(uom_GetSetCount() - 1))
        slate_IndexNames();
}

void slate_UnindexLast() {
    const int32_t last = uom_GetSetCount() - 1;
    const UomSlate *slate = slate_AnyRecord(last);
    if (slate && slate->name)
        names_Remove(nameIndex, slate->name, last);
}

bool slate_IsValid(int32_t slate) {
    return slate > UOM_SET_NULL && slate < UOM_SET_MAX;
}

UomSlate *slate_AnyRecord(int32_t slate) {
    return tbl_Record<UomSlate>(uomSlateTable, slate);
}

UomSlate *slate_Record(int32_t slate) {
    return slate_IsValid(slate) ? slate_AnyRecord(slate) : nullptr;
}

int32_t uom_GetSetCount() {
    return static_cast<int32_t>(tbl_Count(uomSlateTable));
}

int32_t uom_GetSetType(const char *name) {
    if (!name || UOM_SET_MAX < 1)
        return -1;
    return names_Find(nameIndex, name, uom_GetSetCount(), [=](int32_t i) { return isNamed(i, name); });
}

int32_t slate_Parent(const UomSlate &slate) {
    return uom_GetSetType(slate.basedOn);
}

const UomSlate *slate_FindUpward(int32_t slate, bool (*test)(const UomSlate &)) {
    // A ring of slates ends the walk once all of them have been asked.
    for (int32_t steps = 0; steps <= uom_GetSetCount(); ++steps) {
        const UomSlate *record = slate_Record(slate);
        if (!record || test(*record))
            return record;
        const int32_t parent = slate_Parent(*record);
        if (parent == slate)
            return nullptr;
        slate = parent;
    }
    return nullptr;
}

bool slate_IsOnPath(const SlatePath &path, int32_t slate) {
    for (int32_t i = 0; i < path.count; ++i)
        if (path.slates[i] == slate)
            return true;
    return false;
}

bool slate_Visit(SlatePath &path, int32_t slate) {
    if (path.count == SlatePath::LIMIT || slate_IsOnPath(path, slate))
        return false;
    path.slates[path.count++] = slate;
    return true;
}
