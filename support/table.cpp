
#include "support/table.h"

#include <cmath>
#include <bit>
#include <cstring>

#include "conversion/kernel_bodies.h"
#include "conversion/prepared.h"
#include "support/memory.h"
#include "support/numbers.h"
#include "support/text_array.h"

namespace uom {

static const uint32_t widths[TABLE_KINDS] = {1, 1, 8, 2, 2, 4, 4, 8, 8, 4, 8, 8};

// Conversions from the double currency, defined for every value.
static int64_t toSigned64(double value) {
    return value >= -0x1p63 && value < 0x1p63 ? static_cast<int64_t>(value) : INT64_MIN;
}

static int32_t toSigned32(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int32_t>(value) : INT32_MIN;
}

static uint64_t toUnsigned64(double value) {
    if (value >= 0x1p63 && value < 0x1p64)
        return static_cast<uint64_t>(value);
    return static_cast<uint64_t>(toSigned64(value));
}

static void *toPointer(double value) {
    return reinterpret_cast<void *>(static_cast<uintptr_t>(toUnsigned64(value)));
}

static double ofPointer(const void *pointer) {
    return static_cast<double>(reinterpret_cast<uintptr_t>(pointer));
}

static bool ownsElements(const UomTable *table) {
    return table->kind == TABLE_TEXT || table->kind == TABLE_OWNED;
}

static char *element(const UomTable *table, uint32_t index) {
    return static_cast<char *>(table->data) + static_cast<size_t>(index) * table->width;
}

template <class Element> static double readAs(const UomTable *table, uint32_t index) {
    Element value;
    std::memcpy(&value, element(table, index), sizeof value);
    return static_cast<double>(value);
}

template <class Element> static void writeAs(UomTable *table, uint32_t index, Element value) {
    std::memcpy(element(table, index), &value, sizeof value);
}

static void freeElements(UomTable *table, uint32_t first, uint32_t count) {
    if (!ownsElements(table))
        return;
    for (uint32_t i = 0; i < count; ++i)
        mem_Free(table_Record<void>(table, int64_t{first} + i));
}

// The block of a table has room for as many elements as the next power of two, so that one that grows an element at a
// time moves seldom. Never looked at behind the count.
static size_t roomOf(uint32_t count) {
    return std::bit_ceil(size_t{count});
}

static int32_t resizeBlock(UomTable *table, uint32_t count) {
    if (table->data && roomOf(count) == roomOf(table->count))
        return 0;
    return mem_Realloc(&table->data, roomOf(count) * table->width);
}

UomTable *table_Create(uint32_t count, int32_t kind) {
    if (kind < 0 || kind >= TABLE_KINDS)
        return nullptr;
    void *block = nullptr;
    if (mem_Malloc(&block, sizeof(UomTable)) != 0)
        return nullptr;
    UomTable *table = static_cast<UomTable *>(block);
    *table = {count, widths[kind], kind, nullptr};
    if (mem_Calloc(&table->data, count > 0 ? roomOf(count) : 0, table->width) != 0) {
        mem_Free(table);
        return nullptr;
    }
    return table;
}

void table_Free(UomTable *table) {
    if (!table)
        return;
    freeElements(table, 0, table->count);
    mem_Free(table->data);
    mem_Free(table);
}

UomTable *table_Copy(const UomTable *table) {
    if (!table)
        return nullptr;
    UomTable *copy = table_Create(table->count, table->kind);
    if (!copy)
        return nullptr;
    for (uint32_t i = 0; i < table->count; ++i) {
        table_Store(copy, i, table_Get(table, i), 1);
        if (table->kind == TABLE_TEXT && table_GetText(table, i) && !table_GetText(copy, i)) {
            table_Free(copy);
            return nullptr;
        }
    }
    return copy;
}

double table_Get(const UomTable *table, uint32_t index) {
    if (!table || index >= table->count)
        return 0.0;
    switch (table->kind) {
    case TABLE_INT8:
    case TABLE_UINT8:
        return readAs<int8_t>(table, index);
    case TABLE_INT16:
    case TABLE_UINT16:
        return readAs<int16_t>(table, index);
    case TABLE_INT32:
    case TABLE_UINT32:
        return readAs<int32_t>(table, index);
    case TABLE_TEXT:
    case TABLE_INT64:
    case TABLE_UINT64:
    case TABLE_OWNED:
        return readAs<int64_t>(table, index);
    case TABLE_FLOAT:
        return readAs<float>(table, index);
    case TABLE_DOUBLE:
        return readAs<double>(table, index);
    default:
        return 0.0;
    }
}

char *table_GetText(const UomTable *table, uint32_t index) {
    return static_cast<char *>(table_GetPointer(table, index));
}

void *table_GetPointer(const UomTable *table, uint32_t index) {
    return toPointer(table_Get(table, index));
}

static void storeText(UomTable *table, uint32_t index, const char *text) {
    char *copy = nullptr;
    mem_DupText(&copy, text);
    mem_Free(table_GetPointer(table, index));
    writeAs(table, index, reinterpret_cast<uintptr_t>(copy));
}

void table_Store(UomTable *table, uint32_t index, double value, int32_t owning) {
    if (!table || !table->data)
        return;
    switch (table->kind) {
    case TABLE_INT8:
    case TABLE_UINT8:
        return writeAs(table, index, static_cast<int8_t>(toSigned32(value)));
    case TABLE_INT16:
    case TABLE_UINT16:
        return writeAs(table, index, static_cast<int16_t>(toSigned32(value)));
    case TABLE_INT32:
        return writeAs(table, index, toSigned32(value));
    case TABLE_UINT32:
        return writeAs(table, index, static_cast<uint32_t>(toSigned64(value)));
    case TABLE_TEXT:
        if (owning)
            return storeText(table, index, static_cast<const char *>(toPointer(value)));
        return writeAs(table, index, toUnsigned64(value));
    case TABLE_INT64:
        return writeAs(table, index, toSigned64(value));
    case TABLE_UINT64:
        return writeAs(table, index, toUnsigned64(value));
    case TABLE_FLOAT:
        return writeAs(table, index, static_cast<float>(value));
    case TABLE_DOUBLE:
        return writeAs(table, index, value);
    case TABLE_OWNED:
        if (owning && table_GetPointer(table, index) != toPointer(value))
            mem_Free(table_GetPointer(table, index));
        return writeAs(table, index, toSigned64(value));
    default:
        return;
    }
}

// The one road of the three puts. An exhausted memory leaves the table as it was.
static int32_t put(UomTable *table, uint32_t index, double value) {
    if (!table)
        return 0;
    if (index == TABLE_APPEND)
        index = table->count;
    if (index == TABLE_APPEND)
        return 0;
    char *copy = nullptr;
    const bool text = table->kind == TABLE_TEXT;
    if (text && mem_DupText(&copy, static_cast<const char *>(toPointer(value))) != 0)
        return 0;
    if (index >= table->count && !table_Resize(table, index + 1)) {
        mem_Free(copy);
        return 0;
    }
    if (!text) {
        table_Store(table, index, value, 1);
        return 1;
    }
    mem_Free(table_GetPointer(table, index));
    table_Store(table, index, ofPointer(copy), 0);
    return 1;
}

int32_t table_PutNumber(UomTable *table, uint32_t index, double value) {
    return put(table, index, value);
}

int32_t table_PutText(UomTable *table, uint32_t index, const char *text) {
    return put(table, index, ofPointer(text));
}

int32_t table_PutPointer(UomTable *table, uint32_t index, uint64_t value) {
    return put(table, index, static_cast<double>(value));
}

// A smaller block of a table that owns its elements: those cut off are freed only once the block is there.
static int32_t shrinkOwner(UomTable *table, uint32_t count) {
    void *smaller = nullptr;
    if (mem_Malloc(&smaller, roomOf(count) * table->width) != 0)
        return 1;
    std::memcpy(smaller, table->data, static_cast<size_t>(count) * table->width);
    freeElements(table, count, table->count - count);
    mem_Free(table->data);
    table->data = smaller;
    return 0;
}

static void emptyTable(UomTable *table) {
    freeElements(table, 0, table->count);
    mem_Free(table->data);
    table->data = nullptr;
    table->count = 0;
}

int32_t table_Resize(UomTable *table, uint32_t count) {
    if (!table)
        return 0;
    if (count == 0) {
        emptyTable(table);
        return 1;
    }
    const uint32_t old = table->count;
    const bool cutsOwned = count < old && ownsElements(table);
    if ((cutsOwned ? shrinkOwner(table, count) : resizeBlock(table, count)) != 0)
        return 0;
    table->count = count;
    if (count > old)
        std::memset(element(table, old), 0, static_cast<size_t>(count - old) * table->width);
    return 1;
}

void table_Remove(UomTable *table, uint32_t index, uint32_t n) {
    if (!table || index >= table->count || n == 0)
        return;
    if (n > table->count - index)
        n = table->count - index;
    freeElements(table, index, n);
    const uint32_t kept = table->count - n;
    if (kept > index)
        std::memmove(element(table, index), element(table, index + n),
                     static_cast<size_t>(kept - index) * table->width);
    // What moved down or was freed stands no second time, also when the block cannot shrink.
    std::memset(element(table, kept), 0, static_cast<size_t>(n) * table->width);
    if (kept == 0)
        emptyTable(table);
    else if (resizeBlock(table, kept) == 0)
        table->count = kept;
}

void table_Insert(UomTable *table, uint32_t index, uint32_t n) {
    if (!table || n == 0)
        return;
    if (index > table->count) {
        if (index == TABLE_APPEND || !table_Resize(table, index + 1))
            return;
        const uint32_t first = n < index ? index - n : 0;
        freeElements(table, first, index - first + 1);
        std::memset(element(table, first), 0, (static_cast<size_t>(index - first) + 1) * table->width);
        return;
    }
    const uint32_t old = table->count;
    if (n > TABLE_APPEND - old || !table_Resize(table, old + n))
        return;
    std::memmove(element(table, index + n), element(table, index), static_cast<size_t>(old - index) * table->width);
    std::memset(element(table, index), 0, static_cast<size_t>(n) * table->width);
}

int32_t table_Find(const UomTable *table, double value) {
    for (uint32_t i = 0; i < table_Count(table); ++i)
        if (table_Compare(table, table_Get(table, i), value) == 0)
            return static_cast<int32_t>(i);
    return -1;
}

template <class Number> static int32_t order(Number a, Number b) {
    return a == b ? 0 : a > b ? 1 : -1;
}

static int32_t orderTexts(const char *a, const char *b) {
    if (!a || !b)
        return order(a != nullptr, b != nullptr);
    return order(std::strcmp(a, b), 0);
}

int32_t table_Compare(const UomTable *table, double a, double b) {
    if (!table)
        return 0;
    switch (table->kind) {
    case TABLE_INT8:
        return order(static_cast<int8_t>(toSigned32(a)), static_cast<int8_t>(toSigned32(b)));
    case TABLE_UINT8:
        return order(static_cast<uint8_t>(toSigned32(a)), static_cast<uint8_t>(toSigned32(b)));
    case TABLE_TEXT:
        return orderTexts(static_cast<const char *>(toPointer(a)), static_cast<const char *>(toPointer(b)));
    case TABLE_INT16:
        return order(static_cast<int16_t>(toSigned32(a)), static_cast<int16_t>(toSigned32(b)));
    case TABLE_UINT16:
        return order(static_cast<uint16_t>(toSigned32(a)), static_cast<uint16_t>(toSigned32(b)));
    case TABLE_INT32:
    case TABLE_INT64:
        return order(static_cast<int32_t>(toSigned64(a)), static_cast<int32_t>(toSigned64(b)));
    case TABLE_UINT32:
    case TABLE_UINT64:
    case TABLE_OWNED:
        return order(static_cast<uint32_t>(toUnsigned64(a)), static_cast<uint32_t>(toUnsigned64(b)));
    case TABLE_FLOAT:
        if (num_EqualF(static_cast<float>(a), static_cast<float>(b)))
            return 0;
        return a > b ? 1 : -1;
    case TABLE_DOUBLE:
        if (num_Equal(a, b))
            return 0;
        return a > b ? 1 : -1;
    default:
        return 0;
    }
}

static void sortWithGap(UomTable *table, uint32_t gap) {
    for (uint32_t i = gap; i < table->count; ++i) {
        const double moving = table_Get(table, i);
        uint32_t place = i;
        for (; place >= gap && table_Compare(table, table_Get(table, place - gap), moving) > 0; place -= gap)
            table_Store(table, place, table_Get(table, place - gap), 0);
        table_Store(table, place, moving, 0);
    }
}

void table_Sort(UomTable *table) {
    if (table_Count(table) < 2)
        return;
    uint64_t gap = 1;
    if (table->count >= 20) {
        // The series 1, 4, 13, 40, 121: up to the count, then two steps back.
        gap = 40;
        while (gap < uint64_t{table->count} - 1)
            gap = 3 * gap + 1;
        gap = gap / 3 / 3;
    }
    for (; gap > 0; gap /= 3)
        sortWithGap(table, static_cast<uint32_t>(gap));
}

char **table_ToTextArray(const UomTable *table) {
    if (table_Count(table) == 0 || table->kind != TABLE_TEXT)
        return nullptr;
    // An element without a text would end the array, so it becomes an empty one.
    return texts_Make(table->count, [=](size_t i) { return table_GetText(table, static_cast<uint32_t>(i)); });
}

void table_FreeTextArray(char **texts) {
    if (!texts)
        return;
    for (char **text = texts; *text; ++text)
        mem_Free(*text);
    mem_Free(texts);
}

} // namespace uom
