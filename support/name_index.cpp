#include "support/name_index.h"

#include <cstring>

#include "support/memory.h"
#include "support/text.h"

bool names_Reset(NameIndex &index, uint32_t names) {
    names_Free(index);
    uint32_t size = 64;
    while (size < 2 * names)
        size *= 2;
    index.places = mem_NewArray<int32_t>(size);
    index.mask = size - 1;
    index.count = 0;
    if (index.places)
        std::memset(index.places, -1, size * sizeof *index.places);
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

bool names_Add(NameIndex &index, std::string_view name, int32_t number) {
    // Half of the places stay free, so that every search ends soon.
    if (!index.places || 2 * index.count > index.mask)
        return false;
    uint32_t place = names_Hash(name) & index.mask;
    while (index.places[place] >= 0)
        place = (place + 1) & index.mask;
    index.places[place] = number;
    ++index.count;
    return true;
}
