// Look-ups in the slate table. A slate's parent is a name, looked up afresh at each step; nothing checks that
// it exists, and slates may name each other in a ring.
#ifndef UOM_CATALOGUE_SLATE_TABLE_H
#define UOM_CATALOGUE_SLATE_TABLE_H

#include "catalogue/records.h"
#include "catalogue/catalogue.h"

namespace uom {

// A usable slate index: above UOM_SET_NULL and below UOM_SET_MAX.
bool slate_IsValid(const Catalogue &catalogue, int32_t slate);

// The record of a usable slate, else null.
const UomSlate *slate_Record(const Catalogue &catalogue, int32_t slate);
UomSlate *slate_Record(Catalogue &catalogue, int32_t slate);

// The record of any slate, the unnamed one included, null past the ends.
const UomSlate *slate_AnyRecord(const Catalogue &catalogue, int32_t slate);
UomSlate *slate_AnyRecord(Catalogue &catalogue, int32_t slate);

// The fast way of uom_GetSetType. Built anew by whoever deletes or renames a slate, continued for a new one, and cut
// back in front of the deletion of the last; without it (or without the memory for it) a look-up walks the table.
void slate_IndexNames(Catalogue &catalogue);
void slate_IndexLast(Catalogue &catalogue);
void slate_UnindexLast(Catalogue &catalogue);

// The number of records in the table.
int32_t uom_GetSetCount(const Catalogue &catalogue);

// The slate that this one is based on, -1 when there is none of that name.
int32_t slate_Parent(const Catalogue &catalogue, const UomSlate &slate);

// The record of the first slate, from this one upward, that passes the test; null when none does up to the
// root.
const UomSlate *slate_FindUpward(const Catalogue &catalogue, int32_t slate, bool (*test)(const UomSlate &));

// The slates met on a walk upward.
struct SlatePath {
    static constexpr int32_t LIMIT = 50;
    int32_t slates[LIMIT];
    int32_t count = 0;
};

bool slate_IsOnPath(const SlatePath &path, int32_t slate);

// Adds a slate to the path. False when it is there already, or the path is full.
bool slate_Visit(SlatePath &path, int32_t slate);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_GetSetType(const Catalogue &catalogue, const char *name);

} // namespace uom

#endif
