// The text of a slate in three layouts: differences to the parent in pairs of elements (0), all classes in
// pairs (1), and lines "key=value" under a heading (2). The reader knows the layout by the first element.
//
// The gauge pressure basis goes out in pascals in the paired layouts and in kilopascals in the other, and
// comes in through one door that tells the two apart by size.
#include "slates/definition_text.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/custom_classes.h"
#include "slates/defaults.h"
#include "slates/properties.h"
#include "slates/registry.h"
#include "slates/text_conversion.h"
#include "support/memory.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"
#include "text/unit_text.h"

namespace uom {

namespace {

enum DefinitionFormat : int32_t { FORMAT_DIFFERENCES = 0, FORMAT_FULL = 1, FORMAT_SECTIONED = 2 };

constexpr size_t LINE_SIZE = 255;
constexpr size_t DEFAULT_SIZE = 256;
constexpr size_t TOKEN_SIZE = 64;
constexpr std::string_view NEW_CLASS_KEY = "NewClass";
constexpr const char *BASIS_KEY = "GaugePresBasis";

// A definition in the making.
struct DefinitionWriter {
    const Catalogue &catalogue;
    Running &running;
    UomTable *lines;
    int32_t format;
};

void addLine(DefinitionWriter &writer, const char *line, size_t size = LINE_SIZE) {
    char cut[DEFAULT_SIZE];
    str_CopyBounded(cut, size, line);
    table_PutText(writer.lines, TABLE_APPEND, cut);
}

void addKeyLine(DefinitionWriter &writer, const char *key, const char *value) {
    char line[LINE_SIZE];
    str_FormatBounded(line, sizeof line, "%s=%s", key, value);
    addLine(writer, line);
}

void writeFlags(DefinitionWriter &writer, const UomSlate &slate) {
    for (const char *flag : {"isSystem", "isHidden", "allowDelete", "allowModify"}) {
        char value[TOKEN_SIZE];
        if (uoms_GetSetProperty(writer.catalogue, slate.name, flag, sizeof value, value) == 0 && *value)
            addKeyLine(writer, flag, value);
    }
}

// In kilopascals and only where the slate has its own, or in pascals whatever the field holds.
void writeBasis(DefinitionWriter &writer, const UomSlate &slate) {
    char text[LINE_SIZE];
    if (writer.format == FORMAT_SECTIONED) {
        uoms_GetSetProperty(writer.catalogue, slate.name, BASIS_KEY, sizeof text, text);
        if (*text)
            addKeyLine(writer, BASIS_KEY, text);
        return;
    }
    double basis = slate.gaugePresBasis;
    uoms_ConvertArray(writer.catalogue, writer.running, &basis, 1, "Pres", "kPa", "Pa");
    num_FormatDouble(text, sizeof text, "%.10g", basis);
    addLine(writer, BASIS_KEY);
    addLine(writer, text);
}

void writeCustomClasses(DefinitionWriter &writer) {
    char line[LINE_SIZE];
    if (writer.catalogue.classes.count <= STATIC_CLASSES)
        return;
    str_FormatBounded(line, sizeof line, "NewClasses=%d", writer.catalogue.classes.count - STATIC_CLASSES);
    addLine(writer, line);
    for (int32_t c = STATIC_CLASSES; c < writer.catalogue.classes.count; ++c) {
        const UomClassRow *row = class_Row(writer.catalogue, c);
        if (!row)
            continue;
        str_FormatBounded(line, sizeof line, "NewClass%d=%s,%s", c - STATIC_CLASSES, row->token ? row->token : "",
                          row->definition ? row->definition : "");
        addLine(writer, line);
    }
}

// Whether the parent, when it is another slate, states the same.
bool isParentsDefault(const Catalogue &catalogue, int32_t slate, int32_t parent, int32_t classId, const char *value) {
    char inherited[DEFAULT_SIZE] = "";
    if (parent == slate || uom_GetClassDefault(catalogue, parent, classId, inherited, sizeof inherited) != 0)
        return false;
    return str_EqualNoCase(value, inherited);
}

void writeDefaults(DefinitionWriter &writer, int32_t slate, int32_t parent) {
    for (int32_t c = CLASS_DIMENSIONLESS; c < writer.catalogue.classes.count; ++c) {
        if (class_IsInternalBase(c))
            continue;
        char token[TOKEN_SIZE];
        char value[DEFAULT_SIZE];
        uom_GetClassText(writer.catalogue, c, token, sizeof token, STYLE_TOKEN);
        uom_GetClassDefault(writer.catalogue, slate, c, value, sizeof value);
        if (writer.format != FORMAT_FULL && (!*value || isParentsDefault(writer.catalogue, slate, parent, c, value)))
            continue;
        if (writer.format == FORMAT_SECTIONED) {
            addKeyLine(writer, token, value);
            continue;
        }
        addLine(writer, token);
        addLine(writer, value, sizeof value);
    }
}

void writeDefinition(DefinitionWriter &writer, int32_t index, const UomSlate &slate) {
    char heading[LINE_SIZE];
    if (writer.format == FORMAT_SECTIONED) {
        str_FormatBounded(heading, sizeof heading, "[%s]", slate.name ? slate.name : "");
        addLine(writer, heading);
        addKeyLine(writer, "BasedOn", slate.basedOn ? slate.basedOn : "");
        writeFlags(writer, slate);
        writeBasis(writer, slate);
        writeCustomClasses(writer);
    } else {
        addLine(writer, slate.basedOn ? slate.basedOn : "");
        writeBasis(writer, slate);
    }
    writeDefaults(writer, index, slate_Parent(writer.catalogue, slate));
}

// Cuts a text at the first mark; what stands behind it, or null.
char *cutAt(char *text, char mark) {
    char *place = text ? std::strchr(text, mark) : nullptr;
    if (!place)
        return nullptr;
    *place = '\0';
    return place + 1;
}

int32_t link(Catalogue &catalogue, Running &, const char *slateName, const char *, const char *value) {
    uoms_PutSetBasedOn(catalogue, slateName, value);
    return 0;
}

int32_t copyFrom(Catalogue &catalogue, Running &, const char *slateName, const char *, const char *value) {
    return uoms_CopySet(catalogue, slateName, value);
}

int32_t skip(Catalogue &, Running &, const char *, const char *, const char *) {
    return 0;
}

struct DefinitionKey {
    const char *key;
    int32_t (*apply)(Catalogue &catalogue, Running &running, const char *slateName, const char *key, const char *value);
};
const DefinitionKey definitionKeys[] = {
    {"NewClasses", skip},
    {"BasedOn", link},
    {"Parent", link},
    {"CopyFrom", copyFrom},
};

// "NewClass0=Name,definition". The key then goes the way of any other and fails, its message stays, kept.
// Without a comma there is no definition and the line does nothing.
int32_t applyNewClass(Catalogue &catalogue, Running &running, const char *slateName, const char *key, char *value) {
    const char *definition = cutAt(value, ',');
    if (!definition)
        return 0;
    const int32_t status = uoms_NewClass(catalogue, running, value, definition);
    return status == 11 ? status : uoms_SetClassDefault(catalogue, running, slateName, key, value);
}

} // namespace

int32_t definition_ApplyLine(Catalogue &catalogue, Running &running, const char *slateName, char *line,
                             ClassDefault &read) {
    if (!line)
        return 0;
    char *value = cutAt(line, '=');
    for (const DefinitionKey &entry : definitionKeys)
        if (str_EqualNoCase(line, entry.key))
            return entry.apply(catalogue, running, slateName, line, value);
    if (str_StartsNoCase(line, NEW_CLASS_KEY))
        return applyNewClass(catalogue, running, slateName, line, value);
    return default_SetText(catalogue, running, slateName, line, value, read);
}

UomTable *uoms_GetSetDefinition(const Catalogue &catalogue, Running &running, const char *name, int32_t format) {
    const int32_t index = uom_GetSetType(catalogue, name);
    const UomSlate *slate = index < 1 ? nullptr : slate_Record(catalogue, index);
    if (!slate)
        return nullptr;
    const MemoryWatch memory;
    DefinitionWriter writer = {catalogue, running, table_Create(0, TABLE_TEXT), format};
    if (!writer.lines)
        return nullptr;
    if (format >= FORMAT_DIFFERENCES && format <= FORMAT_SECTIONED)
        writeDefinition(writer, index, *slate);
    if (!memory.exhausted())
        return writer.lines;
    table_Free(writer.lines);
    return nullptr;
}

int32_t uoms_PutSetDefinition(Catalogue &catalogue, Running &running, const char *name, UomTable *lines) {
    if (!name || table_Count(lines) < 1 || lines->kind != TABLE_TEXT)
        return 1;
    const char *first = table_GetText(lines, 0);
    if (!first)
        first = "";
    const MemoryWatch memory;
    const bool heading = std::strchr(first, '[') != nullptr;
    if (heading || std::strchr(first, '=')) {
        ClassDefault read;
        for (uint32_t i = heading ? 1 : 0; i < lines->count; ++i)
            definition_ApplyLine(catalogue, running, name, table_GetText(lines, i), read);
        return memory.exhausted() ? 11 : 0;
    }
    uoms_InitializeSet(catalogue, name, first);
    for (uint32_t i = 1; i < lines->count; i += 2)
        uoms_SetClassDefault(catalogue, running, name, table_GetText(lines, i), table_GetText(lines, i + 1));
    return memory.exhausted() ? 11 : 0;
}

} // namespace uom
