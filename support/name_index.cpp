
#include "support/name_index.h"

#include <algorithm>

#include "support/memory.h"
#include "support/text.h"

namespace uom {

bool names_Reset(NameIndex &index, uint32_t names) {
    names_Free(index);
    uint32_t size = 64;
    while (size < 2 * names)
        size *= 2;
    index.places = mem_NewArray<int32_t>(size);
    index.mask = size - 1;
    index.count = 0;
    index.lengths = 0;
    if (index.places)
        std::fill_n(index.places, size, PLACE_FREE);
    return index.places != nullptr;
}

void names_Free(NameIndex &index) {
    mem_Free(index.places);
    index.places = nullptr;
}

uint32_t names_Hash(std::string_view name) {
    uint32_t hash = 2166136261u;
    for (const char c : name)
        hash = (hash ^ static_cast<uint8_t>(str_Lower(c))) * 16777619u;
    return hash;
}

void names_Remove(NameIndex &index, std::string_view name, int32_t number) {
    if (!index.places)
        return;
    int32_t &place = index.places[names_Search(index, name, [=](int32_t other) { return other == number; })];
    if (place != PLACE_FREE)
        place = PLACE_LEFT;
}

} // namespace uom
