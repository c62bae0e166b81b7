#include "entry/search.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "entry/suggest.h"
#include "entry/entry.h"
#include "entry/words.h"
#include "slates/lists.h"
#include "slates/slate_display.h"
#include "support/best.h"
#include "support/memory.h"
#include "support/table.h"
#include "support/text.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

// How near a row is to the words: the sum over the words, the lower the nearer.
enum Nearness : int32_t {
    WHOLE = 0, // a word is the whole token, keyword or name
    WHOLE_NO_CASE = 1,
    WORD = 4, // one of the words of a text
    HEAD = 8, // a word begins with it
    PART = 16,
    MISSPELT = 32, // and the edits
    FAR = 1000
};

bool isOfWord(char c) {
    return str_IsLetter(c) || str_IsDigit(c);
}

bool isWordStart(std::string_view text, size_t place) {
    return place == 0 || !isOfWord(text[place - 1]);
}

bool isWordEnd(std::string_view text, size_t place) {
    return place >= text.size() || !isOfWord(text[place]);
}

int32_t nearnessOf(std::string_view text, std::string_view word) {
    if (text == word)
        return WHOLE;
    if (str_EqualNoCase(text, word))
        return WHOLE_NO_CASE;
    int32_t best = FAR;
    for (size_t place = 0; place + word.size() <= text.size(); ++place) {
        if (!str_StartsNoCase(str_Behind(text, place), word))
            continue;
        const bool start = isWordStart(text, place);
        best = std::min(best, start && isWordEnd(text, place + word.size()) ? int32_t{WORD}
                              : start                                       ? int32_t{HEAD}
                                                                            : int32_t{PART});
    }
    return best;
}

struct Row {
    const char *kind, *classToken, *token, *description, *keyword;
    int32_t nearness = FAR;
};

struct Search {
    const Catalogue &catalogue;
    std::string_view words;
    bool misspelt; // one word that may be so
    Row *rows;     // the nearest first
    int32_t most;
    int32_t count = 0;
};

std::string_view takeWord(std::string_view &words) {
    while (!words.empty() && words.front() == ' ')
        words.remove_prefix(1);
    const std::string_view word = str_Head(words, std::min(words.find(' '), words.size()));
    words.remove_prefix(word.size());
    return word;
}

// All words are to be found, each in one of the texts of the row.
int32_t nearnessOfRow(const Search &search, const Row &row) {
    std::string_view words = search.words;
    const char *const texts[] = {row.token, row.keyword, row.description};
    int32_t sum = FAR;
    for (const char *text : texts)
        if (text && *text)
            sum = std::min(sum, nearnessOf(text, words));
    if (sum <= WHOLE_NO_CASE)
        return sum;
    sum = 2;
    for (std::string_view word = takeWord(words); !word.empty(); word = takeWord(words)) {
        int32_t best = FAR;
        for (const char *text : texts) {
            if (!text || !*text)
                continue;
            best = std::min(best, nearnessOf(text, word));
            if (search.misspelt && best > PART) {
                const int32_t most = suggest_MostEdits(word.size());
                const int32_t edits = suggest_Edits(text, word, most);
                best = edits <= most ? std::min(best, MISSPELT + edits) : best;
            }
        }
        if (best >= FAR)
            return FAR;
        sum += best;
    }
    return sum;
}

void offer(Search &search, Row row) {
    row.nearness = nearnessOfRow(search, row);
    if (row.nearness >= FAR)
        return;
    best_Insert(search.rows, &search.count, search.most, row,
                [](const Row &a, const Row &b) { return a.nearness < b.nearness; });
}

void offerClasses(Search &search) {
    for (int32_t c = CLASS_DIMENSIONLESS; c < search.catalogue.classes.count; ++c) {
        if (!class_IsOffered(search.catalogue, c))
            continue;
        const UomClassRow &row = *class_Row(search.catalogue, c);
        offer(search, {"class", row.token, row.token, row.name, row.keyword});
    }
}

void offerUnits(Search &search) {
    for (int32_t unit = 1; unit < search.catalogue.units.count; ++unit)
        if (const UomUnit *record = unit_Record(search.catalogue, unit))
            offer(search, {"unit", nullptr, record->token, record->description, record->keyword});
}

void offerAliases(Search &search, const Words &words) {
    for (int32_t i = 0; i < words.aliasCount; ++i)
        offer(search, {"alias", nullptr, words.aliases[i].name, words.aliases[i].unitText, nullptr});
}

void offerSlates(Search &search) {
    for (int32_t slate = 1; slate < uom_GetSetCount(search.catalogue); ++slate)
        if (const UomSlate *record = slate_AnyRecord(search.catalogue, slate); record && !record->isHidden)
            offer(search, {"slate", "", record->name, record->basedOn, nullptr});
}

const char *classOfName(const Catalogue &catalogue, const char *name, UomEntry &entry) {
    return name && uom_ReadEntry(catalogue, nullptr, name, &entry) == UOM_DONE ? entry.classString : "";
}

// What nobody has named may still be understood.
bool putTyped(const Search &search, UomTable *table) {
    char typed[256], text[1024];
    UomEntry entry;
    str_CopyBounded(typed, sizeof typed, search.words);
    if (search.words.size() >= sizeof typed || uom_ReadEntry(search.catalogue, nullptr, typed, &entry) != UOM_DONE ||
        !std::isnan(entry.value))
        return true;
    char scale[32] = "";
    if (entry.scale != 1.0)
        str_FormatBounded(scale, sizeof scale, "%.15g ", entry.scale);
    str_FormatBounded(text, sizeof text, "text\t%s\t%s\t%s%s", entry.classString, typed, scale, entry.units);
    return table_PutText(table, TABLE_APPEND, text);
}

