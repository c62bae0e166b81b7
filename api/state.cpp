#include "api/state.h"

#include "catalogue/slate_table.h"
#include "uom/uom.h"

int32_t UOM_NULL = 0;
int32_t UOM_BASMOLE = 0;
int32_t UOM_BASMASS = 0;
int32_t UOM_BASLIQV = 0;
int32_t UOM_BASVAPV = 0;
int32_t UOM_BASACTV = 0;

int32_t UOM_SET_NULL = 0;
int32_t UOM_SET_ENGLISH = 0;
int32_t UOM_SET_METRIC = 0;
int32_t UOM_SET_SI = 0;
int32_t UOM_SET_INTERNAL = 0;
int32_t UOM_SET_OXINTERNAL = 0;
int32_t UOM_SET_CURRENT = 0;
int32_t UOM_SET_MAX = 0;

namespace uom {

static Catalogue defaultCatalogue;
static thread_local Scratch threadScratch;

Scratch &state_Scratch() {
    return threadScratch;
}

Catalogue &state_InUse(const Scratch &scratch) {
    return scratch.inUse ? *scratch.inUse : defaultCatalogue;
}

Catalogue &state_InUse() {
    return state_InUse(threadScratch);
}

Catalogue &state_Default() {
    return defaultCatalogue;
}

void state_Mirror(const Catalogue &catalogue) {
    if (&catalogue != &defaultCatalogue)
        return;
    UOM_BASMOLE = catalogue.named.UOM_BASMOLE;
    UOM_BASMASS = catalogue.named.UOM_BASMASS;
    UOM_BASLIQV = catalogue.named.UOM_BASLIQV;
    UOM_BASVAPV = catalogue.named.UOM_BASVAPV;
    UOM_BASACTV = catalogue.named.UOM_BASACTV;
    UOM_SET_ENGLISH = catalogue.slateIndex.english;
    UOM_SET_METRIC = catalogue.slateIndex.metric;
    UOM_SET_SI = catalogue.slateIndex.si;
    UOM_SET_INTERNAL = catalogue.slateIndex.internal;
    UOM_SET_OXINTERNAL = catalogue.slateIndex.oxInternal;
    UOM_SET_CURRENT = catalogue.slateIndex.current;
    UOM_SET_MAX = uom_GetSetCount(catalogue);
}

} // namespace uom
