// A unit string has no grammar of its own: the chain says what comes next, and each node takes its unit from
// the text by the longest match. The parser is a record of its running values and one function for each kind
// of node.
//
// Plain classes are strict: the exponent of the text must be that of the chain. Composite classes are
// lenient: their exponents are read and dropped. The sign that "/" flips runs through the whole text.
#include "uomstruct/unit_string.h"

#include <cassert>
#include <cstring>

#include "catalogue/class_table.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/scoped.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/quotients.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr int32_t ANY_NUMBER = 99; // of parentheses to pass

// How the text writes the group of the class string that is being read.
enum GroupMode { NO_GROUP, EXPLICIT_GROUP, IMPLICIT_GROUP };

struct UnitStringParser {
    const Catalogue &catalogue;
    const char *start; // of the normal form
    const char *text;  // what is left of it
    int32_t style;
    SignStack signs;
    GroupMode groupMode = NO_GROUP;
    int32_t groupExponent = 1;
    UomStruct compositeEnd = nullptr; // last node of the composite class being read
    int32_t opened = 0;               // a "(" was passed on the way to the unit in hand
    ClosingNodes closings;            // of the chain's groups
    UnitStringParser(const Catalogue &of, const char *normalForm, int32_t scanStyle, UomStruct chain)
        : catalogue(of), start(normalForm), text(normalForm), style(scanStyle), closings(chain) {}
};

// The character of the normal form where a place is, from 1.
int32_t position(const UnitStringParser &parser, const char *place) {
    return static_cast<int32_t>(place - parser.start) + 1;
}

void push(SignStack &signs) {
    if (signs.depth == MAX_GROUPS) {
        signs.tooDeep = true;
        return;
    }
    signs.saved[signs.depth++] = signs.sign;
    signs.sign = 1;
}

// A ")" without its "(" leaves the sign as it is.
void pop(SignStack &signs) {
    assert(signs.depth >= 0 && signs.depth <= MAX_GROUPS);
    if (signs.depth > 0)
        signs.sign = signs.saved[--signs.depth];
}

void skipToUnit(UnitStringParser &parser, int32_t maxOpen) {
    parser.text = uom_SkipToUnit(parser.signs, parser.text, maxOpen, &parser.opened);
}

// Moves behind the next ")", or to the end of the text.
void leaveParenthesis(UnitStringParser &parser) {
    while (*parser.text && *parser.text != ')')
        ++parser.text;
    if (!*parser.text)
        return;
    pop(parser.signs);
    ++parser.text;
}

// "lb-mole" reads like "lb-mol".
void skipMoleEnding(UnitStringParser &parser, int32_t classId) {
    if ((classId == CLASS_MOLE || classId == CLASS_MOLAR) && str_Lower(*parser.text) == 'e')
        ++parser.text;
}

void dropExponent(UnitStringParser &parser) {
    int32_t value, length;
    uom_ReadExponent(parser.text, &value, &length);
    parser.text += length;
}

FillStatus missingUnit(const UnitStringParser &parser, int32_t classId) {
    error_Set("UOM string \"%s\" at character %d: unidentified UOM for UOM class \"%s\".", parser.start,
              position(parser, parser.text), class_Token(parser.catalogue, classId));
    return FILL_NO_UNIT;
}

// --- parentheses

void readOpen(UnitStringParser &parser, UomStruct node) {
    int32_t exponent, open, close;
    const bool written = uom_FindParenGroup(parser.text, &exponent, &open, &close) != 0;
    const UomStructNode *closing = parser.closings.take(node);
    if (!closing)
        return;
    parser.groupExponent = closing->exponent;
    parser.groupMode = written ? EXPLICIT_GROUP : IMPLICIT_GROUP;
    if (!written)
        return;
    // A "/" on the way to the "(" is not applied, kept.
    parser.text += open + 1;
    push(parser.signs);
}

void readClose(UnitStringParser &parser) {
    if (parser.groupMode == EXPLICIT_GROUP)
        leaveParenthesis(parser);
    parser.groupMode = NO_GROUP;
}

// --- plain classes

// Finds the unit with as few parentheses passed as possible, since a unit's name may begin with one. Each try goes on
// from the "(" where the last one stopped.
FoundUnit findPlainUnit(UnitStringParser &parser, int32_t classId) {
    skipToUnit(parser, 0);
    FoundUnit found = unit_FindAtHead(parser.catalogue, classId, parser.text, parser.style);
    while (found.status != FILL_DONE && *parser.text == '(' && !parser.signs.tooDeep) {
        push(parser.signs);
        ++parser.text;
        if (!parser.signs.tooDeep)
            skipToUnit(parser, 0);
        parser.opened = 1;
        found = unit_FindAtHead(parser.catalogue, classId, parser.text, parser.style);
    }
    return found;
}

