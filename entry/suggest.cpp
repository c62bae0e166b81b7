#include "entry/suggest.h"

#include <algorithm>

#include "catalogue/class_table.h"
#include "support/best.h"
#include "support/text.h"

namespace uom {

namespace {

constexpr size_t LONGEST = Words::LENGTHS - 1;

size_t difference(size_t a, size_t b) {
    return a > b ? a - b : b - a;
}

bool hasMoreBits(uint32_t bits, int32_t most) {
    for (; bits != 0 && most > 0; --most)
        bits &= bits - 1;
    return bits != 0;
}

} // namespace

int32_t suggest_MostEdits(size_t length) {
    return length <= 2 ? 0 : length <= 5 ? 1 : 2;
}

int32_t suggest_Edits(std::string_view a, std::string_view b, int32_t most) {
    if (difference(a.size(), b.size()) > static_cast<size_t>(most) || a.size() > LONGEST || b.size() > LONGEST)
        return most + 1;
    // Only what is at most `most` off the diagonal can be that near; beside it stands what is too far.
    const size_t band = static_cast<size_t>(most);
    int32_t rows[3][LONGEST + 2];
    for (size_t j = 0; j <= std::min(band, b.size()); ++j)
        rows[0][j] = static_cast<int32_t>(j);
    rows[0][std::min(band, b.size()) + 1] = most + 1;
    for (size_t i = 1; i <= a.size(); ++i) {
        int32_t *row = rows[i % 3];
        const int32_t *above = rows[(i + 2) % 3], *twoAbove = rows[(i + 1) % 3];
        const size_t first = i > band ? i - band : 1, last = std::min(i + band, b.size());
        row[first - 1] = i > band ? most + 1 : static_cast<int32_t>(i);
        int32_t least = row[first - 1];
        const char x = str_Lower(a[i - 1]);
        for (size_t j = first; j <= last; ++j) {
            const char y = str_Lower(b[j - 1]);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (x == y ? 0 : 1)});
            if (i > 1 && j > 1 && x == str_Lower(b[j - 2]) && y == str_Lower(a[i - 2]))
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
            least = std::min(least, row[j]);
        }
        row[last + 1] = most + 1;
        if (least > most)
            return most + 1;
    }
    return std::min(rows[a.size() % 3][b.size()], most + 1);
}

void suggest_Names(const Words &words, std::string_view typed, Suggestions &suggestions) {
    const int32_t length = static_cast<int32_t>(std::min<size_t>(typed.size(), Words::LENGTHS));
    const int32_t most = suggest_MostEdits(typed.size());
    const uint32_t letters = words_Letters(typed);
    const auto isNearer = [](const Suggestion &a, const Suggestion &b) {
        return a.edits != b.edits ? a.edits < b.edits : a.place < b.place;
    };
    for (int32_t other = length - most; most > 0 && other <= std::min(length + most, Words::LENGTHS - 1); ++other) {
        for (int32_t i = words.firstOfLength[other]; i >= 0; i = words.names[i].nextOfLength) {
            const WordName &name = words.names[i];
            if (hasMoreBits(name.letters ^ letters, 2 * most) || str_Lower(name.text[0]) != str_Lower(typed[0]))
                continue;
            const int32_t edits = suggest_Edits(typed, {name.text, name.length}, most);
            if (edits <= most)
                best_Insert(suggestions.names, &suggestions.count, Suggestions::LIMIT, {name.text, edits, i}, isNearer);
        }
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
