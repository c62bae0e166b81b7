// The few best of many.
#ifndef UOM_SUPPORT_BEST_H
#define UOM_SUPPORT_BEST_H

#include <algorithm>
#include <cstdint>

namespace uom {

// Puts a row into a list of the best ones, the best first, behind those that are as good; the worst falls out when there
// are more than `most`.
template <class Row, class IsBetter>
void best_Insert(Row *rows, int32_t *count, int32_t most, const Row &row, IsBetter isBetter) {
    int32_t place = *count;
    while (place > 0 && isBetter(row, rows[place - 1]))
        --place;
    if (place == most)
        return;
    *count = std::min(*count + 1, most);
    std::move_backward(rows + place, rows + *count - 1, rows + *count);
    rows[place] = row;
}

} // namespace uom

#endif
