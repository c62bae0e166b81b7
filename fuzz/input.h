// What the targets share: an input cut into lines or into numbers, and the catalogue of the tests.
#ifndef UOM_FUZZ_INPUT_H
#define UOM_FUZZ_INPUT_H

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "uom/catalogue.h"
#include "uom/uom.h"

// Cuts the first line off.
inline std::string takeLine(std::string &text) {
    const std::string line = text.substr(0, text.find('\n'));
    text.erase(0, line.size() + 1);
    return line;
}

inline std::string contents(const char *path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// A few classes, units and slates: starts in a fraction of the time that the shipped file takes.
inline const std::string &smallData() {
    static const std::string text = contents(UOM_FUZZ_SMALL_DATA);
    return text;
}

// Starts the library with the shipped file, once for all inputs.
inline int startShipped() {
    const char *words[] = {"-f", UOM_FUZZ_DATA};
    return uom_Init2(2, words);
}

// An input of three lines, a class and two texts, which may miss.
struct ClassAndTexts {
    std::string classes, from, to;
    ClassAndTexts(const uint8_t *data, size_t size) {
        std::string text(reinterpret_cast<const char *>(data), size);
        classes = takeLine(text);
        from = takeLine(text);
        to = takeLine(text);
    }
};

// Bytes taken one after another; zeros when there are none left.
struct Bytes {
    const uint8_t *at, *end;
    bool empty() const { return at == end; }
    uint8_t byte() { return empty() ? uint8_t{0} : *at++; }
    int32_t number() { return static_cast<int8_t>(byte()); }
    uint32_t below(uint32_t count) { return byte() % count; }
    template <class Element, size_t count> const Element &oneOf(const Element (&table)[count]) {
        return table[below(static_cast<uint32_t>(count))];
    }
    std::string text(size_t length) {
        std::string taken;
        while (taken.size() < length && !empty())
            taken += static_cast<char>(byte());
        return taken;
    }
};

inline void demand(bool held) {
    if (!held)
        std::abort();
}

#endif
