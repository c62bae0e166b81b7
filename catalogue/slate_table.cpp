#include "catalogue/slate_table.h"

#include <cassert>

#include "support/table.h"
#include "support/text.h"

namespace uom {

static bool isNamed(const Catalogue &catalogue, int32_t slate, const char *name) {
    const UomSlate *record = slate_AnyRecord(catalogue, slate);
    return record && str_EqualNoCase(record->name, name);
}

static bool indexSlate(Catalogue &catalogue, int32_t place) {
    const UomSlate *slate = slate_AnyRecord(catalogue, place);
    return !slate || !slate->name || names_Add(catalogue.slates.names, slate->name, place, [&](int32_t i) {
        return isNamed(catalogue, i, slate->name);
    });
}

void slate_IndexNames(Catalogue &catalogue) {
    const int32_t count = uom_GetSetCount(catalogue);
    if (count == 0)
        return names_Free(catalogue.slates.names);
    names_Reset(catalogue.slates.names, static_cast<uint32_t>(count));
    for (int32_t i = 0; catalogue.slates.names.places && i < count; ++i)
        indexSlate(catalogue, i);
}

void slate_IndexLast(Catalogue &catalogue) {
    if (!indexSlate(catalogue, uom_GetSetCount(catalogue) - 1))
        slate_IndexNames(catalogue);
}

void slate_UnindexLast(Catalogue &catalogue) {
    const int32_t last = uom_GetSetCount(catalogue) - 1;
    const UomSlate *slate = slate_AnyRecord(catalogue, last);
    if (slate && slate->name)
        names_Remove(catalogue.slates.names, slate->name, last);
}

bool slate_IsValid(const Catalogue &catalogue, int32_t slate) {
    return slate > NO_SLATE && slate < uom_GetSetCount(catalogue);
}

const UomSlate *slate_AnyRecord(const Catalogue &catalogue, int32_t slate) {
    return table_Record<UomSlate>(catalogue.slates.records, slate);
}

const UomSlate *slate_Record(const Catalogue &catalogue, int32_t slate) {
    return slate_IsValid(catalogue, slate) ? slate_AnyRecord(catalogue, slate) : nullptr;
}

UomSlate *slate_AnyRecord(Catalogue &catalogue, int32_t slate) {
    return table_Record<UomSlate>(catalogue.slates.records, slate);
}

UomSlate *slate_Record(Catalogue &catalogue, int32_t slate) {
    return slate_IsValid(catalogue, slate) ? slate_AnyRecord(catalogue, slate) : nullptr;
}

int32_t uom_GetSetCount(const Catalogue &catalogue) {
    return static_cast<int32_t>(table_Count(catalogue.slates.records));
}

int32_t uom_GetSetType(const Catalogue &catalogue, const char *name) {
    if (!name || uom_GetSetCount(catalogue) < 1)
        return -1;
    return names_Find(catalogue.slates.names, name, uom_GetSetCount(catalogue),
                      [&](int32_t i) { return isNamed(catalogue, i, name); });
}

int32_t slate_Parent(const Catalogue &catalogue, const UomSlate &slate) {
    return uom_GetSetType(catalogue, slate.basedOn);
}

const UomSlate *slate_FindUpward(const Catalogue &catalogue, int32_t slate, bool (*test)(const UomSlate &)) {
    // A ring of slates ends the walk once all of them have been asked.
    for (int32_t steps = 0; steps <= uom_GetSetCount(catalogue); ++steps) {
        const UomSlate *record = slate_Record(catalogue, slate);
        if (!record || test(*record))
            return record;
        const int32_t parent = slate_Parent(catalogue, *record);
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
    assert(path.count >= 0 && path.count <= SlatePath::LIMIT);
    if (path.count == SlatePath::LIMIT || slate_IsOnPath(path, slate))
        return false;
    path.slates[path.count++] = slate;
    return true;
}

} // namespace uom
