// An open hash from names, without regard to case, to the numbers of what bears them. Only the first of those that bear
// one name is in it, so a look-up answers as a walk from the start would, and a thousand of one name cost no more than
// a thousand of different ones.
//
// Invariants
//   1. Numbers are added in ascending order. What is taken out again is the last, so that none behind it was left out
//      on its account; any other change makes the index anew.
//   2. At most half of the places are in use or were: every search ends soon, at a free one.
//   3. Without memory there is no index, and a look-up walks.
#ifndef UOM_SUPPORT_NAME_INDEX_H
#define UOM_SUPPORT_NAME_INDEX_H

#include <cassert>
#include <cstdint>
#include <string_view>

namespace uom {

constexpr int32_t PLACE_FREE = -1;
constexpr int32_t PLACE_LEFT = -2; // what stood here was taken out

struct NameIndex {
    int32_t *places = nullptr; // numbers, PLACE_FREE or PLACE_LEFT; null is an index that does not stand
    uint32_t mask = 0;
    uint32_t count = 0;   // places in use, and left ones
    uint64_t lengths = 0; // a bit for each length of a name that was added, the last for all longer ones
};

// The bit of a name's length: most texts that are asked for are no names, and this tells it of most.
inline uint64_t names_LengthBit(std::string_view name) {
    return uint64_t{1} << (name.size() < 63 ? name.size() : 63);
}

// Makes the index anew, empty, with room for so many names. False, and no index, when memory is exhausted.
bool names_Reset(NameIndex &index, uint32_t names);
void names_Free(NameIndex &index);

uint32_t names_Hash(std::string_view name);

// The place of the first number under the name for which `bears(number)` holds, else the free place where the search
// ends. REQUIRES: the index stands.
template <class Bears> uint32_t names_Search(const NameIndex &index, std::string_view name, Bears bears) {
    assert(index.places && 2 * index.count <= index.mask + 1); // so that a free place ends the search
    uint32_t place = names_Hash(name) & index.mask;
    while (index.places[place] != PLACE_FREE && (index.places[place] < 0 || !bears(index.places[place])))
        place = (place + 1) & index.mask;
    return place;
}

// Adds a number, unless one that `bears` the name is there. False when the index does not stand or has no room left.
template <class Bears> bool names_Add(NameIndex &index, std::string_view name, int32_t number, Bears bears) {
    if (!index.places || 2 * index.count > index.mask)
        return false;
    int32_t &place = index.places[names_Search(index, name, bears)];
    if (place != PLACE_FREE)
        return true;
    index.lengths |= names_LengthBit(name);
    place = number;
    ++index.count;
    return true;
}

// Takes a number out that was added under the name; nothing happens when it was left out.
void names_Remove(NameIndex &index, std::string_view name, int32_t number);

// The first number under the name for which `bears(number)` holds, -1 when there is none. Without an index all numbers
// below `count` are asked in turn.
template <class Bears> int32_t names_Find(const NameIndex &index, std::string_view name, int32_t count, Bears bears) {
    if (index.places)
        return (index.lengths & names_LengthBit(name)) == 0 ? -1 : index.places[names_Search(index, name, bears)];
    for (int32_t i = 0; i < count; ++i)
        if (bears(i))
            return i;
    return -1;
}

} // namespace uom

#endif
