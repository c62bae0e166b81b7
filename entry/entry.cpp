#include "entry/entry.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "entry/canonical.h"
#include "entry/parts.h"
#include "entry/suggest.h"
#include "support/best.h"
#include "support/message.h"
#include "support/table.h"
#include "support/text.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

// --- messages about what does not fit

struct Candidate {
    int32_t classId;
    ClassFit fit;
};

// Classes whose units are all millions: nobody means them who types no such unit.
bool isInMillions(int32_t classId) {
    return classId == CLASS_E6_ENERGY || classId == CLASS_E6_POWER;
}

// The lower the better: an alias knows its class.
int32_t rankOf(const Reading &reading, const ClassFit &fit) {
    return reading.products[fit.product].bound ? -1 : static_cast<int32_t>(fit.fit.kind);
}

// The classes that read the text, the best first: up to `most`.
int32_t findClasses(const Catalogue &catalogue, const Words &words, const Reading &reading, Candidate *candidates,
                    int32_t most, bool firstOnly) {
    int32_t count = 0;
    for (int32_t c = CLASS_DIMENSIONLESS; c < words.classCount; ++c) {
        const ClassShape &shape = words.classes[c];
        if (!shape.shown || shape.slots == 0 || !entry_IsPossible(reading, shape))
            continue;
        const ClassFit fit = entry_Fit(catalogue, words, reading, shape_OfClass(words, c), firstOnly);
        if (fit.fit.kind == FitKind::NONE || (isInMillions(c) && fit.fit.kind > FitKind::DIRECT_TIMES))
            continue;
        best_Insert(candidates, &count, most, {c, fit}, [&](const Candidate &a, const Candidate &b) {
            return rankOf(reading, a.fit) < rankOf(reading, b.fit);
        });
    }
    return count;
}

// The same of the first way to read the text, which is that of arithmetic, or of the others where it is of no class.
int32_t findClasses(const Catalogue &catalogue, const Words &words, const Reading &reading, Candidate *candidates,
                    int32_t most) {
    const int32_t count = findClasses(catalogue, words, reading, candidates, most, true);
    return count > 0 ? count : findClasses(catalogue, words, reading, candidates, most, false);
}

constexpr int32_t TOLD_CLASSES = 3;

std::string_view unitsTyped(const Reading &reading) {
    return fold_Typed(reading.folded, reading.unitBegin, reading.folded.length);
}

// "SCFM is no Pres; it is a VapVolRate." The number of classes that are told.
int32_t tellClasses(const Catalogue &catalogue, const Words &words, const char *classString, const Reading &reading,
                    UomEntry &entry) {
    Candidate candidates[TOLD_CLASSES];
    const int32_t count = findClasses(catalogue, words, reading, candidates, TOLD_CLASSES);
    char typed[64];
    str_CopyBounded(typed, sizeof typed, unitsTyped(reading));
    entry_Locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    char classes[128] = "";
    TextWriter writer(classes, sizeof classes);
    for (int32_t i = 0; i < count; ++i) {
        str_Write(writer, i == 0 ? "" : i + 1 < count ? ", " : " or ");
        str_Write(writer, class_Token(catalogue, candidates[i].classId));
    }
    if (!classString)
        entry_Refuse(entry, "\"%s\" is a unit of no class.", typed);
    else if (count > 0)
        entry_Refuse(entry, "\"%s\" is no unit of %s; it is one of %s.", typed, classString, classes);
    else
        entry_Refuse(entry, "\"%s\" is no unit of %s.", typed, classString);
    return count;
}

void tellGas(const char *classString, const Reading &reading, UomEntry &entry) {
    char typed[64];
    str_CopyBounded(typed, sizeof typed, unitsTyped(reading));
    entry_Locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    entry_Refuse(entry, "\"%s\" is an amount of gas, told by its volume under standard conditions, and no unit of %s.",
                 typed, classString ? classString : "a volume");
}

void tellAmbiguous(const Reading &reading, UomEntry &entry) {
    entry_Locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    entry_Refuse(
        entry,
        "The text can mean two things, since \"a/b/c\" may be a/(b c) or a/(b/c), and \"a/b*c\" may be (a/b) c or "
        "a/(b c): set parentheses.");
}

bool readTyped(const Catalogue &catalogue, const Words &words, const char *classString, const char *text, bool suggests,
               UomEntry &entry);

