#include "nearest.h"

#include <algorithm>

#include "text.h"

namespace {

// Where a word is as long as this, more than a few changes make another word of it, and nobody waits for its distances.
constexpr size_t LONGEST = 64;

size_t changesFor(size_t length) {
    return length < 3 ? 0 : length < 6 ? 1 : length < 10 ? 2 : 3;
}

// Optimal string alignment, row by row of the table.
size_t distance(const std::string &a, const std::string &b) {
    std::vector<size_t> before, last(b.size() + 1), row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        last[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        before = last;
        last = row;
    }
    return last[b.size()];
}

} // namespace

std::string nearestName(const std::string &word, const std::vector<std::string> &names) {
    if (word.size() > LONGEST)
        return "";
    const std::string wanted = lowerCase(word);
    size_t least = changesFor(word.size()) + 1;
    std::string nearest;
    for (const std::string &name : names) {
        const size_t apart = std::max(name.size(), word.size()) - std::min(name.size(), word.size());
        if (apart >= least)
            continue;
        const size_t changes = distance(wanted, lowerCase(name));
        if (changes < least)
            nearest = name;
        least = std::min(least, changes);
    }
    return nearest;
}

std::string didYouMean(const std::string &word, const std::vector<std::string> &names) {
    const std::string name = nearestName(word, names);
    return name.empty() ? "" : " Did you mean \"" + name + "\"?";
}
