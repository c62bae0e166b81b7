#include "slates/registry.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/defaults.h"
#include "slates/gauge_pressure.h"
#include "support/memory.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

namespace {

constexpr int32_t OLD_NAME_SIZE = 64; // of the operations that take no size
constexpr size_t NAME_CUT = 65;       // bytes of a parent's name on the walk to the root

void freeSlate(UomSlate *slate) {
    mem_Free(slate->name);
    mem_Free(slate->basedOn);
    mem_Free(slate->gaugePresBasisText);
    table_Free(slate->classDefaults);
    for (uint32_t i = 0; i < table_Count(slate->compositeDefaults); ++i)
        table_Free(table_Record<UomTable>(slate->compositeDefaults, i));
    table_Free(slate->compositeDefaults);
    mem_Free(slate);
}

// A slate based on itself that states nothing; null when memory is exhausted.
UomSlate *makeSlate(const Catalogue &catalogue, const char *name) {
    UomSlate *slate = mem_New<UomSlate>();
    if (!slate)
        return nullptr;
    slate->gaugePresBasis = STANDARD_ATMOSPHERE;
    slate->allowDelete = slate->allowModify = 1;
    const uint32_t classes = static_cast<uint32_t>(catalogue.classes.count);
    const bool named = mem_DupText(&slate->name, name) == 0 && mem_DupText(&slate->basedOn, name) == 0;
    slate->classDefaults = table_Create(classes, TABLE_INT64);
    slate->compositeDefaults = table_Create(classes, TABLE_INT64);
    if (named && slate->classDefaults && slate->compositeDefaults)
        return slate;
    freeSlate(slate);
    return nullptr;
}

void copyText(char *out, int32_t length, const char *text) {
    if (out && length > 0)
        str_CopyBounded(out, static_cast<size_t>(length), text);
}

char *copyBasedOn(const Catalogue &catalogue, int32_t slate, char *out, int32_t length) {
    const UomSlate *record = slate_Record(catalogue, slate);
    copyText(out, length, record ? record->basedOn : nullptr);
    return out;
}

// The root system from which Current descends: SI when it descends from none.
void refreshCurrentRoot(Catalogue &catalogue) {
    catalogue.slates.currentRoot = catalogue.slateIndex.si;
    const UomSlate *slate = slate_Record(catalogue, catalogue.slateIndex.current);
    for (int32_t steps = 0; slate && steps <= uom_GetSetCount(catalogue); ++steps) {
        if (str_IsEmpty(slate->basedOn))
            return;
        const int32_t parent = slate_Parent(catalogue, *slate);
        if (!slate_IsValid(catalogue, parent))
            return;
        if (slate_IsRootSystem(catalogue, parent)) {
            catalogue.slates.currentRoot = parent;
            return;
        }
        if (str_EqualNoCase(slate->name, slate->basedOn))
            return;
        slate = slate_Record(catalogue, parent);
    }
}

// Copies what the source states for the compiled classes, what it leaves open included. Made ready before the
// destination changes, so that exhausted memory leaves it whole.
bool copyDefaults(UomSlate *destination, const UomSlate *source) {
    UomTable *copies[STATIC_CLASSES] = {};
    bool ready = table_Count(destination->classDefaults) >= 2 * STATIC_CLASSES ||
                 table_Resize(destination->classDefaults, 2 * STATIC_CLASSES);
    ready = ready && (table_Count(destination->compositeDefaults) >= STATIC_CLASSES ||
                      table_Resize(destination->compositeDefaults, STATIC_CLASSES));
    for (uint32_t c = 0; ready && c < STATIC_CLASSES; ++c) {
        const UomTable *stated = table_Record<UomTable>(source->compositeDefaults, c);
        copies[c] = table_Copy(stated);
        ready = !stated || copies[c];
    }
    for (uint32_t c = 0; c < STATIC_CLASSES; ++c) {
        if (!ready) {
            table_Free(copies[c]);
            continue;
        }
        table_PutNumber(destination->classDefaults, 2 * c, table_Get(source->classDefaults, 2 * c));
        table_PutNumber(destination->classDefaults, 2 * c + 1, table_Get(source->classDefaults, 2 * c + 1));
        table_Free(table_Record<UomTable>(destination->compositeDefaults, c));
        table_PutRecord(destination->compositeDefaults, c, copies[c]);
    }
    return ready;
}

// The text by which a class is named in a style, for uoms_ClearSet.
const char *styledName(const UomClassRow &row, int32_t style, char *upper, size_t size) {
    if (style == STYLE_KEYWORD)
        return row.keyword;
    if (style == STYLE_LONG_NAME)
        return row.name;
    if (style != STYLE_TOKEN_UPPER)
        return row.token;
    str_CopyBounded(upper, size, row.token);
    for (char *c = upper; *c; ++c)
        *c = str_Upper(*c);
    return upper;
}

bool hasGaugeText(const UomSlate &slate) {
    return !str_IsEmpty(slate.gaugePresBasisText);
}

} // namespace