// Whether a name may be what was meant: letters of another prefix, and other units of few letters, are no misspellings.
// "kpsi" is no psi, "Mio" no min, "mcg" no mg, "kDa" no kPa; "kPs" may be kPa.
bool mayBeMeant(std::string_view typed, std::string_view name) {
    constexpr size_t SHORT = 4; // letters, of which the last alone may be wrong
    size_t same = 0;
    while (same < typed.size() && same < name.size() && str_Lower(typed[same]) == str_Lower(name[same]))
        ++same;
    const bool otherPrefix = typed[0] != name[0] && std::strchr("mp", str_Lower(typed[0]));
    if (same == 0 || otherPrefix)
        return false;
    return typed.size() > SHORT || (same + 1 >= typed.size() && name.size() >= typed.size());
}

// A text with the word at the complaint replaced by a name that is known, if that is read.
void suggestName(const Catalogue &catalogue, const Words &words, const char *classString, const Reading &reading,
                 UomEntry &entry) {
    const FoldedText &folded = reading.folded;
    const std::string_view typed(folded.text, static_cast<size_t>(folded.length));
    const size_t from = static_cast<size_t>(reading.complaint.begin), to = static_cast<size_t>(reading.complaint.end);
    Suggestions suggestions;
    suggest_Names(words, str_Behind(str_Head(typed, to), from), suggestions);
    for (int32_t i = 0; i < suggestions.count; ++i) {
        char text[sizeof entry.suggestion];
        TextWriter writer(text, sizeof text);
        str_Write(writer, str_Head(typed, from));
        str_Write(writer, suggestions.names[i].name);
        str_Write(writer, str_Behind(typed, to));
        UomEntry read;
        entry_Begin(read);
        if (!mayBeMeant(str_Behind(str_Head(typed, to), from), suggestions.names[i].name))
            continue;
        if (writer.wanted >= sizeof text || !readTyped(catalogue, words, classString, text, false, read))
            continue;
        str_CopyBounded(entry.suggestion, sizeof entry.suggestion, text);
        return;
    }
}

// What is wrong with a text whose units are those of the class: its powers, or that some are missing.
void tellParts(const Catalogue &catalogue, const Words &words, const char *classString, const Shape &shape,
               const Reading &reading, bool isKnown, bool suggests, UomEntry &entry) {
    const Parts parts = parts_Of(catalogue, reading, shape);
    if (!parts.whole)
        return;
    if (parts.wrongPower >= 0 && !isKnown) {
        const Term &term = reading.products[0].terms[parts.terms[parts.wrongPower]];
        entry_Locate(entry, reading.folded, term.place, term.end);
        const std::string_view typed = fold_Typed(reading.folded, term.place, term.end);
        entry_Refuse(entry, "The power of \"%.*s\" is %d here, and %d in %s.", static_cast<int>(typed.size()),
                     typed.data(), static_cast<int>(term.exponent), static_cast<int>(shape.exponents[parts.wrongPower]),
                     classString);
    }
    if (!suggests)
        return;
    char units[sizeof entry.units], text[sizeof entry.suggestion];
    parts_Suggest(catalogue, classString, reading, parts, units, sizeof units);
    TextWriter writer(text, sizeof text);
    str_Write(writer, std::string_view(reading.folded.text, static_cast<size_t>(reading.unitBegin)));
    str_Write(writer, units);
    UomEntry read;
    entry_Begin(read);
    if (*units && writer.wanted < sizeof text && readTyped(catalogue, words, classString, text, false, read))
        str_CopyBounded(entry.suggestion, sizeof entry.suggestion, text);
}

// What is no name in a class may be one elsewhere: "ppmw" of a mole fraction.
bool tellOtherClasses(const Catalogue &catalogue, const Words &words, const char *classString, const char *text,
                      UomEntry &entry) {
    Reading reading;
    UomEntry read;
    Candidate candidate;
    if (!classString || !entry_Read(catalogue, words, CLASS_NONE, text, false, reading, read) || reading.count == 0 ||
        findClasses(catalogue, words, reading, &candidate, 1) == 0)
        return false;
    tellClasses(catalogue, words, classString, reading, entry);
    return true;
}

void complain(const Catalogue &catalogue, const Words &words, const char *classString, const char *text,
              const Reading &reading, bool suggests, UomEntry &entry) {
    if (suggests && tellOtherClasses(catalogue, words, classString, text, entry))
        return;
    entry_Locate(entry, reading.folded, reading.complaint.begin, reading.complaint.end);
    entry_Refuse(entry, "%s", reading.complaint.message);
    if (suggests && reading.complaint.unknownWord)
        suggestName(catalogue, words, classString, reading, entry);
}