FillStatus checkExponent(const UnitStringParser &parser, const UomStructNode &node, int32_t value, const char *place) {
    const int32_t group = parser.groupMode == IMPLICIT_GROUP ? parser.groupExponent : 1;
    const int32_t expected = num_Multiply(node.exponent, group);
    const int32_t foundExponent = num_Multiply(parser.signs.sign, value);
    if (foundExponent == expected)
        return FILL_DONE;
    error_Set("UOM string \"%s\" at character %d: expecting an exponent of %d but found %d instead.", parser.start,
              position(parser, place), expected, foundExponent);
    return FILL_BAD_EXPONENT;
}

FillStatus readPlain(UnitStringParser &parser, UomStruct node) {
    const FoundUnit found = findPlainUnit(parser, node->classId);
    if (parser.signs.tooDeep)
        return FILL_TOO_DEEP;
    node->multiplier = found.multiplier;
    if (parser.groupMode == IMPLICIT_GROUP && found.multiplier != 0 && num_Magnitude(parser.groupExponent) > 1) {
        error_Set("UOM string \"%s\" at character %d: required parentheses are missing.", parser.start,
                  position(parser, parser.text));
        return FILL_NEEDS_PARENTHESES;
    }
    if (found.status != FILL_DONE) {
        unit_ExplainFailure(parser.catalogue, found, node->classId, parser.text);
        return found.status;
    }
    chain_SetUnit(parser.catalogue, node, found.unit);
    parser.text += found.consumed;
    skipMoleEnding(parser, node->classId);

    const char *place = parser.text;
    int32_t value, length;
    if (!uom_ReadExponent(place, &value, &length) && parser.opened) {
        leaveParenthesis(parser);
        place = parser.text;
        uom_ReadExponent(place, &value, &length);
    }
    parser.text = place + length;
    return checkExponent(parser, *node, value, place);
}

// --- composite classes

// Of the readings of a text as a unit of each basis, the one that takes most of it wins, mass before moles
// before volume.
bool winsOver(const FoundUnit &a, const FoundUnit &b, const FoundUnit &c) {
    return a.unit != NO_UNIT && a.consumed >= b.consumed && a.consumed >= c.consumed;
}

FillStatus takeBasis(UnitStringParser &parser, UomStruct basisNode, int32_t basis, int32_t baseClass,
                     const FoundUnit &found) {
    chain_SetUnit(parser.catalogue, basisNode, basis);
    parser.text += found.consumed;
    skipMoleEnding(parser, baseClass);
    dropExponent(parser);
    UomStruct node = basisNode->next;
    if (!node)
        return FILL_DONE;
    node->baseClass = baseClass;
    node->multiplier = found.multiplier;
    chain_SetUnit(parser.catalogue, node, found.unit);
    return FILL_DONE;
}

// Reads the Basis node and the one behind it. A volume basis that the class string stated stays.
FillStatus readBasis(UnitStringParser &parser, UomStruct node) {
    const BasisClass moles = chain_MoleBasis(parser.catalogue);
    const FoundUnit mass = unit_FindAtHead(parser.catalogue, CLASS_MASS, parser.text, parser.style);
    const FoundUnit mole = unit_FindAtHead(parser.catalogue, moles.classId, parser.text, parser.style);
    const FoundUnit volume = unit_FindAtHead(parser.catalogue, CLASS_LIQ_VOL, parser.text, parser.style);
    if (winsOver(mass, mole, volume))
        return takeBasis(parser, node, parser.catalogue.named.UOM_BASMASS, CLASS_MASS, mass);
    if (winsOver(mole, mass, volume))
        return takeBasis(parser, node, moles.basis, moles.classId, mole);
    if (!winsOver(volume, mass, mole))
        return missingUnit(parser, CLASS_BASIS);
    if (chain_IsVolumeBasis(parser.catalogue, node->unit))
        return takeBasis(parser, node, node->unit, uom_ClassFromBasis(parser.catalogue, node->unit), volume);
    return takeBasis(parser, node, chain_VolumeBasis(parser.catalogue).basis,
                     chain_VolumeBasis(parser.catalogue).classId, volume);
}

FillStatus readComponent(UnitStringParser &parser, UomStruct node) {
    const FoundUnit found = unit_FindAtHead(parser.catalogue, node->baseClass, parser.text, parser.style);
    node->multiplier = found.multiplier;
    if (found.status == FILL_NO_UNIT)
        return missingUnit(parser, node->baseClass);
    if (found.status == FILL_BAD_MULTIPLIER) {
        error_Set("UOM string \"%s\" at character %d: unidentified UOM multiplier.", parser.start,
                  position(parser, parser.text));
        return FILL_BAD_MULTIPLIER;
    }
    chain_SetUnit(parser.catalogue, node, found.unit);
    parser.text += found.consumed;
    skipMoleEnding(parser, node->baseClass);
    dropExponent(parser);
    return FILL_DONE;
}

void clearUnit(UomStruct node) {
    node->unit = NO_UNIT;
    node->multiplier = 0;
    node->unitStyle = 0;
}

// What follows the last component of a class whose unit stood in parentheses of its own.
void skipCompositeTail(UnitStringParser &parser) {
    const char *c = parser.text;
    if (*c == '-' && str_IsDigit(c[1]))
        ++c;
    while (str_IsDigit(*c))
        ++c;
    while (str_IsSpace(*c) || *c == '-' || *c == '/')
        ++c;
    parser.text = c;
    parser.opened = 0;
}

