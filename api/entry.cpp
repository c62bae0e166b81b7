// The exported functions for what people type.
#include "uom/entry.h"

#include "api/state.h"
#include "entry/entry.h"
#include "entry/search.h"

using uom::state_InUse;

int32_t uom_ReadEntry(const char *classString, const char *text, UomEntry *entry) {
    return uom::uom_ReadEntry(state_InUse(), classString, text, entry);
}

int32_t uom_NewConversionFromEntries(const char *classString, const char *from, const char *to, UomConversion **out,
                                     UomEntry *entry) {
    return uom::uom_NewConversionFromEntries(state_InUse(), classString, from, to, out, entry);
}

UomTable *uom_GetEntryClasses(const char *text) {
    return uom::uom_GetEntryClasses(state_InUse(), text);
}

UomTable *uom_Search(const char *words, int32_t most) {
    return uom::uom_Search(state_InUse(), words, most);
}

UomTable *uom_GetChoices(const char *classString) {
    return uom::uom_GetChoices(state_InUse(), classString);
}

UomTable *uom_GetAliases(void) {
    return uom::uom_GetAliases(state_InUse());
}

int32_t uom_ReadAliasText(const char *text, size_t length) {
    return uom::uom_ReadAliasText(state_InUse(), text, length);
}
