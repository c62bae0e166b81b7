#include "csv_convert.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <fast_float/fast_float.h>

#include "csv.h"
#include "text.h"

namespace {

constexpr double NO_VALUE = -1e35; // numbers below it pass through conversions

struct Number {
    const char *begin, *end;
    double value;
};

bool isCellEnd(const char *at, const char *end, char separator) {
    return at == end || *at == separator || *at == '\n' || *at == '\r';
}

// Reads a cell that is a number and nothing else, without looking for its end first. False for all others, of which
// some are numbers too. fast_float has infinity for what is too large.
bool readPlainCell(const char *at, const char *end, char separator, Number &number) {
    const auto [rest, error] = fast_float::from_chars(at, end, number.value);
    number.begin = at;
    number.end = rest;
    return error == std::errc() && isCellEnd(rest, end, separator) && std::isfinite(number.value);
}

bool hasValue(double value) {
    return value >= NO_VALUE; // not for NaN
}

void addBadCell(CsvBlock &block, const BadCell &cell) {
    if (block.badCells++ < SHOWN_BAD_CELLS)
        block.firstBadCells.push_back(cell);
}

// The first pass: finds the numbers.
class BlockReader {
public:
    BlockReader(const CsvRules &rules, CsvBlock &block)
        : rules_(rules), block_(block), end_(block.in.data() + block.in.size()),
          hasQuotes_(block.in.find('"') != std::string_view::npos),
          hasReturns_(block.in.find('\r') != std::string_view::npos) {}

    void readRows() {
        const char *row = block_.in.data();
        for (const char *at = row; at != end_; ++block_.rows) {
            row = at;
            at = behindRowEnd(readRow(at), end_);
        }
        block_.endsOpen = hasQuotes_ && hasOpenQuote({row, static_cast<size_t>(end_ - row)}, rules_.separator);
    }

private:
    // Where the row ends that starts at `at`.
    const char *readRow(const char *at) {
        const char *const row = at;
        size_t column = 0;
        for (size_t target = 0; target < rules_.targets.size(); ++target, ++column) {
            for (; column < rules_.targets[target].column; ++column) {
                at = cellEnd(at, end_, rules_.separator);
                if (isRowEnd(at, end_))
                    return missCells(row, at, target);
                ++at;
            }
            at = readCell(at, target);
            if (isRowEnd(at, end_))
                return missCells(row, at, target + 1);
            ++at;
        }
        return passCells(at);
    }

    // A row that ends in front of a target. An empty one may.
    const char *missCells(const char *row, const char *at, size_t target) {
        if (target == rules_.targets.size() || trimmed({row, static_cast<size_t>(at - row)}).empty())
            return at;
        for (; target < rules_.targets.size(); ++target)
            addBadCell(block_, {block_.rows, target, BadCell::NO_CELL, ""});
        return at;
    }

    const char *passCells(const char *at) const {
        if (!hasQuotes_)
            return plainRowEnd(at, end_, hasReturns_);
        for (;; ++at) {
            at = cellEnd(at, end_, rules_.separator);
            if (isRowEnd(at, end_))
                return at;
        }
    }

    const char *readCell(const char *at, size_t target) {
        Number number;
        if (readPlainCell(at, end_, rules_.separator, number)) {
            keep(number, target);
            return number.end;
        }
        const char *behind = cellEnd(at, end_, rules_.separator);
        readOddCell(cellContent({at, static_cast<size_t>(behind - at)}), target);
        return behind;
    }

    void readOddCell(std::string_view content, size_t target) {
        if (content.empty())
            return;
        const auto value = parseNumber(content);
        if (value)
            return keep({content.data(), content.data() + content.size(), *value}, target);
        addBadCell(block_, {block_.rows, target, BadCell::NO_NUMBER, std::string(content)});
    }

    void keep(const Number &number, size_t target) {
        if (!hasValue(number.value))
            return;
        const char *text = block_.in.data();
        block_.places.push_back({static_cast<uint32_t>(number.begin - text), static_cast<uint32_t>(number.end - text),
                                 static_cast<uint32_t>(target)});
        block_.values[target].push_back(number.value);
    }

    const CsvRules &rules_;
    CsvBlock &block_;
    const char *const end_;
    const bool hasQuotes_, hasReturns_;
};

void clear(const CsvRules &rules, CsvBlock &block) {
    block.rows = block.badCells = 0;
    block.firstBadCells.clear();
    block.places.clear();
    block.values.resize(rules.targets.size());
    for (auto &values : block.values)
        values.clear();
}

void convertValues(const CsvRules &rules, CsvBlock &block) {
    for (size_t i = 0; i < rules.targets.size(); ++i) {
        std::vector<double> &values = block.values[i];
        if (!values.empty())
            uom_ConvertMany(rules.targets[i].conversion.get(), values.data(), values.data(), values.size());
    }
}

// The row of a place in the text.
size_t rowAt(const CsvRules &rules, const CsvBlock &block, size_t place) {
    size_t row = 0;
    for (size_t behind = rowLength(block.in, rules.separator); behind <= place; ++row)
        behind += rowLength(block.in.substr(behind), rules.separator);
    return row;
}

// Numbers that have no finite result stay, with a word on those that are finite themselves.
void leaveWithoutResult(const CsvRules &rules, CsvBlock &block, const CsvBlock::Place &place, size_t &found) {
    const std::string_view text = block.in.substr(place.begin, place.end - place.begin);
    const auto value = parseNumber(text);
    if (!value || !std::isfinite(*value))
        return;
    ++block.badCells;
    if (found++ < SHOWN_BAD_CELLS)
        block.firstBadCells.push_back(
            {rowAt(rules, block, place.begin), place.target, BadCell::NO_RESULT, std::string(text)});
}

void sortBadCells(CsvBlock &block) {
    std::vector<BadCell> &cells = block.firstBadCells;
    std::stable_sort(cells.begin(), cells.end(), [](const BadCell &a, const BadCell &b) { return a.row < b.row; });
    cells.resize(std::min(cells.size(), SHOWN_BAD_CELLS));
}

void reserve(CsvBlock &block, size_t size) {
    if (size <= block.outCapacity)
        return;
    block.out = std::make_unique_for_overwrite<char[]>(size);
    block.outCapacity = size;
}

// The last pass: the text with the new numbers in place of the old ones.
void writeRows(const CsvRules &rules, CsvBlock &block) {
    reserve(block, block.in.size() + block.places.size() * LONGEST_NUMBER_TEXT);
    std::vector<const double *> next;
    for (const auto &values : block.values)
        next.push_back(values.data());
    char *to = block.out.get();
    size_t from = 0, withoutResult = 0;
    const auto copyUntil = [&](size_t end) { to = std::copy_n(block.in.data() + from, end - from, to); };
    for (const CsvBlock::Place &place : block.places) {
        const double value = *next[place.target]++;
        if (!std::isfinite(value)) {
            leaveWithoutResult(rules, block, place, withoutResult);
            continue;
        }
        copyUntil(place.begin);
        to = writeNumber(to, value, rules.digits);
        from = place.end;
    }
    if (withoutResult > 0)
        sortBadCells(block);
    copyUntil(block.in.size());
    block.outSize = static_cast<size_t>(to - block.out.get());
}

} // namespace

void convertBlock(const CsvRules &rules, CsvBlock &block) {
    clear(rules, block);
    BlockReader(rules, block).readRows();
    convertValues(rules, block);
    writeRows(rules, block);
}
