
#include "support/memory.h"

#include <cstdlib>
#include <cstring>

namespace uom {

static thread_local MemoryCounters counters = {0, 0, 0};
void *(*memReallocate)(void *, size_t) = std::realloc;

MemoryCounters &mem_Counters() {
    return counters;
}

// A size of 0 would free a block, and leave its slot dangling.
static void *allocate(void *block, size_t size) {
    void *result = memReallocate(block, size > 0 ? size : 1);
    if (!result)
        ++counters.failures;
    return result;
}

int32_t mem_Malloc(void **out, size_t size) {
    *out = allocate(nullptr, size);
    if (!*out)
        return 1;
    ++counters.allocations;
    return 0;
}

int32_t mem_Calloc(void **out, size_t count, size_t size) {
    *out = nullptr;
    if (count == 0 || size == 0)
        return 0;
    if (count > SIZE_MAX / size)
        return 1;
    *out = allocate(nullptr, count * size);
    if (!*out)
        return 1;
    std::memset(*out, 0, count * size);
    return 0;
}

int32_t mem_Realloc(void **slot, size_t size) {
    if (!*slot)
        return mem_Malloc(slot, size);
    void *moved = allocate(*slot, size);
    if (!moved)
        return 1;
    *slot = moved;
    return 0;
}

void mem_Free(const void *block) {
    if (!block)
        return;
    std::free(const_cast<void *>(block));
    ++counters.frees;
}

int32_t mem_DupText(char **out, const char *text) {
    *out = nullptr;
    if (!text)
        return 0;
    const size_t size = std::strlen(text) + 1;
    void *copy = nullptr;
    if (mem_Malloc(&copy, size) != 0)
        return 11;
    *out = static_cast<char *>(std::memcpy(copy, text, size));
    return 0;
}

int32_t mem_ExchangeText(const char **slot, const char *text) {
    char *copy = nullptr;
    if (mem_DupText(&copy, text) != 0)
        return 11;
    mem_Free(*slot);
    *slot = copy;
    return 0;
}

int32_t mem_ReplaceText(const char **slot, const char *text) {
    const char *old = *slot;
    char *copy = nullptr;
    const int32_t status = mem_DupText(&copy, text);
    *slot = copy;
    mem_Free(old);
    return status;
}

} // namespace uom
