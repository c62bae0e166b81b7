// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "catalogue/catalogue.h"
#include "catalogue/slate_table.h"
#include "slates/defaults.h"
#include "slates/definition_text.h"
#include "slates/registry.h"
#include "text/unit_text.h"
#include "uom/uom.h"

using uom::Catalogue;
using uom::Scratch;
using uom::state_InUse;
using uom::state_Mirror;
using uom::state_Scratch;

int32_t uoms_NewSet(const char *name) {
    Catalogue &catalogue = state_InUse();
    const int32_t result = uom::uoms_NewSet(catalogue, name);
    state_Mirror(catalogue);
    return result;
}

int32_t uom_GetSetType(const char *name) {
    return uom::uom_GetSetType(state_InUse(), name);
}

int32_t uom_CheckDupSetName(const char *name) {
    return uom::uom_CheckDupSetName(state_InUse(), name);
}

UomTable *uom_GetSetList(void) {
    return uom::uom_GetSetList(state_InUse());
}

int32_t uom_GetCurrentSet(void) {
    return uom::uom_GetCurrentSet(state_InUse());
}

int32_t uom_InitializeSet(int32_t destination, int32_t source) {
    return uom::uom_InitializeSet(state_InUse(), destination, source);
}

int32_t uom_InitializeCurrentSet(int32_t source) {
    return uom::uom_InitializeCurrentSet(state_InUse(), source);
}

int32_t uoms_InitializeSet(const char *destination, const char *source) {
    return uom::uoms_InitializeSet(state_InUse(), destination, source);
}

int32_t uoms_CopySet(const char *destination, const char *source) {
    return uom::uoms_CopySet(state_InUse(), destination, source);
}

int32_t uom_DeleteSet(int32_t slate) {
    Catalogue &catalogue = state_InUse();
    const int32_t result = uom::uom_DeleteSet(catalogue, slate);
    state_Mirror(catalogue);
    return result;
}

int32_t uoms_DeleteSet(const char *name) {
    Catalogue &catalogue = state_InUse();
    const int32_t result = uom::uoms_DeleteSet(catalogue, name);
    state_Mirror(catalogue);
    return result;
}

void uoms_RenameSet(const char *oldName, const char *newName) {
    uom::uoms_RenameSet(state_InUse(), oldName, newName);
}

int32_t uoms_ClearSet(const char *name) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_ClearSet(state_InUse(scratch), scratch.running, name);
}

int32_t uoms_PutSetBasedOn(const char *name, const char *parent) {
    return uom::uoms_PutSetBasedOn(state_InUse(), name, parent);
}

char *uom_GetSetBasedOn2(int32_t slate, char *out, int32_t length) {
    return uom::uom_GetSetBasedOn2(state_InUse(), slate, out, length);
}

char *uoms_GetSetBasedOn2(const char *name, char *out, int32_t length) {
    return uom::uoms_GetSetBasedOn2(state_InUse(), name, out, length);
}

char *uom_GetSetBasedOn(int32_t slate, char *out) {
    return uom::uom_GetSetBasedOn(state_InUse(), slate, out);
}

char *uoms_GetSetBasedOn(const char *name, char *out) {
    return uom::uoms_GetSetBasedOn(state_InUse(), name, out);
}

char *uom_GetBaseName2(int32_t slate, char *out, int32_t size) {
    return uom::uom_GetBaseName2(state_InUse(), slate, out, size);
}

char *uom_GetBaseName(int32_t slate, char *out) {
    return uom::uom_GetBaseName(state_InUse(), slate, out);
}

int32_t uom_SetClassDefault(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    Scratch &scratch = state_Scratch();
    return uom::uom_SetClassDefault(state_InUse(scratch), scratch.running, slate, classId, units, multipliers);
}

int32_t uoms_SetClassDefault(const char *slateName, const char *className, const char *value) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_SetClassDefault(state_InUse(scratch), scratch.running, slateName, className, value);
}

int32_t uom_GetClassDefault(int32_t slate, int32_t classId, char *out, int32_t length) {
    return uom::uom_GetClassDefault(state_InUse(), slate, classId, out, length);
}

int32_t uoms_GetClassDefault(const char *slateName, const char *className, char *out, int32_t length) {
    return uom::uoms_GetClassDefault(state_InUse(), slateName, className, out, length);
}

UomTable *uoms_GetSetDefinition(const char *name, int32_t format) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_GetSetDefinition(state_InUse(scratch), scratch.running, name, format);
}

int32_t uoms_PutSetDefinition(const char *name, UomTable *lines) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_PutSetDefinition(state_InUse(scratch), scratch.running, name, lines);
}