// --- the text of a fit

// The exponents of a group that closes with a power.
void raiseGroup(Shape &shape, int32_t first, int32_t exponent) {
    for (int32_t slot = first; slot < shape.count; ++slot)
        shape.exponents[slot] *= exponent;
}

// The shape of a chain, its groups multiplied out. What stands behind a basis counts as `counted`; without one a chain
// with a basis is of no shape.
Shape shapeOfChain(const Catalogue &catalogue, const UomStructNode *chain, int32_t counted) {
    Shape shape = {};
    int32_t groups[Shape::LIMIT], depth = 0;
    bool behindBasis = false;
    for (const UomStructNode *node = chain; node; node = node->next) {
        if (shape.count == Shape::LIMIT || (node->baseClass == CLASS_BASIS && counted == CLASS_NONE))
            return {};
        if (node->baseClass == CLASS_OPEN && depth < Shape::LIMIT)
            groups[depth++] = shape.count;
        else if (node->baseClass == CLASS_CLOSE && depth > 0)
            raiseGroup(shape, groups[--depth], node->baseExponent == 0 ? 1 : node->baseExponent);
        else if (node_IsParenthesis(*node))
            return {};
        else if (node->baseClass != CLASS_BASIS) {
            shape.classes[shape.count] = behindBasis ? counted : node->baseClass;
            shape.exponents[shape.count++] = node->baseExponent;
        }
        behindBasis = node->baseClass == CLASS_BASIS;
    }
    shape.known = true;
    for (int32_t slot = 0; slot < shape.count; ++slot) {
        const BaseQuantity quantity = dimension_OfClass(catalogue, shape.classes[slot]);
        shape.known = shape.known && quantity.known;
        shape.dimension = dimension_Times(shape.dimension, quantity.dimension, shape.exponents[slot]);
    }
    return shape;
}

// Whether the two texts are one but for case and blanks.
bool isSameText(const char *a, const char *b) {
    for (;; ++a, ++b) {
        while (*a == ' ')
            ++a;
        while (*b == ' ')
            ++b;
        if (str_Lower(*a) != str_Lower(*b))
            return false;
        if (!*a)
            return true;
    }
}

// The typed text in the tokens of the catalogue, where each word of it is one unit.
bool writeInTokens(const Catalogue &catalogue, const Reading &reading, const Product &product, TextWriter &writer) {
    if (wide_Rounded(product.number) != 1.0 || product.hasNumber || product.scale)
        return false;
    int32_t place = reading.unitBegin;
    const char *text = reading.folded.text;
    for (int32_t i = 0; i < product.count; ++i) {
        const Term &term = product.terms[i];
        if (term.place < place)
            return false;
        str_Write(writer, std::string_view(text + place, static_cast<size_t>(term.place - place)));
        unit_Write(catalogue, term.unit, term.multiplier, writer);
        place = term.end;
    }
    str_Write(writer, std::string_view(text + place, static_cast<size_t>(reading.folded.length - place)));
    return true;
}

// Takes the units as the classical reader reads the text, if what it has read says the whole text.
bool takeClassical(const Catalogue &catalogue, const char *classString, const TextWriter &text, UomEntry &entry) {
    ParsedChain chain(catalogue, classString);
    if (text.wanted >= text.size || !chain.chain ||
        chain_FillFromText(catalogue, chain.chain, text.out, STYLE_TOKEN) != UOM_DONE)
        return false;
    uom_GetDisplayUnits(catalogue, chain.chain, entry.units, sizeof entry.units, STYLE_TOKEN);
    if (isSameText(text.out, entry.units))
        return true;
    *entry.units = '\0';
    return false;
}

// Class strings with a basis, which the classical reader alone reads.
bool readClassically(const Catalogue &catalogue, const char *classString, const Reading &reading, UomEntry &entry) {
    for (int32_t i = 0; i < reading.count; ++i) {
        char text[sizeof entry.units];
        TextWriter writer(text, sizeof text);
        if (writeInTokens(catalogue, reading, reading.products[i], writer) &&
            takeClassical(catalogue, classString, writer, entry))
            return true;
    }
    return false;
}

// --- classes whose quantity is counted by mole, mass or volume

// What a basis may count, as the class of the slot behind it.
constexpr int32_t countedClasses[] = {CLASS_MOLE, CLASS_MASS, CLASS_VAP_VOL, CLASS_LIQ_VOL};

