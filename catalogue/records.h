// The records that the unit table and the slate table hold.
#ifndef UOM_CATALOGUE_RECORDS_H
#define UOM_CATALOGUE_RECORDS_H

#include <cstdint>

#include "uom/uom.h"

namespace uom {

// One unit line of the data file. A value x in the unit is (x + offset) * factor in base units.
struct UomUnit {
    int32_t index;     // place in the unit table; 0 is the placeholder that means no unit
    const char *token; // the texts stand behind the record, or are constants of the library
    const char *keyword;
    const char *description;
    int32_t multiplierStyle; // 1: "M BBL"; any other: "k*m3"
    double offset;           // used only in classes whose hasOffset is set
    double factor;
};

constexpr double STANDARD_ATMOSPHERE = 101.325; // kPa

// A named set of default units. Its number is its place in the slate table.
struct UomSlate {
    char *name;
    char *basedOn;            // name of the parent, its own name for a root
    char *gaugePresBasisText; // own basis in kPa as text, or null
    double gaugePresBasis;    // kPa; negative sends the reader to the parent
    int32_t isSystem;
    int32_t isHidden;
    int32_t allowDelete;
    int32_t allowModify;
    UomTable *classDefaults;     // pairs: element 2c the unit of class c, 2c + 1 its multiplier
    UomTable *compositeDefaults; // element c: null, or the pairs of composite class c in slot order
};

} // namespace uom

#endif
