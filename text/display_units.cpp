// The text of a filled chain, "kPa/(m3/sec)2", in any style. Each node gives one piece; a few running values decide on
// "/", "-", a blank, a leading "1" and parentheses. A "/" stands at each change of sign of the exponents, so that the
// text reads back to the same chain.
#include "text/display_units.h"

#include <cassert>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"
#include "text/styles.h"
#include "text/unit_text.h"
#include "uomstruct/chain.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr int32_t MAX_LEVELS = 32;
constexpr size_t PIECE_SIZE = 256;
constexpr int32_t MULTIPLIER_SIZE = 8;

// A group that is open: one of parenthesis nodes, or a composite class.
struct Level {
    int32_t lastExponent;          // to restore when it ends
    bool parenthesised;            // a composite class that stands in parentheses
    const UomStructNode *lastNode; // of the composite class; null for a group of parenthesis nodes
};

// The running values of one call.
struct UnitPrinter {
    const Catalogue &catalogue;
    TextWriter writer;
    int32_t style;
    ClosingNodes closings;
    bool atStart = true;      // nothing to separate from: at the start, and behind "(" and "/"
    int32_t lastExponent = 1; // a "/" is due when the next has the other sign
    int32_t previousBaseClass = 0;
    Level levels[MAX_LEVELS] = {};
    int32_t depth = 0; // beyond the levels, groups are printed without their powers' memory
};

void add(UnitPrinter &printer, std::string_view piece) {
    str_Write(printer.writer, piece);
}

bool changesSign(int32_t a, int32_t b) {
    return int64_t{a} * b < 0;
}

void push(UnitPrinter &printer, const Level &level) {
    if (printer.depth < MAX_LEVELS)
        printer.levels[printer.depth] = level;
    ++printer.depth;
}

// The level that ends; one beyond the stack restores a sign of +1.
Level pop(UnitPrinter &printer) {
    assert(printer.depth >= 0);
    if (printer.depth == 0 || printer.depth-- > MAX_LEVELS)
        return {1, false, nullptr};
    return printer.levels[printer.depth];
}

// The power of a unit or group, nothing for magnitudes of 0 and 1; the sign shows in the "/" alone.
void addExponent(UnitPrinter &printer, int32_t exponent) {
    const int64_t magnitude = num_Magnitude(exponent);
    char suffix[32] = "";
    if (magnitude < 2)
        return;
    if (printer.style == STYLE_HTML)
        str_FormatBounded(suffix, sizeof suffix, "<SUP>%lld</SUP>", static_cast<long long>(magnitude));
    else if (printer.style == STYLE_TOKEN_SUPER && magnitude == 2)
        str_CopyBounded(suffix, sizeof suffix, "\xB2");
    else if (printer.style == STYLE_TOKEN_SUPER && magnitude == 3)
        str_CopyBounded(suffix, sizeof suffix, "\xB3");
    else
        str_FormatBounded(suffix, sizeof suffix, "%lld", static_cast<long long>(magnitude));
    add(printer, suffix);
}

// --- parenthesis nodes

void printOpen(UnitPrinter &printer, UomStruct node) {
    const UomStructNode *close = printer.closings.take(node);
    const int32_t exponent = close ? close->exponent : 1;
    if (changesSign(exponent, printer.lastExponent)) {
        printer.lastExponent = exponent;
        if (printer.atStart) {
            // Replaces all that stands there, kept.
            printer.writer.wanted = 0;
            add(printer, "1");
        }
        add(printer, "/");
    }
    push(printer, {printer.lastExponent, false, nullptr});
    add(printer, "(");
    printer.atStart = true;
    printer.lastExponent = 1;
}

void printClose(UnitPrinter &printer, const UomStructNode *node) {
    add(printer, ")");
    addExponent(printer, node->exponent);
    printer.lastExponent = pop(printer).lastExponent;
    printer.atStart = false;
}

// --- the head and the end of a composite class

struct CompositeShape {
    const UomStructNode *lastNode;
    int32_t nodes;
    int32_t units;   // nodes that show a unit
    bool mixedSigns; // two neighbours have exponents of opposite sign
};

CompositeShape shapeOf(const Catalogue &catalogue, const UomStructNode *first) {
    const int32_t nodes = uom_GetUnitMax(catalogue, first->classId);
    CompositeShape shape = {first, 0, 0, false};
    const UomStructNode *previous = nullptr;
    for (const UomStructNode *node = first; node && shape.nodes < nodes; node = node->next) {
        ++shape.nodes;
        shape.units += node->unit != NO_UNIT;
        if (previous && changesSign(previous->baseExponent, node->baseExponent))
            shape.mixedSigns = true;
        previous = shape.lastNode = node;
    }
    return shape;
}

bool needsParentheses(const UomStructNode *first, const CompositeShape &shape) {
    if (shape.units < 2 || first->classId == CLASS_QUANTITY)
        return false;
    if (first->exponent > 1 || first->exponent < 0)
        return true;
    const UomStructNode *behind = shape.lastNode->next;
    return shape.nodes > 1 && behind && behind->baseClass != CLASS_CLOSE && shape.mixedSigns;
}