bool slate_IsRootSystem(const Catalogue &catalogue, int32_t slate) {
    return slate == catalogue.slateIndex.english || slate == catalogue.slateIndex.metric ||
           slate == catalogue.slateIndex.si;
}

int32_t uoms_NewSet(Catalogue &catalogue, const char *name) {
    if (!name)
        return -1;
    const int32_t existing = uom_GetSetType(catalogue, name);
    if (existing >= 0)
        return existing;
    if (!catalogue.slates.records)
        catalogue.slates.records = table_Create(0, TABLE_INT64);
    UomSlate *slate = catalogue.slates.records ? makeSlate(catalogue, name) : nullptr;
    if (!slate)
        return -1;
    if (!table_PutRecord(catalogue.slates.records, TABLE_APPEND, slate)) {
        freeSlate(slate);
        return -1;
    }
    slate_IndexLast(catalogue);
    return uom_GetSetCount(catalogue) - 1;
}

int32_t uoms_NewSetBasedOn(Catalogue &catalogue, const char *name, const char *parent) {
    const int32_t slate = uoms_NewSet(catalogue, name);
    uoms_PutSetBasedOn(catalogue, name, parent);
    return slate < 0;
}

int32_t uom_CheckDupSetName(const Catalogue &catalogue, const char *name) {
    for (int32_t i = 0; name && i < uom_GetSetCount(catalogue); ++i) {
        const UomSlate *slate = slate_AnyRecord(catalogue, i);
        if (slate && !str_IsEmpty(slate->name) && std::strcmp(slate->name, name) == 0)
            return 1;
    }
    return 0;
}

UomTable *uom_GetSetList(const Catalogue &catalogue) {
    UomTable *list = table_Create(0, TABLE_TEXT);
    for (int32_t i = 0; list && i < uom_GetSetCount(catalogue); ++i) {
        const UomSlate *slate = slate_AnyRecord(catalogue, i);
        if (!table_PutText(list, TABLE_APPEND, slate && slate->name ? slate->name : "")) {
            table_Free(list);
            return nullptr;
        }
    }
    return list;
}

int32_t uoms_IsSetValid(const Catalogue &catalogue, const char *name) {
    return uom_GetSetType(catalogue, name) >= 1;
}

int32_t uom_GetCurrentSet(const Catalogue &catalogue) {
    return catalogue.slates.currentRoot;
}

int32_t uom_InitializeSet(Catalogue &catalogue, int32_t destination, int32_t source) {
    UomSlate *to = slate_Record(catalogue, destination);
    const UomSlate *from = slate_Record(catalogue, source);
    if (!to || !from || destination == source)
        return 1;
    char *parent = nullptr;
    const bool keepsParent = slate_IsRootSystem(catalogue, destination);
    if ((!keepsParent && mem_DupText(&parent, from->name) != 0) || !copyDefaults(to, from)) {
        mem_Free(parent);
        return 11;
    }
    if (!keepsParent) {
        mem_Free(to->basedOn);
        to->basedOn = parent;
    }
    if (destination == catalogue.slateIndex.current)
        refreshCurrentRoot(catalogue);
    uom_SetGaugePressureBasis(catalogue, catalogue.slateIndex.current);
    return 0;
}

int32_t uom_InitializeCurrentSet(Catalogue &catalogue, int32_t source) {
    return uom_InitializeSet(catalogue, catalogue.slateIndex.current, source);
}

int32_t uoms_InitializeSet(Catalogue &catalogue, const char *destination, const char *source) {
    return uom_InitializeSet(catalogue, uom_GetSetType(catalogue, destination), uom_GetSetType(catalogue, source));
}

int32_t uoms_CopySet(Catalogue &catalogue, const char *destination, const char *source) {
    return uoms_InitializeSet(catalogue, destination, source);
}

int32_t uom_DeleteSet(Catalogue &catalogue, int32_t slate) {
    const bool exists = slate >= 0 && slate < uom_GetSetCount(catalogue);
    if (exists) {
        const bool last = slate + 1 == uom_GetSetCount(catalogue);
        if (last)
            slate_UnindexLast(catalogue);
        if (UomSlate *record = slate_AnyRecord(catalogue, slate))
            freeSlate(record);
        table_Remove(catalogue.slates.records, static_cast<uint32_t>(slate), 1);
        if (!last || uom_GetSetCount(catalogue) == 0)
            slate_IndexNames(catalogue);
    }
    return exists ? 0 : 1;
}

int32_t uoms_DeleteSet(Catalogue &catalogue, const char *name) {
    return uom_DeleteSet(catalogue, uom_GetSetType(catalogue, name));
}

void uoms_RenameSet(Catalogue &catalogue, const char *oldName, const char *newName) {
    UomSlate *slate = slate_AnyRecord(catalogue, uom_GetSetType(catalogue, oldName));
    if (!slate || !newName || uom_CheckDupSetName(catalogue, newName) || mem_ExchangeText(&slate->name, newName) != 0)
        return;
    slate_IndexNames(catalogue);
}