UomTable *tableOf(const Search &search) {
    UomTable *table = table_Create(0, TABLE_TEXT);
    for (int32_t i = 0; table && i < search.count; ++i) {
        const Row &row = search.rows[i];
        char text[512];
        UomEntry entry;
        const char *classToken = row.classToken ? row.classToken : classOfName(search.catalogue, row.token, entry);
        str_FormatBounded(text, sizeof text, "%s\t%s\t%s\t%s", row.kind, classToken, row.token ? row.token : "",
                          row.description ? row.description : "");
        if (!table_PutText(table, TABLE_APPEND, text)) {
            table_Free(table);
            return nullptr;
        }
    }
    if (table && search.count == 0 && !putTyped(search, table)) {
        table_Free(table);
        return nullptr;
    }
    return table;
}

} // namespace

UomTable *uom_Search(const Catalogue &catalogue, const char *words, int32_t most) {
    constexpr int32_t LARGEST = 1000;
    const Words *known = words ? words_Of(catalogue) : nullptr;
    if (!known)
        return nullptr;
    const std::string_view wanted = str_Trimmed(words);
    most = std::clamp(most, 0, LARGEST);
    constexpr size_t LONGEST = 255; // of words that anything may be found by
    if (wanted.empty() || wanted.size() > LONGEST || most == 0)
        return table_Create(0, TABLE_TEXT);
    Row *rows = mem_NewArray<Row>(static_cast<size_t>(most));
    if (!rows)
        return nullptr;
    Search search = {catalogue, wanted, wanted.find(' ') == std::string_view::npos, rows, most};
    offerClasses(search);
    offerUnits(search);
    offerAliases(search, *known);
    offerSlates(search);
    UomTable *table = tableOf(search);
    mem_Free(rows);
    return table;
}

namespace {

bool holds(const UomTable *table, const char *text) {
    for (uint32_t i = 0; i < table_Count(table); ++i)
        if (std::strcmp(table_GetText(table, i), text) == 0)
            return true;
    return false;
}

// What the slates have for a class without a list of its own.
bool putSlateUnits(const Catalogue &catalogue, const char *classString, UomTable *table) {
    for (int32_t slate = 1; slate < uom_GetSetCount(catalogue); ++slate) {
        const UomSlate *record = slate_AnyRecord(catalogue, slate);
        char units[256] = "";
        if (!record || record->isHidden || !record->name)
            continue;
        uoms_GetDisplayUnits(catalogue, classString, record->name, units, sizeof units, STYLE_TOKEN);
        UomEntry entry;
        if (!*units || holds(table, units) || uom_ReadEntry(catalogue, classString, units, &entry) != UOM_DONE)
            continue;
        if (!table_PutText(table, TABLE_APPEND, units))
            return false;
    }
    return true;
}

} // namespace

UomTable *uom_GetChoices(const Catalogue &catalogue, const char *classString) {
    if (str_IsEmpty(classString))
        return nullptr;
    const MemoryWatch memory;
    const int32_t classId = class_Find(catalogue, classString, STYLE_TOKEN);
    if (!class_IsValid(catalogue, classId) && !uoms_IsClassValid(catalogue, classString))
        return nullptr;
    UomTable *table = table_Create(0, TABLE_TEXT);
    int32_t count = 0;
    char **texts = table ? uoms_GetUOMList(catalogue, classString, &count) : nullptr;
    bool whole = table != nullptr;
    for (int32_t i = 0; whole && texts && i < count; ++i)
        whole = table_PutText(table, TABLE_APPEND, texts[i]) != 0;
    uoms_FreeArray(texts);
    whole = whole && (count > 0 || putSlateUnits(catalogue, classString, table));
    if (whole && !memory.exhausted()) // the list of units does not say it
        return table;
    table_Free(table);
    return nullptr;
}

namespace {

// The tokens of the classes that an alias is bound to, with blanks between.
void writeClasses(const Catalogue &catalogue, const Alias &alias, TextWriter &writer) {
    for (int32_t i = 0; i < Alias::CLASSES && alias.classes[i]; ++i) {
        str_Write(writer, i > 0 ? " " : "");
        str_Write(writer, class_Token(catalogue, alias.classes[i]));
    }
}

} // namespace

UomTable *uom_GetAliases(const Catalogue &catalogue) {
    const Words *words = words_Of(catalogue);
    UomTable *table = words ? table_Create(0, TABLE_TEXT) : nullptr;
    bool whole = table != nullptr;
    for (int32_t i = words ? words->aliasCount - 1 : -1; whole && i >= 0; --i) {
        const Alias &alias = words->aliases[i];
        char text[512];
        TextWriter writer(text, sizeof text);
        for (const char *part : {alias.name, "\t", alias.unitText, "\t"})
            str_Write(writer, part);
        writeClasses(catalogue, alias, writer);
        whole = table_PutText(table, TABLE_APPEND, text) != 0;
    }
    if (whole)
        return table;
    table_Free(table);
    return nullptr;
}

} // namespace uom
