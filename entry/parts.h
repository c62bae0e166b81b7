// What a text has and lacks of a class that it does not fit.
#ifndef UOM_ENTRY_PARTS_H
#define UOM_ENTRY_PARTS_H

#include "entry/reading.h"

namespace uom {

// The typed units at their places in a class, whatever their powers, each of at most one.
struct Parts {
    int32_t terms[Shape::LIMIT]; // of the first product, by slot; -1 where the text has none
    bool whole = false;          // each typed unit has a place
    int32_t wrongPower = -1;     // the first slot whose unit has another power
};
Parts parts_Of(const Catalogue &catalogue, const Reading &reading, const Shape &shape);

// A text of the class with the typed units, and the current ones where there is none; empty where that is none.
void parts_Suggest(const Catalogue &catalogue, const char *classString, const Reading &reading, const Parts &parts,
                   char *out, int32_t size);

} // namespace uom

#endif
