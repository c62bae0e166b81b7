// A custom class takes the next free number behind the compiled rows and lives in the class table and in
// every slate like a compiled one. It is a copy of a compiled base class under a new name, or a composite of
// up to three classes.
#include "slates/custom_classes.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "slates/defaults.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/table.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

enum ClassStatus : int32_t {
    CLASS_DONE = UOM_DONE,
    CLASS_BAD_ARGUMENT = UOM_NEW_CLASS_BAD_ARGUMENT,
    CLASS_EXISTS = UOM_NEW_CLASS_EXISTS,
    CLASS_BAD_DEFINITION = UOM_NEW_CLASS_BAD_DEFINITION,
    CLASS_TOO_MANY = UOM_NEW_CLASS_TOO_MANY,
    CLASS_NO_MEMORY = UOM_NO_MEMORY
};

// The first that can be deleted: number 71 stays, kept.
constexpr int32_t FIRST_DELETABLE = STATIC_CLASSES + 1;

// The compiled row of which a definition makes a copy, null when the definition is a class string.
const UomClassRow *copiedRow(const Catalogue &catalogue, int32_t definitionClass) {
    if (definitionClass < 1 || definitionClass >= STATIC_CLASSES)
        return nullptr;
    const UomClassRow *row = &catalogue.classes.compiled[definitionClass];
    return (row->kind & CLASS_BASE) != 0 ? row : nullptr;
}

void setComponents(UomClassRow *row, UomStruct chain) {
    row->allowExponent = 1;
    row->kind = CLASS_COMPOSITE;
    for (int32_t i = 0; chain && i < COMPOSITE_SLOTS; chain = chain->next, ++i) {
        row->baseClass[i] = chain->baseClass;
        row->baseExponent[i] = chain->baseExponent;
    }
}

// Gives the row its own texts and lists. False when memory is exhausted; the row can then be freed as it is.
bool completeRow(const Catalogue &catalogue, UomClassRow *row, const char *name, const char *definition,
                 const UomClassRow *listsOf) {
    row->index = catalogue.classes.count;
    row->kind = (row->kind & ~CLASS_SYSTEM) | CLASS_CUSTOM;
    row->name = row->token = row->keyword = nullptr;
    row->definition = row->listName = row->note = nullptr;
    row->uomList = row->uomChoices = nullptr;
    row->starts = nullptr;
    const bool named = mem_ExchangeText(&row->name, name) == 0 && mem_ExchangeText(&row->token, name) == 0 &&
                       mem_ExchangeText(&row->definition, definition) == 0;
    if (!named || !listsOf)
        return named;
    if (unit_CopyList(&row->uomList, listsOf->uomList) != 0 ||
        unit_CopyList(&row->uomChoices, listsOf->uomChoices) != 0)
        return false;
    unit_IndexList(catalogue, row);
    return true;
}

// The new class starts in each slate with what that slate itself states for the class it is defined from.
void inheritDefaults(Catalogue &catalogue, Running &running, const char *name, const char *definition) {
    for (int32_t slate = NO_SLATE + 1; slate < uom_GetSetCount(catalogue); ++slate) {
        const UomSlate *record = slate_Record(catalogue, slate);
        char value[64] = "";
        if (!record)
            continue;
        uoms_GetClassDefault(catalogue, record->name, definition, value, sizeof value);
        uoms_SetClassDefault(catalogue, running, record->name, name, value);
    }
}

int32_t addRow(Catalogue &catalogue, const char *name, const char *definition, int32_t definitionClass,
               UomStruct chain) {
    UomClassRow *row = mem_New<UomClassRow>();
    if (!row)
        return CLASS_NO_MEMORY;
    if (const UomClassRow *copied = copiedRow(catalogue, definitionClass))
        *row = *copied;
    else
        setComponents(row, chain);
    const UomClassRow *listsOf = class_ValidRow(catalogue, definitionClass);
    if (!completeRow(catalogue, row, name, definition, listsOf) ||
        !table_PutRecord(catalogue.classes.rows, static_cast<uint32_t>(catalogue.classes.count), row)) {
        class_FreeRow(row);
        return CLASS_NO_MEMORY;
    }
    ++catalogue.classes.count;
    class_IndexLastRow(catalogue);
    return CLASS_DONE;
}

int32_t noMemory(const char *name) {
    error_Set("UOM class \"%s\" was not created: memory is exhausted.", name);
    return CLASS_NO_MEMORY;
}

// The row of a class by its token, compiled rows included.
UomClassRow *tokenRow(Catalogue &catalogue, const char *className) {
    return class_ValidRow(catalogue, class_Find(catalogue, className, STYLE_TOKEN));
}

int32_t putText(Catalogue &catalogue, const char *className, const char *text, const char *UomClassRow::*field) {
    UomClassRow *row = tokenRow(catalogue, className);
    if (!row)
        return CLASS_BAD_ARGUMENT;
    const char *value = str_IsEmpty(text) ? nullptr : text;
    return mem_ExchangeText(&(row->*field), value);
}

// Takes the class out of a slate; the pairs of later classes move down.
void forgetInSlate(Catalogue &catalogue, int32_t slate, int32_t classId) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record)
        return;
    const uint32_t place = static_cast<uint32_t>(classId);
    table_Remove(record->classDefaults, 2 * place, 1);
    table_Remove(record->classDefaults, 2 * place, 1);
    table_Free(table_Record<UomTable>(record->compositeDefaults, classId));
    table_Remove(record->compositeDefaults, place, 1);
}

