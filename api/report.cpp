// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "report/report.h"
#include "uom/uom.h"

using uom::Scratch;
using uom::state_InUse;
using uom::state_Scratch;

int32_t uom_Dump(int32_t options, const char *path) {
    Scratch &scratch = state_Scratch();
    return uom::uom_Dump(state_InUse(scratch), scratch.running, options, path);
}
