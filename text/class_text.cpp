// uom_BuildClassString, the reverse of uoms_New, and what is printed with it. A "/" stands at each change of
// sign, a leading one with a "1" in front, so that the text reads back to the same chain.
#include "text/class_text.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"
#include "support/text_array.h"
#include "text/styles.h"
#include "text/unit_text.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

constexpr int32_t MAX_GROUPS = 32; // deeper ones restore a sign of +1
constexpr size_t NAME_SIZE = 256;

struct ClassPrinter {
    const Catalogue &catalogue;
    TextWriter writer;
    int32_t style;
    ClosingNodes closings;
    bool atStart = true;
    int32_t lastExponent = 1;
    int32_t saved[MAX_GROUPS] = {};
    int32_t depth = 0;
    bool endsInBlank = false; // of what was written so far
};

void write(ClassPrinter &printer, std::string_view piece) {
    str_Write(printer.writer, piece);
    printer.endsInBlank = !piece.empty() && piece.back() == ' ';
}

// Takes back the blank that was written last.
void dropBlank(ClassPrinter &printer) {
    if (!printer.endsInBlank)
        return;
    --printer.writer.wanted;
    if (printer.writer.wanted < printer.writer.size)
        printer.writer.out[printer.writer.wanted] = '\0';
    printer.endsInBlank = false;
}

void writeSign(ClassPrinter &printer, int32_t exponent) {
    if (int64_t{exponent} * printer.lastExponent >= 0)
        return;
    printer.lastExponent = exponent;
    write(printer, printer.atStart ? "1 / " : "/ ");
}

void printOpen(ClassPrinter &printer, UomStruct node) {
    const UomStructNode *close = printer.closings.take(node);
    writeSign(printer, close ? close->exponent : 1);
    if (printer.depth < MAX_GROUPS)
        printer.saved[printer.depth] = printer.lastExponent;
    ++printer.depth;
    write(printer, "(");
    printer.atStart = true;
    printer.lastExponent = 1;
}

void printClose(ClassPrinter &printer, const UomStructNode *node) {
    const int64_t power = num_Magnitude(node->exponent);
    char piece[32] = ") ";
    if (power > 1)
        str_FormatBounded(piece, sizeof piece, ")%lld ", static_cast<long long>(power));
    dropBlank(printer);
    write(printer, piece);
    printer.lastExponent = 1;
    if (printer.depth > 0 && printer.depth-- <= MAX_GROUPS)
        printer.lastExponent = printer.saved[printer.depth];
    printer.atStart = false;
}

// "(Mass)" directly behind a class with a basis, which reads back as its basis.
void printBasis(ClassPrinter &printer, UomStruct node) {
    const UomStructNode *basis = chain_FindClass(node, CLASS_BASIS);
    char unit[NAME_SIZE];
    uom_GetUnitText(printer.catalogue, basis ? basis->unit : NO_UNIT, unit, sizeof unit, printer.style);
    if (!*unit)
        return;
    write(printer, "(");
    write(printer, unit);
    write(printer, ")");
}

void printClass(ClassPrinter &printer, UomStruct node) {
    const UomClassRow *row = class_ValidRow(printer.catalogue, node->classId);
    if (row && class_IsComposite(*row) && node->tag != TAG_COMPONENT)
        return; // printed at its first node
    writeSign(printer, node->exponent);
    char name[NAME_SIZE];
    uom_GetClassText(printer.catalogue, node->classId, name, sizeof name, printer.style);
    write(printer, name);
    if (uom_ClassHasBasis(printer.catalogue, node->classId))
        printBasis(printer, node);
    const int64_t power = num_Magnitude(node->exponent);
    char piece[32] = " ";
    if (power != 1)
        str_FormatBounded(piece, sizeof piece, " %lld ", static_cast<long long>(power));
    write(printer, piece);
    printer.atStart = false;
}

