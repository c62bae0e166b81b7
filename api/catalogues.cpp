// Catalogues of a host's own, and which of them a thread works on.
#include <new>

#include "api/state.h"
#include "catalogue/catalogue.h"
#include "loading/startup.h"
#include "support/memory.h"
#include "uom/catalogue.h"

using uom::Scratch;

struct UomCatalogue : uom::Catalogue {};

UomCatalogue *uom_NewCatalogue(void) {
    void *block = nullptr;
    return uom::mem_Malloc(&block, sizeof(UomCatalogue)) == 0 ? new (block) UomCatalogue : nullptr;
}

UomCatalogue *uom_UseCatalogue(UomCatalogue *catalogue) {
    Scratch &scratch = uom::state_Scratch();
    UomCatalogue *before = static_cast<UomCatalogue *>(scratch.inUse);
    scratch.inUse = catalogue;
    return before;
}

void uom_FreeCatalogue(UomCatalogue *catalogue) {
    if (!catalogue)
        return;
    Scratch &scratch = uom::state_Scratch();
    if (scratch.inUse == catalogue)
        scratch.inUse = nullptr;
    uom::startup_End(*catalogue);
    uom::mem_Free(catalogue);
}
