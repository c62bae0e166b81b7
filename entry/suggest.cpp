#include "entry/suggest.h"

#include <algorithm>
#include <bit>

#include "catalogue/class_table.h"
#include "support/best.h"
#include "support/text.h"

namespace uom {

namespace {

constexpr size_t LONGEST = 63;

size_t difference(size_t a, size_t b) {
    return a > b ? a - b : b - a;
}

} // namespace

int32_t suggest_MostEdits(size_t length) {
    return length <= 2 ? 0 : length <= 5 ? 1 : 2;
}

int32_t suggest_Edits(std::string_view a, std::string_view b, int32_t most) {
    if (difference(a.size(), b.size()) > static_cast<size_t>(most) || a.size() > LONGEST || b.size() > LONGEST)
        return most + 1;
    int32_t rows[3][LONGEST + 1] = {};
    for (size_t j = 0; j <= b.size(); ++j)
        rows[0][j] = static_cast<int32_t>(j);
    for (size_t i = 1; i <= a.size(); ++i) {
        int32_t *row = rows[i % 3];
        const int32_t *above = rows[(i + 2) % 3], *twoAbove = rows[(i + 1) % 3];
        row[0] = static_cast<int32_t>(i);
        int32_t least = row[0];
        for (size_t j = 1; j <= b.size(); ++j) {
            const char x = str_Lower(a[i - 1]), y = str_Lower(b[j - 1]);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (x == y ? 0 : 1)});
            if (i > 1 && j > 1 && x == str_Lower(b[j - 2]) && y == str_Lower(a[i - 2]))
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
            least = std::min(least, row[j]);
        }
        if (least > most)
            return most + 1;
    }
    return rows[a.size() % 3][b.size()];
}

void suggest_Names(const Words &words, std::string_view typed, Suggestions &suggestions) {
    const int32_t most = suggest_MostEdits(typed.size());
    const uint32_t letters = words_Letters(typed);
    for (uint32_t i = 0; most > 0 && i < words.nameCount; ++i) {
        const WordName &name = words.names[i];
        if (difference(name.length, typed.size()) > static_cast<size_t>(most) ||
            std::popcount(name.letters ^ letters) > 2 * most)
            continue;
        const int32_t edits = suggest_Edits(typed, {name.text, name.length}, most);
        if (edits <= most)
            best_Insert(suggestions.names, &suggestions.count, Suggestions::LIMIT, {name.text, edits},
                        [](const Suggestion &a, const Suggestion &b) { return a.edits < b.edits; });
    }
}

const char *suggest_Class(const Catalogue &catalogue, std::string_view typed) {
    const char *nearest = nullptr;
    int32_t most = suggest_MostEdits(typed.size());
    for (int32_t c = CLASS_DIMENSIONLESS; c < catalogue.classes.count; ++c) {
        if (!class_IsOffered(catalogue, c))
            continue;
        const UomClassRow &row = *class_Row(catalogue, c);
        for (const char *text : {row.token, row.altToken, row.name}) {
            const int32_t edits = text ? suggest_Edits(typed, text, most) : most + 1;
            if (edits > most || (nearest && edits == most))
                continue;
            nearest = row.token;
            most = edits;
        }
    }
    return nearest;
}

} // namespace uom
