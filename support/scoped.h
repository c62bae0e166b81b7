// What must be put back or freed on every way out of a block.
#ifndef UOM_SUPPORT_SCOPED_H
#define UOM_SUPPORT_SCOPED_H

#include "support/memory.h"
#include "support/table.h"
#include "uom/uom.h"

namespace uom {

// Sets a variable for the life of a block.
template <class T> struct ScopedValue {
    T &variable;
    T saved;
    ScopedValue(T &target, T value) : variable(target), saved(target) { target = value; }
    ~ScopedValue() { variable = saved; }
    ScopedValue(const ScopedValue &) = delete;
    ScopedValue &operator=(const ScopedValue &) = delete;
};

// A table that lives as long as the block.
struct ScopedTable {
    UomTable *table;
    explicit ScopedTable(UomTable *owned) : table(owned) {}
    ~ScopedTable() { table_Free(table); }
    ScopedTable(const ScopedTable &) = delete;
    ScopedTable &operator=(const ScopedTable &) = delete;
};

// Room for a text of known size: on the stack when it is short, from the heap otherwise. `text` is null when
// memory is exhausted.
struct ScratchText {
    char local[256];
    char *text;
    explicit ScratchText(size_t size) : text(size <= sizeof local ? local : mem_NewArray<char>(size)) {}
    ~ScratchText() {
        if (text != local)
            mem_Free(text);
    }
    ScratchText(const ScratchText &) = delete;
    ScratchText &operator=(const ScratchText &) = delete;
};

} // namespace uom

#endif
