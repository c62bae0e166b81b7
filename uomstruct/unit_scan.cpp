#include "uomstruct/unit_scan.h"

#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/message.h"
#include "support/text.h"

namespace uom {

const UomMultiplierRow uomMultipliers[] = {
    {3, "k", "M", "thousand"},
    {6, "M", "MM", "million"},
    {-99, "", "", ""},
};

namespace {

constexpr int32_t LAST_ROW = -99;
constexpr int32_t API_STYLE = 1;     // of units that take "M " in place of "k*"
constexpr size_t PREFIX_WINDOW = 16; // how far an SI multiplier's "*" may stand from the start

enum MultiplierResult : int32_t { MULTIPLIER_NONE = 0, MULTIPLIER_FOUND = 1, MULTIPLIER_UNKNOWN = 2 };

const char *skipSpace(const char *text) {
    while (str_IsSpace(*text))
        ++text;
    return text;
}

MultiplierResult findSi(const char *text, int32_t *multiplier, const char **rest) {
    size_t star = 0;
    while (star < PREFIX_WINDOW && text[star] && text[star] != '*')
        ++star;
    if (star == 0 || star == PREFIX_WINDOW || !text[star])
        return MULTIPLIER_NONE;
    const std::string_view prefix(text, star);
    if (prefix.find_first_of("/-(") != std::string_view::npos)
        return MULTIPLIER_NONE;
    for (const UomMultiplierRow *row = uomMultipliers; row->code != LAST_ROW; ++row) {
        if (prefix != row->siText)
            continue;
        *multiplier = row->code;
        *rest = text + star + 1;
        return MULTIPLIER_FOUND;
    }
    return MULTIPLIER_UNKNOWN;
}

// The length of a head that stands there, letters' case included, else 0.
size_t lengthOfHead(const char *text, const char *head) {
    size_t length = 0;
    for (; head[length]; ++length)
        if (text[length] != head[length])
            return 0;
    return length;
}

// A multiplier set off by a blank goes before the longest that stands directly in front of the unit.
MultiplierResult findApi(const char *text, int32_t *multiplier, const char **rest) {
    size_t longest = 0;
    for (const UomMultiplierRow *row = uomMultipliers; row->code != LAST_ROW; ++row) {
        const size_t length = lengthOfHead(text, row->apiText);
        if (length == 0)
            continue;
        if (text[length] == ' ') {
            *multiplier = row->code;
            *rest = skipSpace(text + length);
            return MULTIPLIER_FOUND;
        }
        if (length > longest) {
            longest = length;
            *multiplier = row->code;
        }
    }
    *rest = text + longest;
    return longest > 0 ? MULTIPLIER_FOUND : MULTIPLIER_NONE;
}

} // namespace

const UomMultiplierRow *multiplier_Find(int32_t code) {
    for (const UomMultiplierRow *row = uomMultipliers; row->code != LAST_ROW; ++row)
        if (row->code == code)
            return row;
    return nullptr;
}

double multiplier_Factor(int32_t code) {
    const UomMultiplierRow *row = multiplier_Find(code);
    return row ? std::pow(10.0, row->code) : 1.0;
}

int32_t multiplier_FindAtHead(const char *text, int32_t format, int32_t *multiplier, const char **rest) {
    int32_t code = 0;
    const char *behind = text;
    MultiplierResult result = MULTIPLIER_NONE;
    if (text)
        result = format == 1 ? findApi(text, &code, &behind) : findSi(text, &code, &behind);
    if (multiplier)
        *multiplier = code;
    if (rest)
        *rest = behind;
    return result;
}

void multiplier_Write(int32_t code, int32_t unitStyle, char *out, size_t size) {
    const UomMultiplierRow *row = multiplier_Find(code);
    if (!row)
        return;
    const bool api = unitStyle == API_STYLE;
    str_FormatBounded(out, size, api ? "%s " : "%s*", api ? row->apiText : row->siText);
}

FoundUnit unit_FindAtHead(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style) {
    FoundUnit found = {FILL_DONE, 0, 0, NO_UNIT};
    const char *rest = text;
    const MultiplierResult si = findSi(text, &found.multiplier, &rest);
    if (si == MULTIPLIER_UNKNOWN) {
        found.status = FILL_BAD_MULTIPLIER;
        return found;
    }
    int32_t length;
    found.unit = uom_ScanUnitToken(catalogue, classId, rest, style, &length);
    found.consumed = static_cast<int32_t>(rest - text) + length;
    if (found.unit != NO_UNIT && si == MULTIPLIER_FOUND)
        return found;

    // A reading with an API multiplier wins only when it takes more of the text: "MMBtu" is a unit where the
    // class has one of that name.
    found.multiplier = 0;
    int32_t apiMultiplier = 0;
    if (findApi(text, &apiMultiplier, &rest) == MULTIPLIER_FOUND) {
        const int32_t apiUnit = uom_ScanUnitToken(catalogue, classId, rest, style, &length);
        const int32_t apiConsumed = static_cast<int32_t>(rest - text) + length;
        if (apiUnit != NO_UNIT && (found.unit == NO_UNIT || apiConsumed > found.consumed))
            found = {FILL_DONE, apiConsumed, apiMultiplier, apiUnit};
    }
    found.status = found.unit == NO_UNIT ? FILL_NO_UNIT : FILL_DONE;
    return found;
}

void unit_ExplainFailure(const Catalogue &catalogue, const FoundUnit &found, int32_t classId, const char *text) {
    if (found.status == FILL_BAD_MULTIPLIER) {
        error_Set("UOM string \"%s\": unrecognized UOM multiplier.", text);
        return;
    }
    char token[64];
    str_CopyBounded(token, sizeof token, class_Token(catalogue, classId));
    error_Set("UOM string \"%s\": unidentified UOM for UOM class \"%s\".", text, token);
}

void unit_RefuseLength(const char *text) {
    char head[STR_SHOWN_SIZE];
    str_CopyBounded(head, sizeof head, std::string_view(text, STR_SHOWN_SIZE - 1));
    error_Set("UOM string \"%s...\" contains more than %d characters.", head, static_cast<int>(STR_MAX_LENGTH));
}

int32_t uom_FindUnitFromString(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style,
                               int32_t *consumed, int32_t *multiplier, int32_t *unit) {
    const char *source = text ? text : "";
    const bool overlong = str_IsTooLong(source);
    const FoundUnit found =
        overlong ? FoundUnit{FILL_OVERLONG, 0, 0, NO_UNIT} : unit_FindAtHead(catalogue, classId, source, style);
    if (consumed)
        *consumed = found.consumed;
    if (multiplier)
        *multiplier = found.multiplier;
    if (unit)
        *unit = found.unit;
    if (overlong)
        unit_RefuseLength(source);
    else if (found.status == FILL_DONE)
        error_Clear();
    else
        unit_ExplainFailure(catalogue, found, classId, source);
    return found.status;
}

int32_t uom_ReadExponent(const char *text, int32_t *value, int32_t *length) {
    *value = 1;
    *length = 0;
    const char *c = skipSpace(text);
    const bool negative = *c == '-' && str_IsDigit(c[1]);
    if (negative)
        ++c;
    if (!str_IsDigit(*c))
        return 0;
    int64_t digits = 0;
    for (; str_IsDigit(*c); ++c)
        digits = digits > INT32_MAX / 10 ? INT32_MAX : digits * 10 + (*c - '0');
    if (digits > INT32_MAX)
        digits = INT32_MAX;
    *value = static_cast<int32_t>(negative ? -digits : digits);
    *length = static_cast<int32_t>(c - text);
    return 1;
}

int32_t uom_FindParenGroup(const char *text, int32_t *exponent, int32_t *open, int32_t *close) {
    *exponent = 0;
    *open = *close = -1;
    const char *c = text;
    while (*c && *c != '(' && !unit_IsNameStart(*c))
        ++c;
    if (*c != '(')
        return 0;
    *open = static_cast<int32_t>(c - text);
    for (int32_t depth = 0; *c; ++c) {
        depth += *c == '(' ? 1 : *c == ')' ? -1 : 0;
        if (depth == 0)
            break;
    }
    if (!*c)
        return 0;
    *close = static_cast<int32_t>(c - text);
    int32_t length;
    return uom_ReadExponent(c + 1, exponent, &length) ? 2 : 1;
}

bool unit_IsNameStart(char c) {
    return str_IsLetter(c) || c == '$';
}

int32_t unit_Normalize(char *out, const char *in) {
    char *const start = out;
    char pending = '\0'; // a blank not yet written, or the last of "()-/" while nothing else came
    for (const char *c = skipSpace(in); *c; ++c) {
        if (*c == ' ') {
            if (!pending)
                pending = ' ';
            continue;
        }
        if (*c == '(' || *c == ')' || *c == '-' || *c == '/') {
            *out++ = pending = *c;
            continue;
        }
        if (pending == ' ')
            *out++ = ' ';
        pending = '\0';
        *out++ = *c == '\xB2' ? '2' : *c == '\xB3' ? '3' : *c;
    }
    *out = '\0';
    return static_cast<int32_t>(out - start);
}

} // namespace uom