bool readCounted(const Catalogue &catalogue, const Words &words, const char *classString, const Reading &reading,
                 UomEntry &entry) {
    ParsedChain chain(catalogue, classString);
    for (const int32_t counted : countedClasses) {
        const Shape shape = shapeOfChain(catalogue, chain.chain, counted);
        const ClassFit fit = entry_Fit(catalogue, words, reading, shape);
        if (fit.fit.kind == FitKind::NONE || fit.ambiguous)
            continue;
        char text[sizeof entry.units];
        TextWriter writer(text, sizeof text);
        fit_Write(catalogue, shape, fit.fit, writer);
        if (!takeClassical(catalogue, classString, writer, entry))
            continue;
        entry.scale = wide_Rounded(fit.fit.scale);
        return true;
    }
    return false;
}

// Writes the result of a fit. False when the text of the units would not be read as them.
bool finish(const Catalogue &catalogue, const char *classString, const Reading &reading, const ClassFit &fit,
            UomEntry &entry) {
    entry.scale = wide_Rounded(fit.fit.scale);
    ParsedChain chain(catalogue, classString);
    int32_t slot = 0;
    for (UomStruct node = chain.chain; node; node = node->next) {
        if (node_IsParenthesis(*node))
            continue;
        chain_SetUnit(catalogue, node, fit.fit.units[slot]);
        node->multiplier = fit.fit.multipliers[slot++];
    }
    uom_GetDisplayUnits(catalogue, chain.chain, entry.units, sizeof entry.units, STYLE_TOKEN);
    // Which the classical reader reads without a unit alone.
    if (chain.chain && chain.chain->baseClass == CLASS_DIMENSIONLESS)
        *entry.units = '\0';
    ParsedChain back(catalogue, classString);
    bool same = back.chain && chain_FillFromText(catalogue, back.chain, entry.units, STYLE_TOKEN) == UOM_DONE;
    for (UomStruct a = chain.chain, b = back.chain; same && a && b; a = a->next, b = b->next)
        same = (a->unit == b->unit && a->multiplier == b->multiplier) || a->baseClass == CLASS_DIMENSIONLESS;
    if (same && std::isfinite(entry.scale) && entry.scale != 0.0)
        return true;
    entry_Locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    return entry_Refuse(entry, "The catalogue has no text for these units of %s.", classString);
}

// --- a text of a given class, and of any

bool readGiven(const Catalogue &catalogue, const Words &words, const char *classString, const char *text, bool suggests,
               UomEntry &entry) {
    FoldedText folded; // superscripts as digits
    if (fold_Text(folded, classString))
        classString = folded.text;
    if (std::strlen(classString) >= sizeof entry.classString)
        return entry_Refuse(entry, "The class string is longer than any class string.");
    const int32_t classId = class_Find(catalogue, classString, STYLE_TOKEN);
    // Of a long name of several words the classical reader takes the first.
    if (const UomClassRow *row = class_ValidRow(catalogue, classId);
        row && str_EqualNoCase(row->name, classString) && !str_EqualNoCase(row->token, classString))
        classString = class_Token(catalogue, classId);
    str_CopyBounded(entry.classString, sizeof entry.classString, classString);
    Shape shape = shape_OfClass(words, classId);
    if (shape.count == 0) {
        ParsedChain chain(catalogue, classString);
        if (!chain.chain || uoms_IsClassValid(catalogue, classString) == 0) {
            if (const char *nearest = suggest_Class(catalogue, classString))
                str_CopyBounded(entry.suggestion, sizeof entry.suggestion, nearest);
            return entry_Refuse(entry, "\"%s\" is no class of quantities.", classString);
        }
        shape = shapeOfChain(catalogue, chain.chain, CLASS_NONE);
    }
    Reading reading;
    if (!entry_Read(catalogue, words, classId, text, false, reading, entry))
        return false;
    if (entry_HasNoUnits(reading))
        return true; // the units of Dimensionless
    if (reading.count == 0) {
        complain(catalogue, words, classString, text, reading, suggests, entry);
        return false;
    }
    if (shape.count == 0) {
        if (readClassically(catalogue, classString, reading, entry) ||
            readCounted(catalogue, words, classString, reading, entry))
            return true;
        tellClasses(catalogue, words, classString, reading, entry);
        return false;
    }
    const ClassFit fit = entry_Fit(catalogue, words, reading, shape);
    if (fit.ambiguous) {
        tellAmbiguous(reading, entry);
        return false;
    }
    if (fit.fit.kind != FitKind::NONE)
        return finish(catalogue, classString, reading, fit, entry);
    if (fit.fit.refusedGas) {
        tellGas(classString, reading, entry);
        return false;
    }
    const bool isKnown = tellClasses(catalogue, words, classString, reading, entry) > 0;
    tellParts(catalogue, words, classString, shape, reading, isKnown, suggests, entry);
    return false;
}

