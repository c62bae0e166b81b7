// Checked heap memory. Every block of the library comes from here, results are integers, nothing aborts.
#ifndef UOM_SUPPORT_MEMORY_H
#define UOM_SUPPORT_MEMORY_H

#include <cstddef>
#include <cstdint>

namespace uom {

// Counters of one thread. The library reads the failures alone, to tell a start-up that is not whole.
struct MemoryCounters {
    int32_t allocations; // mem_Malloc, mem_DupText, mem_ReplaceText, and mem_Realloc of an empty slot
    int32_t frees;       // mem_Free and mem_ReplaceText, where something was freed
    int32_t failures;    // requests that found the memory exhausted
};
MemoryCounters &mem_Counters(); // of the calling thread

// The one source of memory, with the contract of realloc. A test puts a failing one here.
extern void *(*memReallocate)(void *block, size_t size);

// An uninitialised block. 0, or 1 with a null result when memory is exhausted.
int32_t mem_Malloc(void **out, size_t size);

// A zeroed block; count or size 0 succeeds and leaves null. Not counted. 0, or 1 when exhausted.
int32_t mem_Calloc(void **out, size_t count, size_t size);

// Resizes the block in the slot, or allocates one for an empty slot. On 1 the slot keeps the old block.
int32_t mem_Realloc(void **slot, size_t size);

// Null-safe. The caller's slot is not cleared.
void mem_Free(const void *block);

// A heap copy of the text, or null for null text. 0, or 11 with a null result when exhausted.
int32_t mem_DupText(char **out, const char *text);

// Puts a copy of the text (or null) into the slot and then frees what stood there, so the text may lie inside
// the old one. 0, or 11 with a null slot when exhausted.
int32_t mem_ReplaceText(const char **slot, const char *text);

inline int32_t mem_ReplaceText(char **slot, const char *text) {
    const char *value = *slot;
    const int32_t status = mem_ReplaceText(&value, text);
    *slot = const_cast<char *>(value);
    return status;
}

// The same, but on 11 the slot keeps its text.
int32_t mem_ExchangeText(const char **slot, const char *text);
inline int32_t mem_ExchangeText(char **slot, const char *text) {
    const char *value = *slot;
    const int32_t status = mem_ExchangeText(&value, text);
    *slot = const_cast<char *>(value);
    return status;
}

// Tells whether a request of this thread for memory failed since it was made: the operations below this one may have gone on with
// less, and what they gave is not to be used.
struct MemoryWatch {
    int32_t failures = mem_Counters().failures;
    bool exhausted() const { return mem_Counters().failures != failures; }
};

// A zeroed record of the type, or null.
template <class Record> Record *mem_New() {
    void *block = nullptr;
    mem_Calloc(&block, 1, sizeof(Record));
    return static_cast<Record *>(block);
}

// An uninitialised array, or null.
template <class Element> Element *mem_NewArray(size_t count) {
    void *block = nullptr;
    mem_Malloc(&block, count * sizeof(Element));
    return static_cast<Element *>(block);
}

} // namespace uom

#endif