// Whether a custom class is made of this one.
bool isComponent(const Catalogue &catalogue, int32_t classId) {
    for (int32_t i = STATIC_CLASSES; i < catalogue.classes.count; ++i) {
        const UomClassRow *row = class_Row(catalogue, i);
        if (row && std::find(std::begin(row->baseClass), std::end(row->baseClass), classId) != std::end(row->baseClass))
            return true;
    }
    return false;
}

// The components of custom classes keep their classes when one in front of those is gone.
void renumberComponents(Catalogue &catalogue, int32_t gone) {
    for (int32_t i = STATIC_CLASSES; i < catalogue.classes.count; ++i)
        if (UomClassRow *row = class_Row(catalogue, i))
            for (int32_t &component : row->baseClass)
                component -= component > gone;
}

// Takes a custom class out of the slates and the table.
void removeClass(Catalogue &catalogue, int32_t classId) {
    assert(classId >= STATIC_CLASSES && classId < catalogue.classes.count);
    for (int32_t slate = NO_SLATE + 1; slate < uom_GetSetCount(catalogue); ++slate)
        forgetInSlate(catalogue, slate, classId);
    const bool last = classId + 1 == catalogue.classes.count;
    if (last)
        class_UnindexLastRow(catalogue);
    class_FreeRow(class_Row(catalogue, classId));
    table_Remove(catalogue.classes.rows, static_cast<uint32_t>(classId), 1);
    --catalogue.classes.count;
    if (last)
        return;
    renumberComponents(catalogue, classId);
    class_IndexTexts(catalogue);
}

} // namespace

void class_FreeRow(UomClassRow *row) {
    if (!row)
        return;
    for (const char *text : {row->name, row->token, row->keyword, row->definition, row->listName, row->note})
        mem_Free(text);
    if (row->uomChoices != row->uomList)
        mem_Free(row->uomChoices);
    mem_Free(row->uomList);
    mem_Free(row->starts);
    mem_Free(row);
}

int32_t uoms_NewClass(Catalogue &catalogue, Running &running, const char *name, const char *definition) {
    error_Clear();
    if (!name || !definition) {
        error_Set("Missing arguments to uoms_NewClass().");
        return CLASS_BAD_ARGUMENT;
    }
    if (class_Find(catalogue, name, STYLE_TOKEN) != CLASS_NONE) {
        error_Set("UOM class \"%s\" already exists. New class was not created.", name);
        return CLASS_EXISTS;
    }
    const MemoryWatch memory;
    const int32_t definitionClass = class_Find(catalogue, definition, STYLE_TOKEN);
    const bool copies = copiedRow(catalogue, definitionClass) != nullptr;
    ParsedChain chain(catalogue, copies ? nullptr : definition);
    if (memory.exhausted())
        return noMemory(name);
    if (!copies && !chain.chain) {
        error_Set("UOM class \"%s\" not recognized or does not exist. New class was not created.", definition);
        return CLASS_BAD_DEFINITION;
    }
    if (chain_Length(chain.chain) > COMPOSITE_SLOTS) {
        error_Set("UOM class \"%s\" contains more than %d base classes. New class was not created.", name,
                  COMPOSITE_SLOTS);
        return CLASS_TOO_MANY;
    }
    if (addRow(catalogue, name, definition, definitionClass, chain.chain) != CLASS_DONE)
        return noMemory(name);
    inheritDefaults(catalogue, running, name, definition);
    if (!memory.exhausted())
        return CLASS_DONE;
    removeClass(catalogue, catalogue.classes.count - 1);
    return noMemory(name);
}

int32_t uoms_DeleteClass(Catalogue &catalogue, Running &running, const char *name) {
    if (!name)
        return CLASS_BAD_ARGUMENT;
    const int32_t classId = class_Find(catalogue, name, STYLE_TOKEN);
    if (classId < FIRST_DELETABLE || isComponent(catalogue, classId))
        return CLASS_EXISTS;
    const MemoryWatch memory;
    const int32_t oldCount = catalogue.classes.count;
    for (int32_t slate = NO_SLATE + 1; slate < uom_GetSetCount(catalogue); ++slate)
        if (const UomSlate *record = slate_Record(catalogue, slate))
            uoms_SetClassDefault(catalogue, running, record->name, name, "");
    removeClass(catalogue, classId);
    // The field no longer tells the place of the row, kept: readers of class numbers go by the place.
    for (int32_t i = classId; i < catalogue.classes.count; ++i)
        if (UomClassRow *later = class_Row(catalogue, i))
            later->index = oldCount;
    return memory.exhausted() ? CLASS_NO_MEMORY : CLASS_DONE;
}

int32_t uoms_PutClassText(Catalogue &catalogue, const char *classText, const char *newText, int32_t style) {
    if (str_IsEmpty(classText) || str_IsEmpty(newText))
        return 1;
    const int32_t classId = class_Find(catalogue, classText, catalogue.styles.scanClass);
    UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row)
        return 2;
    if (classId < STATIC_CLASSES)
        return 3;
    if (style == STYLE_KEYWORD)
        return mem_ExchangeText(&row->keyword, newText);
    if (style == STYLE_LONG_NAME)
        return class_SetName(catalogue, classId, newText);
    return 4;
}

int32_t uoms_PutClassListName(Catalogue &catalogue, const char *className, const char *text) {
    return putText(catalogue, className, text, &UomClassRow::listName);
}

int32_t uoms_PutClassNote(Catalogue &catalogue, const char *className, const char *text) {
    return putText(catalogue, className, text, &UomClassRow::note);
}

bool uoms_IsClassComposite(const Catalogue &catalogue, const char *className) {
    const UomClassRow *row = class_ValidRow(catalogue, class_Find(catalogue, className, STYLE_TOKEN));
    return row && class_IsComposite(*row);
}

} // namespace uom