void printCompositeHead(UnitPrinter &printer, const UomStructNode *first) {
    const CompositeShape shape = shapeOf(printer.catalogue, first);
    const bool parenthesised = needsParentheses(first, shape);
    push(printer, {first->exponent, parenthesised, shape.lastNode});
    const bool below = changesSign(printer.lastExponent, first->exponent);
    if (below)
        add(printer, printer.atStart ? "1/" : "/");
    if (parenthesised)
        add(printer, "(");
    if (below || parenthesised)
        printer.atStart = true;
    printer.lastExponent = 1;
}

void endComposite(UnitPrinter &printer, const UomStructNode *node) {
    if (printer.depth == 0 || printer.depth > MAX_LEVELS || printer.levels[printer.depth - 1].lastNode != node)
        return;
    const Level level = pop(printer);
    if (level.parenthesised)
        add(printer, ")");
    addExponent(printer, node->exponent);
    printer.lastExponent = level.lastExponent;
    printer.atStart = false;
}

// --- one unit

// Within a composite class exponents are relative to the class's; under an exponent of 0 they stand as the
// row has them.
int32_t relativeExponent(const Catalogue &catalogue, const UomStructNode *node) {
    const UomClassRow *row = class_ValidRow(catalogue, node->classId);
    if (!row || !class_IsComposite(*row))
        return node->baseExponent;
    if (node->exponent != 0)
        return static_cast<int32_t>(int64_t{node->baseExponent} / node->exponent);
    const bool isComponent = node->tag >= TAG_COMPONENT && node->tag < TAG_COMPONENT + COMPOSITE_SLOTS;
    return isComponent ? row->baseExponent[node->tag - TAG_COMPONENT] : 1;
}

bool endsInDigit(const char *token) {
    return *token && str_IsDigit(token[std::strlen(token) - 1]);
}

// Whether the text of a unit would read otherwise without parentheses. It hangs on the token, whatever text is printed.
bool needsOwnParentheses(const char *token, int32_t exponent, const UomStructNode *behind) {
    const bool holdsSlash = std::strchr(token, '/') != nullptr;
    if (num_Magnitude(exponent) > 1)
        return holdsSlash || std::strchr(token, '-') || endsInDigit(token);
    return holdsSlash && behind && behind->baseClass >= CLASS_DIMENSIONLESS;
}

const char *separatorOf(const UnitPrinter &printer, bool inParentheses) {
    if (inParentheses || printer.atStart)
        return "";
    return printer.previousBaseClass == CLASS_BASIS ? " " : "-";
}

void printUnit(UnitPrinter &printer, const UomStructNode *node, const char *unit) {
    const int32_t exponent = relativeExponent(printer.catalogue, node);
    if (changesSign(exponent, printer.lastExponent)) {
        printer.lastExponent = exponent;
        add(printer, printer.atStart ? "1/" : "/");
        printer.atStart = true;
    }
    const bool inParentheses = needsOwnParentheses(unit_Token(printer.catalogue, node->unit), exponent, node->next);
    char multiplier[MULTIPLIER_SIZE];
    uom_GetUOMMultiplierString(printer.catalogue, const_cast<UomStruct>(node), multiplier, sizeof multiplier);
    char piece[PIECE_SIZE];
    str_FormatBounded(piece, sizeof piece, inParentheses ? "%s(%s%s)" : "%s%s%s", separatorOf(printer, inParentheses),
                      multiplier, unit);
    add(printer, piece);
    addExponent(printer, exponent);
    printer.atStart = false;
}

void printNode(UnitPrinter &printer, UomStruct node) {
    if (node->classId == CLASS_OPEN)
        return printOpen(printer, node);
    if (node->classId == CLASS_CLOSE)
        return printClose(printer, node);
    if (node->tag == TAG_COMPONENT)
        printCompositeHead(printer, node);
    // The basis of a rate never shows, that of a composition does.
    const bool hidden = node->baseClass == CLASS_BASIS && node->next && node->next->baseClass != CLASS_FRAC;
    if (hidden)
        return;
    char unit[PIECE_SIZE];
    uom_GetUnitText(printer.catalogue, node->unit, unit, sizeof unit, printer.style);
    if (*unit)
        printUnit(printer, node, unit);
    endComposite(printer, node);
}

} // namespace

char *uom_GetDisplayUnits(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size, int32_t style) {
    if (!out || size < 1)
        return out;
    std::memset(out, 0, static_cast<size_t>(size));
    UnitPrinter printer = {catalogue, TextWriter(out, static_cast<size_t>(size)), style_Effective(catalogue, style),
                           ClosingNodes(chain)};
    for (UomStruct node = chain; node && printer.writer.wanted + 1 < printer.writer.size; node = node->next) {
        printNode(printer, node);
        if (node->classId != CLASS_OPEN && node->classId != CLASS_CLOSE)
            printer.previousBaseClass = node->baseClass;
    }
    return out;
}

int32_t uom_GetUOMMultiplierString(const Catalogue &catalogue, UomStruct node, char *out, int32_t size) {
    if (!out || size < 1)
        return 1;
    *out = '\0';
    if (!node)
        return 1;
    const UomUnit *unit = table_Record<UomUnit>(catalogue.units.records, node->unit); // the placeholder as well
    multiplier_Write(node->multiplier, unit ? unit->multiplierStyle : 0, out, static_cast<size_t>(size));
    return 0;
}

} // namespace uom