// The first component of a class looks for its unit, and so does each.
FillStatus goToComponent(UnitStringParser &parser, UomStruct node) {
    if (!parser.compositeEnd) {
        parser.compositeEnd = uom_GetEndOfClass(parser.catalogue, node);
        skipToUnit(parser, ANY_NUMBER);
    }
    skipToUnit(parser, ANY_NUMBER);
    return parser.signs.tooDeep ? FILL_TOO_DEEP : FILL_DONE;
}

// The node behind one that was read, when it has no text of its own: the amount behind a basis, and the empty one behind
// a unit that is a whole quotient. Else the node itself.
UomStruct lastRead(const UnitStringParser &parser, UomStruct node, bool isBasis) {
    UomStruct next = node->next;
    if (next && isBasis)
        return next;
    if (!next || !unit_IsWholeQuotient(parser.catalogue, node->baseClass, node->unit))
        return node;
    clearUnit(next);
    return next;
}

// Reads one component, or two where the next has no text of its own; `node` moves to the last node read.
FillStatus readComposite(UnitStringParser &parser, UomStruct *node) {
    FillStatus status = goToComponent(parser, *node);
    if (status != FILL_DONE)
        return status;
    const bool isBasis = (*node)->baseClass == CLASS_BASIS && (*node)->classId != CLASS_BASIS_FRAC;
    status = isBasis ? readBasis(parser, *node) : readComponent(parser, *node);
    if (status != FILL_DONE)
        return status;
    *node = lastRead(parser, *node, isBasis);
    if (*node != parser.compositeEnd)
        return FILL_DONE;
    if (parser.opened)
        skipCompositeTail(parser);
    parser.compositeEnd = nullptr;
    return FILL_DONE;
}

// --- the walk

bool needsNoText(const UomStructNode *node) {
    for (; node; node = node->next)
        if (node->classId > CLASS_DIMENSIONLESS && node->baseClass > CLASS_DIMENSIONLESS)
            return false;
    return true;
}

FillStatus readNode(UnitStringParser &parser, UomStruct *node) {
    (*node)->multiplier = 0;
    switch ((*node)->classId) {
    case CLASS_OPEN:
        readOpen(parser, *node);
        return parser.signs.tooDeep ? FILL_TOO_DEEP : FILL_DONE;
    case CLASS_CLOSE:
        readClose(parser);
        return FILL_DONE;
    case CLASS_NONE:
    case CLASS_DIMENSIONLESS:
        return FILL_DONE;
    default:
        break;
    }
    const UomClassRow *row = class_ValidRow(parser.catalogue, (*node)->classId);
    return row && class_IsComposite(*row) ? readComposite(parser, node) : readPlain(parser, *node);
}

FillStatus readRest(UnitStringParser &parser) {
    skipToUnit(parser, ANY_NUMBER);
    if (parser.signs.tooDeep)
        return FILL_TOO_DEEP;
    if (!unit_IsNameStart(*parser.text))
        return FILL_DONE;
    error_Set("UOM string \"%s\" at character %d: extra characters \"%s\" were found at the end.", parser.start,
              position(parser, parser.text), parser.text);
    return FILL_TOO_LONG;
}

FillStatus readChain(UnitStringParser &parser, UomStruct chain) {
    for (UomStruct node = chain; node; node = node->next) {
        if (!*parser.text) {
            if (needsNoText(node))
                break;
            error_Set("UOM string \"%s\" is incomplete. Expecting more characters.", parser.start);
            return FILL_TOO_SHORT;
        }
        const FillStatus status = readNode(parser, &node);
        if (status != FILL_DONE)
            return status;
    }
    return readRest(parser);
}

} // namespace

const char *uom_SkipToUnit(SignStack &signs, const char *text, int32_t maxOpen, int32_t *opened) {
    int32_t passed = 0;
    for (; *text && !unit_IsNameStart(*text) && !signs.tooDeep; ++text) {
        if (*text == '(') {
            if (passed == maxOpen)
                break;
            push(signs);
            ++passed;
        } else if (*text == ')') {
            pop(signs);
        } else if (*text == '/') {
            signs.sign = -signs.sign;
        }
    }
    *opened = passed > 0;
    return text;
}

int32_t chain_FillFromText(const Catalogue &catalogue, UomStruct chain, const char *uomString, int32_t style) {
    const ScratchText normal(std::strlen(uomString) + 1);
    if (!normal.text) {
        error_Set("UOM string \"%s\": memory is exhausted.", uomString);
        return FILL_NO_MEMORY;
    }
    unit_Normalize(normal.text, uomString);
    UnitStringParser parser(catalogue, normal.text, style, chain);
    const FillStatus status = readChain(parser, chain);
    if (status == FILL_TOO_DEEP)
        error_Set("UOM string \"%s\" at character %d: more than %d open parentheses.", parser.start,
                  position(parser, parser.text), MAX_GROUPS);
    if (status == FILL_DONE)
        error_Clear();
    return status;
}

} // namespace uom
