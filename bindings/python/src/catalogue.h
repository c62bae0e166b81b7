// The type Catalogue, as far as it calls the library; the Python class over it has the rest.
#ifndef UOM_PYTHON_CATALOGUE_H
#define UOM_PYTHON_CATALOGUE_H

#include "python.h"

struct CatalogueObject {
    PyObject_HEAD UomCatalogue *catalogue; // null once it is closed
    bool started;
    uint64_t changes;   // so many since it was made
    PyObject *prepared; // conversions by (from, to, quantity), at most MOST_PREPARED; emptied by each change
    PyObject *origin;   // what it takes to make it again, a tuple of the Python side's
};

// Starts a catalogue that is not started yet. Throws ErrorIsSet, for a closed one too.
void makeReady(CatalogueObject &self);

// Runs a call of the library in a catalogue and returns its result. REQUIRES: the call touches no object of Python's. The
// making and the freeing of one may run any code, in which another thread could come to change or close the catalogue.
template <class Call> auto within(CatalogueObject &self, Call &&call) {
    struct InUse {
        UomCatalogue *const before;
        ~InUse() { uom_UseCatalogue(before); }
    };
    makeReady(self);
    const InUse inUse = {uom_UseCatalogue(self.catalogue)};
    return call();
}

#endif