int32_t uoms_ClearSet(Catalogue &catalogue, Running &running, const char *name) {
    if (uom_GetSetType(catalogue, name) < 1)
        return 1;
    const MemoryWatch memory;
    const int32_t style =
        catalogue.styles.scanClass < STYLE_TOKEN ? catalogue.styles.display : catalogue.styles.scanClass;
    for (int32_t c = 0; c < catalogue.classes.count; ++c) {
        char upper[64];
        const UomClassRow *row = class_Row(catalogue, c);
        uoms_SetClassDefault(catalogue, running, name, row ? styledName(*row, style, upper, sizeof upper) : nullptr,
                             "");
    }
    return memory.exhausted() ? 11 : 0;
}

int32_t uoms_PutSetBasedOn(Catalogue &catalogue, const char *name, const char *parent) {
    const int32_t slate = uom_GetSetType(catalogue, name);
    UomSlate *record = slate_AnyRecord(catalogue, slate);
    if (!record)
        return -1;
    if (slate_IsRootSystem(catalogue, slate))
        return slate;
    return mem_ExchangeText(&record->basedOn, parent) == 0 ? slate : -1;
}

char *uom_GetSetBasedOn(const Catalogue &catalogue, int32_t slate, char *out) {
    platform_Debug("COREKIT.DLL: call to deprecated function uom_GetSetBasedOn.\n");
    return copyBasedOn(catalogue, slate, out, OLD_NAME_SIZE);
}

char *uom_GetSetBasedOn2(const Catalogue &catalogue, int32_t slate, char *out, int32_t length) {
    return copyBasedOn(catalogue, slate, out, length);
}

char *uoms_GetSetBasedOn(const Catalogue &catalogue, const char *name, char *out) {
    platform_Debug("COREKIT.DLL: call to deprecated function uoms_GetSetBasedOn.\n");
    return copyBasedOn(catalogue, uom_GetSetType(catalogue, name), out, OLD_NAME_SIZE);
}

char *uoms_GetSetBasedOn2(const Catalogue &catalogue, const char *name, char *out, int32_t length) {
    return copyBasedOn(catalogue, uom_GetSetType(catalogue, name), out, length);
}

int32_t uoms_GetSetParent(const Catalogue &catalogue, const char *name, int32_t length, char *out) {
    if (!out || length < 1)
        return 1;
    copyBasedOn(catalogue, uom_GetSetType(catalogue, name), out, length);
    return 0;
}

int32_t uoms_GetSetRoot(const Catalogue &catalogue, const char *name, int32_t length, char *out) {
    if (!out || length < 1)
        return 1;
    *out = '\0';
    int32_t slate = uom_GetSetType(catalogue, name);
    if (!slate_IsValid(catalogue, slate))
        return 1;
    SlatePath path;
    while (slate_Visit(path, slate)) {
        const UomSlate *record = slate_Record(catalogue, slate);
        char parentName[NAME_CUT];
        str_CopyBounded(parentName, sizeof parentName, record ? record->basedOn : nullptr);
        const int32_t parent = *parentName ? uom_GetSetType(catalogue, parentName) : NO_SLATE;
        if (parent > NO_SLATE && !slate_IsOnPath(path, parent)) {
            slate = parent;
            continue;
        }
        const UomSlate *root = parent > NO_SLATE ? slate_Record(catalogue, parent) : record;
        str_CopyBounded(parentName, sizeof parentName, root ? root->name : nullptr);
        copyText(out, length, parentName);
        return 0;
    }
    return 1;
}

int32_t uoms_IsSetDerivedFrom(const Catalogue &catalogue, const char *name, const char *ancestor) {
    if (str_IsEmpty(name) || str_IsEmpty(ancestor))
        return 0;
    int32_t slate = uom_GetSetType(catalogue, name);
    const int32_t wanted = uom_GetSetType(catalogue, ancestor);
    if (slate < 1 || wanted < 1)
        return 0;
    SlatePath path;
    while (slate > NO_SLATE && slate_Visit(path, slate)) {
        if (slate == wanted)
            return 1;
        const UomSlate *record = slate_Record(catalogue, slate);
        slate = record ? slate_Parent(catalogue, *record) : NO_SLATE;
    }
    return 0;
}

char *uoms_GetInheritedSetProperty(const Catalogue &catalogue, const char *property, const char *name, char *out,
                                   int32_t length) {
    if (!out || length < 1)
        return out;
    *out = '\0';
    if (!str_EqualNoCase(property, "GaugePresBasis"))
        return out;
    const UomSlate *stating = slate_FindUpward(catalogue, uom_GetSetType(catalogue, name), hasGaugeText);
    copyText(out, length, stating ? stating->gaugePresBasisText : nullptr);
    return out;
}

} // namespace uom
