// An open hash from names, without regard to case, to the numbers of what bears them. The first number added
// under a name is found first, so a look-up answers as a walk from the start would.
#ifndef UOM_SUPPORT_NAME_INDEX_H
#define UOM_SUPPORT_NAME_INDEX_H

#include <cstdint>
#include <string_view>

struct NameIndex {
    int32_t *places = nullptr; // -1 marks a free one; null is an index that does not stand
    uint32_t mask = 0;
    uint32_t count = 0;
};

// Makes the index anew, empty, with room for so many names. False, and no index, when memory is exhausted.
bool names_Reset(NameIndex &index, uint32_t names);
void names_Free(NameIndex &index);

// False when the index does not stand or has no room left.
bool names_Add(NameIndex &index, std::string_view name, int32_t number);

uint32_t names_Hash(std::string_view name);

// The first number under the name for which `bears(number)` holds, -1 when there is none.
template <class Bears> int32_t names_Find(const NameIndex &index, std::string_view name, Bears bears) {
    uint32_t place = names_Hash(name) & index.mask;
    for (; index.places[place] >= 0; place = (place + 1) & index.mask)
        if (bears(index.places[place]))
            return index.places[place];
    return -1;
}

#endif
