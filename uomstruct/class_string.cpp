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

namespace uom {

namespace {

constexpr int32_t MAX_ENTRIES = 20;
static_assert(MAX_ENTRIES * COMPOSITE_SLOTS <= POOL_NODES);

// The lists and the running values of one parse.
struct ClassStringParser {
    const Catalogue &catalogue;
    const char *source;   // the caller's text, for messages
    char *rest = nullptr; // of the spaced text
    int32_t count = 0;
    int32_t sign = 1;
    int32_t signs = 0; // on the stack
    int32_t depth = 0; // open parentheses; negative when more were closed than opened
    bool exponentAllowed = false;
    bool failed = false;
    bool tooLong = false;
    int32_t classes[MAX_ENTRIES]; // `count` of these, and of the two that follow
    int32_t exponents[MAX_ENTRIES];
    int32_t basisUnits[MAX_ENTRIES];
    int32_t signStack[MAX_ENTRIES]; // `signs` of them
    ClassStringParser(const Catalogue &of, const char *classString) : catalogue(of), source(classString) {}
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
    parser.basisUnits[parser.count] = NO_UNIT;
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
    const int32_t classId = class_Find(parser.catalogue, token, parser.catalogue.styles.scanClass);
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
    uom_ScanBasisSpec(parser.catalogue, parser.rest, &consumed, parser.catalogue.styles.scanClass,
                      &parser.basisUnits[parser.count - 1]);
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

bool classstring_IsName(const char *classString) {
    const char *c = classString;
    while (str_IsLetter(*c))
        ++c;
    return c > classString && !*c;
}

static void parseSpaced(ClassStringParser &parser) {
    const ScratchText spaced(uom_SpacedSize(parser.source));
    parser.failed = !spaced.text;
    if (!spaced.text)
        return noMemory(parser.source);
    uom_SpaceClassString(spaced.text, parser.source);
    parser.rest = spaced.text;
    parseTokens(parser);
    // Judged last, so it replaces the message of an unknown class.
    if (parser.depth == 0 || parser.tooLong)
        return;
    error_Set("Parentheses do not balance in UOM class string \"%s\".", parser.source);
    parser.failed = true;
}

// Fills the parser's lists. False, with a message but for a null text, when the class string is none.
static bool parse(ClassStringParser &parser) {
    if (!parser.source)
        return false;
    if (str_IsTooLong(parser.source)) {
        char head[STR_SHOWN_SIZE];
        str_CopyBounded(head, sizeof head, std::string_view(parser.source, STR_SHOWN_SIZE - 1));
        error_Set("UOM class string \"%s...\" contains more than %d characters.", head,
                  static_cast<int>(STR_MAX_LENGTH));
        return false;
    }
    if (!classstring_IsName(parser.source)) {
        parseSpaced(parser);
        return !parser.failed;
    }
    char nothing[] = "";
    parser.rest = nothing;
    takeClass(parser, parser.source);
    parser.rest = nullptr;
    return !parser.failed;
}

UomStruct uoms_New(const Catalogue &catalogue, const char *classString) {
    ClassStringParser parser(catalogue, classString);
    UomStruct chain = nullptr;
    if (!parse(parser))
        return nullptr;
    if (!chain_Build(catalogue, &chain, parser.count, parser.classes, parser.exponents, parser.basisUnits))
        noMemory(classString);
    return chain;
}

UomStruct chain_ParseIn(NodePool &pool, const Catalogue &catalogue, const char *classString) {
    ClassStringParser parser(catalogue, classString);
    if (!parse(parser))
        return nullptr;
    return chain_BuildIn(pool, catalogue, parser.count, parser.classes, parser.exponents, parser.basisUnits);
}

int32_t uoms_IsClassValid(const Catalogue &catalogue, const char *classString) {
    ParsedChain chain(catalogue, classString);
    return chain.chain != nullptr;
}

int32_t uoms_GetDimensions(const Catalogue &catalogue, const char *classString, int32_t *dimensions) {
    ParsedChain chain(catalogue, classString);
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
