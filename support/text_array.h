// Arrays of text as they are handed out: ended by a null pointer, the array and each text blocks of their own, freed by
// table_FreeTextArray.
#ifndef UOM_SUPPORT_TEXT_ARRAY_H
#define UOM_SUPPORT_TEXT_ARRAY_H

#include <cstring>

#include "support/memory.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

// `count` texts, each made by textOf(i), whose null is an empty text; in blocks of this size where one is given. Null when
// memory is exhausted.
template <class TextOf> char **texts_Make(size_t count, TextOf textOf, size_t blockSize = 0) {
    void *block = nullptr;
    if (mem_Calloc(&block, count + 1, sizeof(char *)) != 0)
        return nullptr;
    char **texts = static_cast<char **>(block);
    for (size_t i = 0; i < count; ++i) {
        const char *text = textOf(i);
        const size_t size = blockSize > 0 ? blockSize : std::strlen(text ? text : "") + 1;
        texts[i] = mem_NewArray<char>(size);
        if (!texts[i]) {
            table_FreeTextArray(texts);
            return nullptr;
        }
        str_CopyBounded(texts[i], size, text);
    }
    return texts;
}

} // namespace uom

#endif
