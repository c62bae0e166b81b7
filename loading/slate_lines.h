// The lines of a slate in a data file.
#ifndef UOM_LOADING_SLATE_LINES_H
#define UOM_LOADING_SLATE_LINES_H

#include <cstdint>
#include <string_view>

#include "catalogue/catalogue.h"
#include "conversion/running.h"

namespace uom {

// Slates have most of their lines in common ("Temp=C"), so what a line says is kept for the next one that says it.
struct KnownLine {
    static constexpr int32_t SLOTS = 4; // of a longer class a line is read each time
    std::string_view text;              // of the file; empty: the place is free
    int32_t classId;
    int32_t units[SLOTS];
    int32_t multipliers[SLOTS];
};

struct KnownLines {
    static constexpr uint32_t PLACES = 512;
    KnownLine lines[PLACES];
    int32_t classes; // how many there were: a new one may be what a name means from then on
};

// Applies the lines of a slate in their order; an error in one does not stop the next. The last line, which is the
// keyword that ends the slate, is passed over. 11 when memory is exhausted. The text must outlive `known`.
int32_t slatelines_Apply(Catalogue &catalogue, Running &running, const char *slateName, std::string_view text,
                         KnownLines &known);

} // namespace uom

#endif