const UomClassRow *tokenRow(const Catalogue &catalogue, const char *classText) {
    return class_ValidRow(catalogue, class_Find(catalogue, classText, STYLE_TOKEN));
}

} // namespace

void uom_BuildClassString(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size, int32_t style) {
    if (!out || size < 2)
        return;
    ClassPrinter printer = {catalogue, TextWriter(out, static_cast<size_t>(size)), style_Effective(catalogue, style),
                            ClosingNodes(chain)};
    for (UomStruct node = chain; node; node = node->next) {
        if (node->classId == CLASS_OPEN)
            printOpen(printer, node);
        else if (node->classId == CLASS_CLOSE)
            printClose(printer, node);
        else
            printClass(printer, node);
    }
    dropBlank(printer);
}

void chain_ToComponents(UomStruct chain) {
    for (UomStruct node = chain; node; node = node->next) {
        node->classId = node->baseClass;
        node->exponent = node->baseExponent;
    }
}

int32_t uoms_GetComponentClass(const Catalogue &catalogue, const char *classString, int32_t size, char *out) {
    str_Open(out, size);
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 2;
    const UomClassRow *row = class_ValidRow(catalogue, chain.chain->classId);
    if (!row || !class_IsComposite(*row))
        return 1;
    chain_ToComponents(chain.chain);
    uom_BuildClassString(catalogue, chain.chain, out, size, STYLE_TOKEN);
    return 0;
}

int32_t uoms_GetClassStringInStyle(const Catalogue &catalogue, const char *classString, const char *styleName,
                                   int32_t size, char *out) {
    if (!str_Open(out, size) || str_IsEmpty(classString) || str_IsEmpty(styleName))
        return 1;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 2;
    uom_BuildClassString(catalogue, chain.chain, out, size, uom_StyleFromName(styleName, nullptr));
    return 0;
}

char **uoms_GetClassTextList(const Catalogue &catalogue, const char *styleName, int32_t *count) {
    const size_t rows = table_Count(catalogue.classes.rows);
    const int32_t style = uom_StyleFromName(styleName, nullptr);
    char **texts = texts_Make(rows, [&](size_t i) -> const char * {
        const UomClassRow *row = i == 0 ? nullptr : class_Row(catalogue, static_cast<int32_t>(i));
        if (!row)
            return nullptr;
        return style == STYLE_KEYWORD ? row->keyword : style == STYLE_LONG_NAME ? row->name : row->token;
    });
    if (count)
        *count = texts ? static_cast<int32_t>(rows) : 0;
    return texts;
}

int32_t uoms_GetClassListName(const Catalogue &catalogue, const char *classText, int32_t size, char *out) {
    const UomClassRow *row = str_Open(out, size) ? tokenRow(catalogue, classText) : nullptr;
    if (!row)
        return 1;
    str_CopyBounded(out, static_cast<size_t>(size), str_IsEmpty(row->listName) ? classText : row->listName);
    return 0;
}

int32_t uoms_GetClassNote(const Catalogue &catalogue, const char *classText, int32_t size, char *out) {
    const UomClassRow *row = str_Open(out, size) ? tokenRow(catalogue, classText) : nullptr;
    if (!row)
        return 1;
    str_CopyBounded(out, static_cast<size_t>(size), row->note);
    return 0;
}

int32_t uoms_GetClassDefinition(const Catalogue &catalogue, const char *classString, int32_t size, char *out) {
    str_Open(out, size);
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 1;
    const UomClassRow *row = class_ValidRow(catalogue, chain.chain->classId);
    if (!row || str_IsEmpty(row->definition))
        return 2;
    if (out && size > 0)
        str_CopyBounded(out, static_cast<size_t>(size), row->definition);
    return 0;
}

int32_t uoms_IsClassToken(const Catalogue &catalogue, const char *text) {
    return class_Find(catalogue, text, STYLE_TOKEN) != CLASS_NONE ? 1 : NO_UNIT;
}

} // namespace uom
