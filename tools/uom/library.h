// The library as the tool uses it: owners for what it hands out, texts as std::string, failures as
// exceptions.
#ifndef UOM_TOOL_LIBRARY_H
#define UOM_TOOL_LIBRARY_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "uom/uom.h"

constexpr int32_t FIRST_CLASS = 3; // 1 and 2 are the parentheses

struct ChainDeleter {
    void operator()(UomStructNode *chain) const { uom_Free(&chain); }
};
using Chain = std::unique_ptr<UomStructNode, ChainDeleter>;

struct TableDeleter {
    void operator()(UomTable *table) const { tbl_Free(table); }
};
using Table = std::unique_ptr<UomTable, TableDeleter>;

// The last-error text.
std::string libraryMessage();

// The same behind a call that was refused: a class string with no class in it ("", "/") leaves no message.
std::string refusalMessage();

// A chain for a class string; throws the library's message.
Chain newChain(const std::string &classString);

// Throws unless there is such a slate.
int32_t slateNumber(const std::string &name);

// A table of texts from and to lines. A null table gives no lines.
Table textTable(const std::vector<std::string> &lines);
std::vector<std::string> textLines(const UomTable *table);

std::string classText(int32_t classId, int32_t style);
std::string unitText(int32_t unit, int32_t style);

// What a slate itself states for a class or property, empty when nothing.
std::string statedDefault(const std::string &slate, const std::string &className);

// The name of the parent of a slate.
std::string slateParent(const std::string &slate);

// What is wrong with the value of a slate's property that the library would take without a word; empty when nothing.
std::string propertyFault(const std::string &property, const std::string &value);

#endif
