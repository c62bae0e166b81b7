// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "slates/custom_classes.h"
#include "slates/lists.h"
#include "text/styles.h"
#include "text/unit_text.h"
#include "uom/uom.h"

using uom::Scratch;
using uom::state_InUse;
using uom::state_Scratch;

int32_t uom_GetClassType(const char *text, int32_t mode) {
    return uom::uom_GetClassType(state_InUse(), text, mode);
}

int32_t uom_GetUOMClassCount(void) {
    return uom::uom_GetUOMClassCount(state_InUse());
}

UomTable *uom_GetClassList(int32_t style) {
    return uom::uom_GetClassList(state_InUse(), style);
}

void uom_GetClassGUIWidths(int32_t classId, int32_t *width1, int32_t *width2) {
    uom::uom_GetClassGUIWidths(state_InUse(), classId, width1, width2);
}

int32_t uom_IsClassBase(int32_t classId) {
    return uom::uom_IsClassBase(state_InUse(), classId);
}

int32_t uom_IsClassBasis(int32_t classId) {
    return uom::class_IsBasis(classId);
}

void uom_GetClassText(int32_t classId, char *out, int32_t size, int32_t style) {
    uom::uom_GetClassText(state_InUse(), classId, out, size, style);
}

int32_t uom_GetClassTextLen(int32_t classId) {
    return uom::uom_GetClassTextLen(state_InUse(), classId);
}

int32_t uom_GetUnitType(const char *text) {
    return uom::uom_GetUnitType(state_InUse(), text);
}

int32_t uom_GetUnitFromString(int32_t classId, char *text, int32_t mode) {
    return uom::uom_GetUnitFromString(state_InUse(), classId, text, mode);
}

UomTable *uom_GetUnitList(int32_t classId) {
    return uom::uom_GetUnitList(state_InUse(), classId);
}

int32_t uom_GetUnitIndices(int32_t classId, int32_t *units, int32_t n) {
    return uom::uom_GetUnitIndices(state_InUse(), classId, units, n);
}

int32_t uom_GetUnitListIndex(int32_t classId, int32_t unit) {
    return uom::uom_GetUnitListIndex(state_InUse(), classId, unit);
}

int32_t uom_GetUnitMax(int32_t classId) {
    return uom::uom_GetUnitMax(state_InUse(), classId);
}

void uom_GetUnitText(int32_t unit, char *out, int32_t size, int32_t style) {
    uom::uom_GetUnitText(state_InUse(), unit, out, size, style);
}

int32_t uom_GetUnitTextLen(int32_t unit) {
    return uom::uom_GetUnitTextLen(state_InUse(), unit);
}

void uom_GetUnitDescription(int32_t unit, char *out, int32_t size) {
    uom::uom_GetUnitDescription(state_InUse(), unit, out, size);
}

int32_t uom_GetConvConstants(int32_t unit, double *offset, double *factor) {
    return uom::uom_GetConvConstants(state_InUse(), unit, offset, factor);
}

int32_t uom_SetConvConstants(int32_t unit, double offset, double factor) {
    return uom::uom_SetConvConstants(state_InUse(), unit, offset, factor);
}

int32_t uom_SetDefaultDisplayStyle(int32_t style) {
    return uom::uom_SetDefaultDisplayStyle(state_InUse(), style);
}

int32_t uom_GetDefaultDisplayStyle(void) {
    return uom::uom_GetDefaultDisplayStyle(state_InUse());
}

void uom_SetAllowUOMMultipliers(int32_t allow) {
    uom::uom_SetAllowUOMMultipliers(state_InUse(), allow);
}

int32_t uom_GetAllowUOMMultipliers(void) {
    return uom::uom_GetAllowUOMMultipliers(state_InUse());
}

int32_t uoms_NewClass(const char *name, const char *definition) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_NewClass(state_InUse(scratch), scratch.running, name, definition);
}

int32_t uoms_DeleteClass(const char *name) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_DeleteClass(state_InUse(scratch), scratch.running, name);
}

int32_t uoms_PutClassText(const char *classText, const char *newText, int32_t style) {
    return uom::uoms_PutClassText(state_InUse(), classText, newText, style);
}

int32_t uoms_SetUOMChoices(const char *classText, const UomTable *tokens) {
    return uom::uoms_SetUOMChoices(state_InUse(), classText, tokens);
}

int32_t uom_SetUOMChoices(int32_t classId, const int32_t *units) {
    return uom::uom_SetUOMChoices(state_InUse(), classId, units);
}

int32_t uom_LoadApplicationList(UomStruct chain) {
    return uom::uom_LoadApplicationList(state_InUse(), chain);
}

int32_t uom_LoadNormalList(UomStruct chain) {
    return uom::uom_LoadNormalList(state_InUse(), chain);
}