bool readAny(const Catalogue &catalogue, const Words &words, const char *text, bool suggests, UomEntry &entry) {
    Reading reading;
    if (!entry_Read(catalogue, words, CLASS_NONE, text, false, reading, entry))
        return false;
    if (reading.count == 0) {
        complain(catalogue, words, nullptr, text, reading, suggests, entry);
        return false;
    }
    Candidate best;
    if (findClasses(catalogue, words, reading, &best, 1) == 0) {
        tellClasses(catalogue, words, nullptr, reading, entry);
        return false;
    }
    if (best.fit.ambiguous) {
        tellAmbiguous(reading, entry);
        return false;
    }
    const char *token = class_Token(catalogue, best.classId);
    str_CopyBounded(entry.classString, sizeof entry.classString, token);
    return finish(catalogue, token, reading, best.fit, entry);
}

// Of a class, or of any where there is none.
bool readTyped(const Catalogue &catalogue, const Words &words, const char *classString, const char *text, bool suggests,
               UomEntry &entry) {
    if (classString ? readGiven(catalogue, words, classString, text, suggests, entry)
                    : readAny(catalogue, words, text, suggests, entry))
        return true;
    // A suggestion about the text, and not about the class, is to be read as it stands.
    if (suggests && *entry.suggestion && entry.length > 0) {
        UomEntry read;
        entry_Begin(read);
        if (!readTyped(catalogue, words, classString, entry.suggestion, false, read))
            *entry.suggestion = '\0';
    }
    return false;
}

} // namespace

int32_t uom_ReadEntry(const Catalogue &catalogue, const char *classString, const char *text, UomEntry *entry) {
    const bool any = str_IsEmpty(classString);
    if (text && entry && !any && canonical_Read(catalogue, classString, text, *entry))
        return UOM_DONE;
    if (entry)
        entry_Begin(*entry);
    if (!text || !entry) {
        error_Set("Invalid input arguments detected in function uom_ReadEntry().");
        if (entry)
            entry_Refuse(*entry, "There is no text to read.");
        return UOM_REFUSED;
    }
    const Words *words = words_Of(catalogue);
    if (!words) {
        entry_Refuse(*entry, "Memory is exhausted.");
        error_Set("%s", entry->message);
        return UOM_NO_MEMORY;
    }
    if (catalogue.units.count == 0) {
        entry_Refuse(*entry, "The catalogue holds no units: the library is not started.");
        error_Set("%s", entry->message);
        return UOM_REFUSED;
    }
    const bool read = readTyped(catalogue, *words, any ? nullptr : classString, text, true, *entry);
    str_MakeUtf8(entry->message);
    str_MakeUtf8(entry->suggestion);
    if (!read)
        error_Set("%s", entry->message);
    return read ? UOM_DONE : UOM_REFUSED;
}

UomTable *uom_GetEntryClasses(const Catalogue &catalogue, const char *text) {
    const Words *words = text ? words_Of(catalogue) : nullptr;
    UomTable *table = words ? table_Create(0, TABLE_TEXT) : nullptr;
    if (!table)
        return nullptr;
    Reading reading;
    UomEntry entry;
    entry_Begin(entry);
    if (!entry_Read(catalogue, *words, CLASS_NONE, text, false, reading, entry) || reading.count == 0)
        return table;
    constexpr int32_t MOST = 256;
    Candidate candidates[MOST];
    int32_t count = findClasses(catalogue, *words, reading, candidates, MOST);
    // Some read it by names of their own, which are something else elsewhere, or by the classical reader alone.
    for (int32_t c = CLASS_DIMENSIONLESS; c < catalogue.classes.count && count < MOST; ++c) {
        const bool known =
            std::any_of(candidates, candidates + count, [&](const auto &row) { return row.classId == c; });
        if (!known && class_IsOffered(catalogue, c))
            candidates[count++].classId = c;
    }
    for (int32_t i = 0; i < count; ++i) {
        const char *token = class_Token(catalogue, candidates[i].classId);
        if (uom_ReadEntry(catalogue, token, text, &entry) != UOM_DONE)
            continue;
        if (!table_PutText(table, TABLE_APPEND, token)) {
            table_Free(table);
            return nullptr;
        }
    }
    return table;
}

} // namespace uom
