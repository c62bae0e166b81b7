// The text of one unit and of one class, in all styles.
#include "text/unit_text.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "support/table.h"
#include "support/text.h"
#include "text/styles.h"

namespace uom {

namespace {

constexpr int32_t OLD_NAME_SIZE = 64; // of the operations that take no size

// A "2" that is no power: in "in H2O", and between "P" and "C".
bool isPlainTwo(const char *token, size_t place) {
    if (token[place] != '2' || place == 0)
        return false;
    const char before = token[place - 1];
    const char behind = token[place + 1];
    return (before == 'H' && behind == 'O') || (str_Lower(before) == 'p' && str_Lower(behind) == 'c');
}

void writeSuper(TextWriter &writer, const char *token) {
    for (size_t i = 0; token[i]; ++i) {
        if (token[i] == '3')
            str_Write(writer, '\xB3');
        else if (token[i] == '2' && !isPlainTwo(token, i))
            str_Write(writer, '\xB2');
        else
            str_Write(writer, token[i]);
    }
}

void writeUpper(TextWriter &writer, const char *token) {
    for (const char *c = token; *c; ++c)
        str_Write(writer, str_Upper(*c));
}

// Every run of digits is a superscript; of a power of ten only what stands behind the "^".
void writeHtml(TextWriter &writer, const char *token) {
    bool inSuper = false;
    for (size_t i = 0; token[i] && writer.wanted < writer.size; ++i) {
        const bool digit = str_IsDigit(token[i]);
        if (inSuper && !digit) {
            str_Write(writer, "</SUP>");
            inSuper = false;
        }
        if (!inSuper && digit && !isPlainTwo(token, i)) {
            if (std::strncmp(token + i, "10^", 3) == 0) {
                str_Write(writer, "10");
                i += 3;
            }
            str_Write(writer, "<SUP>");
            inSuper = true;
            if (!token[i])
                break;
        }
        str_Write(writer, token[i]);
    }
    if (inSuper)
        str_Write(writer, "</SUP>");
}

void copyName(const Catalogue &catalogue, int32_t slate, char *out, int32_t size) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (out && size > 0)
        str_CopyBounded(out, static_cast<size_t>(size), record ? record->name : nullptr);
}

} // namespace

void uom_GetUnitText(const Catalogue &catalogue, int32_t unit, char *out, int32_t size, int32_t style) {
    if (!out || size < 1)
        return;
    std::memset(out, 0, static_cast<size_t>(size));
    const UomUnit *record = unit_Record(catalogue, unit);
    if (!record)
        return;
    style = style_Effective(catalogue, style);
    const char *text = style == STYLE_KEYWORD     ? record->keyword
                       : style == STYLE_LONG_NAME ? record->description
                                                  : record->token;
    if (!text)
        return;
    TextWriter writer(out, static_cast<size_t>(size));
    if (style == STYLE_TOKEN_SUPER)
        writeSuper(writer, text);
    else if (style == STYLE_TOKEN_UPPER)
        writeUpper(writer, text);
    else if (style == STYLE_HTML)
        writeHtml(writer, text);
    else
        str_Write(writer, text);
}

void uom_GetClassText(const Catalogue &catalogue, int32_t classId, char *out, int32_t size, int32_t style) {
    if (!out || size < 2)
        return;
    TextWriter writer(out, static_cast<size_t>(size));
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row)
        return;
    style = style_Effective(catalogue, style);
    const char *text = style == STYLE_KEYWORD ? row->keyword : style == STYLE_LONG_NAME ? row->name : row->token;
    if (!text)
        return;
    if (style == STYLE_TOKEN_UPPER)
        writeUpper(writer, text);
    else
        str_Write(writer, text);
}

UomTable *uom_GetClassList(const Catalogue &catalogue, int32_t style) {
    UomTable *list = table_Create(0, TABLE_TEXT);
    for (int32_t i = 0; list && i < catalogue.classes.count; ++i) {
        if (class_IsInternalBase(i))
            continue;
        char text[80];
        uom_GetClassText(catalogue, i, text, sizeof text, style);
        if (*text && !table_PutText(list, TABLE_APPEND, text)) {
            table_Free(list);
            return nullptr;
        }
    }
    return list;
}

char *uom_GetBaseName(const Catalogue &catalogue, int32_t slate, char *out) {
    platform_Debug("COREKIT.DLL: call to deprecated function uom_GetBaseName.\n");
    copyName(catalogue, slate, out, OLD_NAME_SIZE);
    return out;
}

char *uom_GetBaseName2(const Catalogue &catalogue, int32_t slate, char *out, int32_t size) {
    copyName(catalogue, slate, out, size);
    return out;
}

} // namespace uom
