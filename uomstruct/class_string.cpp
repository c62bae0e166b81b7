// A class string is read in two steps: blanks are put round everything that stands for itself, then the
// tokens are judged one by one into lists of classes, exponents and basis units, of which a chain is built.
//
// The grammar is loose. "/" flips the sign of what follows, a number without an entry in front is dropped,
// and only an unknown class, unbalanced parentheses and too long a string fail.
#include "uomstruct/class_string.h"

#include <cstdlib>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/scoped.h"
#include "support/text.h"
#include "uomstruct/chain.h"

namespace uom {

namespace {

constexpr int32_t MAX_ENTRIES = 20;

// The lists and the running values of one parse.
struct ClassStringParser {
    const Catalogue &catalogue;
    const char *source; // the caller's text, for messages
    char *rest;         // of the spaced text
    int32_t style;
    int32_t count = 0;
    int32_t classes[MAX_ENTRIES] = {};
    int32_t exponents[MAX_ENTRIES] = {};
    int32_t basisUnits[MAX_ENTRIES] = {};
    int32_t sign = 1;
    int32_t signStack[MAX_ENTRIES] = {};
    int32_t signs = 0; // on the stack
    int32_t depth = 0; // open parentheses; negative when more were closed than opened
    bool exponentAllowed = false;
    bool failed = false;
    bool tooLong = false;
};

char *nextToken(ClassStringParser &parser) {
    return str_CutToken(parser.rest, " ", &parser.rest);
}

void addEntry(ClassStringParser &parser, int32_t classId, int32_t exponent) {
    if (parser.count == MAX_ENTRIES) {
        error_Set("UOM class string \"%s\" contains more than %d classes and parentheses.", parser.source, MAX_ENTRIES);
        parser.failed = parser.tooLong = true;
        return;
    }
    parser.classes[parser.count] = classId;
    parser.exponents[parser.count] = exponent;
    ++parser.count;
}

void openGroup(ClassStringParser &parser) {
    addEntry(parser, CLASS_OPEN, 0);
    if (parser.failed)
        return;
    parser.signStack[parser.signs++] = parser.sign;
    ++parser.depth;
    parser.sign = 1;
    parser.exponentAllowed = false;
}

// The token to judge next, null at the end of the text. A number behind the ")" is the power of the group.
char *closeGroup(ClassStringParser &parser) {
    // A ")" ahead of its "(" leaves the sign as it is.
    if (parser.signs > 0)
        parser.sign = parser.signStack[--parser.signs];
    --parser.depth;
    parser.exponentAllowed = true;
    char *token = nextToken(parser);
    const bool power = token && num_IsIntegerText(token);
    addEntry(parser, CLASS_CLOSE, power ? num_Multiply(num_LeadingInt(token), parser.sign) : parser.sign);
    return power ? nextToken(parser) : token;
}

void takeNumber(ClassStringParser &parser, const char *token) {
    if (parser.exponentAllowed)
        parser.exponents[parser.count - 1] = num_Multiply(num_LeadingInt(token), parser.sign);
}

void takeClass(ClassStringParser &parser, const char *token) {
    const int32_t classId = class_Find(parser.catalogue, token, parser.style);
    if (classId == CLASS_NONE) {
        error_Set("Parsing UOM class string \"%s\" but unable to identify the UOM class \"%s\".", parser.source, token);
        parser.failed = true;
        return;
    }
    addEntry(parser, classId, parser.sign);
    parser.exponentAllowed = true;
    if (parser.failed || !uom_ClassHasBasis(parser.catalogue, classId))
        return;
    int32_t consumed;
    uom_ScanBasisSpec(parser.catalogue, parser.rest, &consumed, parser.style, &parser.basisUnits[parser.count - 1]);
    parser.rest += consumed;
}

void parseTokens(ClassStringParser &parser) {
    char *token = nextToken(parser);
    while (token && !parser.failed) {
        if (*token == ')') {
            token = closeGroup(parser);
            continue;
        }
        if (*token == '/') {
            parser.sign = -parser.sign;
            parser.exponentAllowed = false;
        } else if (*token == '(') {
            openGroup(parser);
        } else if (num_IsIntegerText(token)) {
            takeNumber(parser, token);
        } else {
            takeClass(parser, token);
        }
        token = nextToken(parser);
    }
}

void noMemory(const char *classString) {
    error_Set("Parsing UOM class string \"%s\" but memory is exhausted.", classString);
}

} // namespace

size_t uom_SpacedSize(const char *in) {
    return 3 * std::strlen(in) + 1;
}

void uom_SpaceClassString(char *out, const char *in) {
    for (const char *c = in; *c; ++c) {
        if (*c == '/' || *c == '(' || *c == ')') {
            *out++ = ' ';
            *out++ = *c;
            *out++ = ' ';
        } else if (*c == '6' && c > in && str_Lower(c[-1]) == 'e') {
            *out++ = *c; // "E6Power" is one token
        } else if (str_IsDigit(*c) || (*c == '-' && str_IsDigit(c[1]))) {
            *out++ = ' ';
            *out++ = *c;
            while (str_IsDigit(c[1]))
                *out++ = *++c;
            *out++ = ' ';
        } else if (*c == '\xB2') {
            *out++ = '2';
        } else if (*c == '\xB3') {
            *out++ = '3';
        } else {
            *out++ = *c;
        }
    }
    *out = '\0';
}

int32_t uom_ScanBasisSpec(const Catalogue &catalogue, const char *text, int32_t *consumed, int32_t style,
                          int32_t *unit) {
    *consumed = 0;
    *unit = NO_UNIT;
    const char *c = text + std::strspn(text, " ");
    if (*c != '(')
        return 0;
    ++c;
    c += std::strspn(c, " ");
    if (*c == ')' || *c == '/')
        return 0;
    int32_t length;
    const int32_t found = uom_ScanUnitToken(catalogue, CLASS_BASIS, c, style, &length);
    const char *close = found != NO_UNIT ? std::strchr(c + length, ')') : nullptr;
    if (!close)
        return 0;
    *unit = found;
    *consumed = static_cast<int32_t>(close + 1 - text);
    return 0;
}

UomStruct uoms_New(const Catalogue &catalogue, const char *classString) {
    if (!classString)
        return nullptr;
    if (str_IsTooLong(classString)) {
        char head[STR_SHOWN_SIZE];
        str_CopyBounded(head, sizeof head, std::string_view(classString, STR_SHOWN_SIZE - 1));
        error_Set("UOM class string \"%s...\" contains more than %d characters.", head,
                  static_cast<int>(STR_MAX_LENGTH));
        return nullptr;
    }
    const ScratchText spaced(uom_SpacedSize(classString));
    if (!spaced.text) {
        noMemory(classString);
        return nullptr;
    }
    uom_SpaceClassString(spaced.text, classString);
    ClassStringParser parser = {catalogue, classString, spaced.text, catalogue.styles.scanClass};
    parseTokens(parser);
    if (parser.tooLong)
        return nullptr;
    // Judged last, so it replaces the message of an unknown class.
    if (parser.depth != 0) {
        error_Set("Parentheses do not balance in UOM class string \"%s\".", classString);
        return nullptr;
    }
    if (parser.failed)
        return nullptr;
    UomStruct chain;
    if (!chain_Build(catalogue, &chain, parser.count, parser.classes, parser.exponents, parser.basisUnits))
        noMemory(classString);
    return chain;
}

int32_t uoms_IsClassValid(const Catalogue &catalogue, const char *classString) {
    const ScopedChain chain(uoms_New(catalogue, classString));
    return chain.chain != nullptr;
}

int32_t uoms_GetDimensions(const Catalogue &catalogue, const char *classString, int32_t *dimensions) {
    const ScopedChain chain(uoms_New(catalogue, classString));
    if (!chain.chain || !dimensions)
        return 0;
    int32_t sums[DIMENSIONS] = {};
    for (UomStruct node = chain.chain; node; node = node->next) {
        const UomClassRow *row = class_ValidRow(catalogue, node->baseClass);
        for (int32_t i = 0; row && i < DIMENSIONS; ++i)
            sums[i] = num_Add(sums[i], num_Multiply(node->baseExponent, row->dimension[i]));
    }
    std::memcpy(dimensions, sums, sizeof sums);
    return 0;
}

} // namespace uom
