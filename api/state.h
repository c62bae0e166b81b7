// The process-wide state of the library, all of it, and what each thread has of its own.
//
// Thread safety
//   A thread's scratch is its own. The default catalogue, and the exported variables that mirror it, are in the hands of
//   whoever calls: what a call does to them, its comment in uom.h says.
#ifndef UOM_API_STATE_H
#define UOM_API_STATE_H

#include "catalogue/catalogue.h"
#include "conversion/running.h"
#include "uom/uom.h"

namespace uom {

// Where the chain that was appended to last ends, so that a chain made node by node costs no walk for each. It counts
// as long as no chain was freed or linked anew since, in any thread.
struct KnownEnd {
    UomStruct head = nullptr;
    UomStruct tail = nullptr;
    uint64_t round = 0; // of the ends known
};

// What one thread's calls leave behind, its message apart.
struct Scratch {
    Catalogue *inUse = nullptr; // null for the default one
    Running running;
    KnownEnd knownEnd;
};

// Of the calling thread. Fetch it once a call: behind a late-loaded library each fetch is a call of the system's.
Scratch &state_Scratch();

// The catalogue that the calling thread works on.
Catalogue &state_InUse();
Catalogue &state_InUse(const Scratch &scratch);

Catalogue &state_Default();

// Makes the exported variables tell what the catalogue is, when it is the default one.
void state_Mirror(const Catalogue &catalogue);

} // namespace uom

#endif
