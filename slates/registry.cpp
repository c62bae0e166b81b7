#include "slates/registry.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/platform.h"
#include "catalogue/slate_table.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "support/scoped.h"
#include "support/table.h"
#include "support/text.h"

namespace {

constexpr int32_t OLD_NAME_SIZE = 64; // of the operations that take no size
constexpr size_t NAME_CUT = 65;       // bytes of a parent's name on the walk to the root

void freeSlate(UomSlate *slate) {
    mem_Free(slate->name);
    mem_Free(slate->basedOn);
    mem_Free(slate->gaugePresBasisText);
    tbl_Free(slate->classDefaults);
    for (uint32_t i = 0; i < tbl_Count(slate->compositeDefaults); ++i)
        tbl_Free(tbl_Record<UomTable>(slate->compositeDefaults, i));
    tbl_Free(slate->compositeDefaults);
    mem_Free(slate);
}

// A slate based on itself that states nothing; null when memory is exhausted.
UomSlate *makeSlate(const char *name) {
    UomSlate *slate = mem_New<UomSlate>();
    if (!slate)
        return nullptr;
    slate->gaugePresBasis = STANDARD_ATMOSPHERE;
    slate->allowDelete = slate->allowModify = 1;
    const uint32_t classes = static_cast<uint32_t>(uomClassCount);
    const bool named = mem_DupText(&slate->name, name) == 0 && mem_DupText(&slate->basedOn, name) == 0;
    slate->classDefaults = tbl_Create(classes, TABLE_INT64);
    slate->compositeDefaults = tbl_Create(classes, TABLE_INT64);
    if (named && slate->classDefaults && slate->compositeDefaults)
        return slate;
    freeSlate(slate);
    return nullptr;
}

void refreshSlateCount() {
    UOM_SET_MAX = uom_GetSetCount();
}

void copyText(char *out, int32_t length, const char *text) {
    if (out && length > 0)
        str_CopyBounded(out, static_cast<size_t>(length), text);
}

char *copyBasedOn(int32_t slate, char *out, int32_t length) {
    const UomSlate *record = slate_Record(slate);
    copyText(out, length, record ? record->basedOn : nullptr);
    return out;
}

// The root system from which Current descends: SI when it descends from none.
void refreshCurrentRoot() {
    uomCurrentSet = UOM_SET_SI;
    const UomSlate *slate = slate_Record(UOM_SET_CURRENT);
    for (int32_t steps = 0; slate && steps <= uom_GetSetCount(); ++steps) {
        if (str_IsEmpty(slate->basedOn))
            return;
        const int32_t parent = slate_Parent(*slate);
        if (!slate_IsValid(parent))
            return;
        if (slate_IsRootSystem(parent)) {
            uomCurrentSet = parent;
            return;
        }
        if (str_EqualNoCase(slate->name, slate->basedOn))
            return;
        slate = slate_Record(parent);
    }
}

// Copies what the source states for the compiled classes, what it leaves open included. Made ready before the
// destination changes, so that exhausted memory leaves it whole.
bool copyDefaults(UomSlate *destination, const UomSlate *source) {
    UomTable *copies[STATIC_CLASSES] = {};
    bool ready = tbl_Count(destination->classDefaults) >= 2 * STATIC_CLASSES ||
                 tbl_Resize(destination->classDefaults, 2 * STATIC_CLASSES);
    ready = ready && (tbl_Count(destination->compositeDefaults) >= STATIC_CLASSES ||
                      tbl_Resize(destination->compositeDefaults, STATIC_CLASSES));
    for (uint32_t c = 0; ready && c < STATIC_CLASSES; ++c) {
        const UomTable *stated = tbl_Record<UomTable>(source->compositeDefaults, c);
        copies[c] = tbl_Copy(stated);
        ready = !stated || copies[c];
    }
    for (uint32_t c = 0; c < STATIC_CLASSES; ++c) {
        if (!ready) {
            tbl_Free(copies[c]);
            continue;
        }
        tbl_PutNumber(destination->classDefaults, 2 * c, tbl_Get(source->classDefaults, 2 * c));
        tbl_PutNumber(destination->classDefaults, 2 * c + 1, tbl_Get(source->classDefaults, 2 * c + 1));
        tbl_Free(tbl_Record<UomTable>(destination->compositeDefaults, c));
        tbl_PutRecord(destination->compositeDefaults, c, copies[c]);
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

bool slate_IsRootSystem(int32_t slate) {
    return slate == UOM_SET_ENGLISH || slate == UOM_SET_METRIC || slate == UOM_SET_SI;
}

int32_t uoms_NewSet(const char *name) {
    if (!name)
        return -1;
    const int32_t existing = uom_GetSetType(name);
    if (existing >= 0)
        return existing;
    if (!uomSlateTable)
        uomSlateTable = tbl_Create(0, TABLE_INT64);
    UomSlate *slate = uomSlateTable ? makeSlate(name) : nullptr;
    if (!slate)
        return -1;
    if (!tbl_PutRecord(uomSlateTable, TABLE_APPEND, slate)) {
        freeSlate(slate);
        return -1;
    }
    refreshSlateCount();
    slate_IndexLast();
    return UOM_SET_MAX - 1;
}

int32_t uoms_NewSetBasedOn(const char *name, const char *parent) {
    const int32_t slate = uoms_NewSet(name);
    uoms_PutSetBasedOn(name, parent);
    return slate < 0;
}

int32_t uom_CheckDupSetName(const char *name) {
    for (int32_t i = 0; name && i < uom_GetSetCount(); ++i) {
        const UomSlate *slate = slate_AnyRecord(i);
        if (slate && !str_IsEmpty(slate->name) && std::strcmp(slate->name, name) == 0)
            return 1;
    }
    return 0;
}

UomTable *uom_GetSetList(void) {
    UomTable *list = tbl_Create(0, TABLE_TEXT);
    for (int32_t i = 0; list && i < uom_GetSetCount(); ++i) {
        const UomSlate *slate = slate_AnyRecord(i);
        if (!tbl_PutText(list, TABLE_APPEND, slate && slate->name ? slate->name : "")) {
            tbl_Free(list);
            return nullptr;
        }
    }
    return list;
}

int32_t uoms_IsSetValid(const char *name) {
    return uom_GetSetType(name) >= 1;
}

int32_t uom_GetCurrentSet(void) {
    return uomCurrentSet;
}

int32_t uom_InitializeSet(int32_t destination, int32_t source) {
    UomSlate *to = slate_Record(destination);
    const UomSlate *from = slate_Record(source);
    if (!to || !from || destination == source)
        return 1;
    char *parent = nullptr;
    const bool keepsParent = slate_IsRootSystem(destination);
    if ((!keepsParent && mem_DupText(&parent, from->name) != 0) || !copyDefaults(to, from)) {
        mem_Free(parent);
        return 11;
    }
    if (!keepsParent) {
        mem_Free(to->basedOn);
        to->basedOn = parent;
    }
    if (destination == UOM_SET_CURRENT)
        refreshCurrentRoot();
    uom_SetGaugePressureBasis(UOM_SET_CURRENT);
    return 0;
}

int32_t uom_InitializeCurrentSet(int32_t source) {
    return uom_InitializeSet(UOM_SET_CURRENT, source);
}

int32_t uoms_InitializeSet(const char *destination, const char *source) {
    return uom_InitializeSet(uom_GetSetType(destination), uom_GetSetType(source));
}

int32_t uoms_CopySet(const char *destination, const char *source) {
    return uoms_InitializeSet(destination, source);
}

int32_t uom_DeleteSet(int32_t slate) {
    const bool exists = slate >= 0 && slate < uom_GetSetCount();
    if (exists) {
        const bool last = slate + 1 == uom_GetSetCount();
        if (last)
            slate_UnindexLast();
        if (UomSlate *record = slate_AnyRecord(slate))
            freeSlate(record);
        tbl_Remove(uomSlateTable, static_cast<uint32_t>(slate), 1);
        if (!last || uom_GetSetCount() == 0)
            slate_IndexNames();
    }
    refreshSlateCount();
    return exists ? 0 : 1;
}

int32_t uoms_DeleteSet(const char *name) {
    return uom_DeleteSet(uom_GetSetType(name));
}

void uoms_RenameSet(const char *oldName, const char *newName) {
    UomSlate *slate = slate_AnyRecord(uom_GetSetType(oldName));
    if (!slate || !newName || uom_CheckDupSetName(newName) || mem_ExchangeText(&slate->name, newName) != 0)
        return;
    slate_IndexNames();
}

int32_t uoms_ClearSet(const char *name) {
    if (uom_GetSetType(name) < 1)
        return 1;
    const MemoryWatch memory;
    const int32_t style = defaultScanClassStyle < STYLE_TOKEN ? defaultDisplayStyle : defaultScanClassStyle;
    for (int32_t c = 0; c < uomClassCount; ++c) {
        char upper[64];
        const UomClassRow *row = class_Row(c);
        uoms_SetClassDefault(name, row ? styledName(*row, style, upper, sizeof upper) : nullptr, "");
    }
    return memory.exhausted() ? 11 : 0;
}

int32_t uoms_PutSetBasedOn(const char *name, const char *parent) {
    const int32_t slate = uom_GetSetType(name);
    UomSlate *record = slate_AnyRecord(slate);
    if (!record)
        return -1;
    if (slate_IsRootSystem(slate))
        return slate;
    return mem_ExchangeText(&record->basedOn, parent) == 0 ? slate : -1;
}

char *uom_GetSetBasedOn(int32_t slate, char *out) {
    platform_Debug("COREKIT.DLL: call to deprecated function uom_GetSetBasedOn.\n");
    return copyBasedOn(slate, out, OLD_NAME_SIZE);
}

char *uom_GetSetBasedOn2(int32_t slate, char *out, int32_t length) {
    return copyBasedOn(slate, out, length);
}

char *uoms_GetSetBasedOn(const char *name, char *out) {
    platform_Debug("COREKIT.DLL: call to deprecated function uoms_GetSetBasedOn.\n");
    return copyBasedOn(uom_GetSetType(name), out, OLD_NAME_SIZE);
}

char *uoms_GetSetBasedOn2(const char *name, char *out, int32_t length) {
    return copyBasedOn(uom_GetSetType(name), out, length);
}

int32_t uoms_GetSetParent(const char *name, int32_t length, char *out) {
    if (!out || length < 1)
        return 1;
    copyBasedOn(uom_GetSetType(name), out, length);
    return 0;
}

int32_t uoms_GetSetRoot(const char *name, int32_t length, char *out) {
    if (!out || length < 1)
        return 1;
    *out = '\0';
    int32_t slate = uom_GetSetType(name);
    if (!slate_IsValid(slate))
        return 1;
    SlatePath path;
    while (slate_Visit(path, slate)) {
        const UomSlate *record = slate_Record(slate);
        char parentName[NAME_CUT];
        str_CopyBounded(parentName, sizeof parentName, record ? record->basedOn : nullptr);
        const int32_t parent = *parentName ? uom_GetSetType(parentName) : UOM_SET_NULL;
        if (parent > UOM_SET_NULL && !slate_IsOnPath(path, parent)) {
            slate = parent;
            continue;
        }
        const UomSlate *root = parent > UOM_SET_NULL ? slate_Record(parent) : record;
        str_CopyBounded(parentName, sizeof parentName, root ? root->name : nullptr);
        copyText(out, length, parentName);
        return 0;
    }
    return 1;
}

int32_t uoms_IsSetDerivedFrom(const char *name, const char *ancestor) {
    if (str_IsEmpty(name) || str_IsEmpty(ancestor))
        return 0;
    int32_t slate = uom_GetSetType(name);
    const int32_t wanted = uom_GetSetType(ancestor);
    if (slate < 1 || wanted < 1)
        return 0;
    SlatePath path;
    while (slate > UOM_SET_NULL && slate_Visit(path, slate)) {
        if (slate == wanted)
            return 1;
        const UomSlate *record = slate_Record(slate);
        slate = record ? slate_Parent(*record) : UOM_SET_NULL;
    }
    return 0;
}

char *uoms_GetInheritedSetProperty(const char *property, const char *name, char *out, int32_t length) {
    if (!out || length < 1)
        return out;
    *out = '\0';
    if (!str_EqualNoCase(property, "GaugePresBasis"))
        return out;
    const UomSlate *stating = slate_FindUpward(uom_GetSetType(name), hasGaugeText);
    copyText(out, length, stating ? stating->gaugePresBasisText : nullptr);
    return out;
}
