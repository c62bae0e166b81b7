// uom_cost TEXT N: gives the library one text of a size that grows with N, once, and ends. How many instructions that takes
// is counted from outside, by cost.sh: twice the text may take twice as many, and not four times.
//   uom_cost            names the texts
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

#include "uom/catalogue.h"
#include "uom/conversion.h"
#include "uom/entry.h"

namespace {

std::string repeated(const std::string &piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

// The pieces "head0tail", "head1tail" and so on.
std::string numbered(const char *head, const char *tail, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += head + std::to_string(i) + tail;
    return text;
}

void fill(const char *classes, const std::string &units) {
    UomStruct chain = uoms_New(classes);
    uom_FillStructFromString(chain, units.c_str(), UOM_STYLE_TOKEN);
    uom_Free(&chain);
}

void parse(const std::string &classes) {
    UomStruct chain = uoms_New(classes.c_str());
    uom_Free(&chain);
}

void read(const char *classes, const std::string &text) {
    UomEntry entry;
    uom_ReadEntry(classes, text.c_str(), &entry);
}

void start(const std::string &data) {
    UomCatalogue *const own = uom_NewCatalogue();
    uom_UseCatalogue(own);
    uom_InitText(data.data(), data.size(), 0, nullptr);
    uom_FreeCatalogue(own);
}

// Units with a list of their own; classes; slates, each based on the one before it.
std::string unitData(int n) {
    return "BEGINUOMLIST\n" + numbered("u", " U \"a unit\" 0 0 1.5\n", n) + "ENDUOMLIST\nBEGINLIST\nMass\n" +
           numbered("u", "\n", n) + "ENDLIST\n";
}

// A number in letters, since digits are exponents in names of classes.
std::string letters(int number) {
    std::string text;
    for (; number > 0; number /= 26)
        text += static_cast<char>('a' + number % 26);
    return text + "q";
}

std::string classData(int n) {
    std::string data = "BEGINUOMLIST\nENDUOMLIST\nBEGINCLASSLIST\n";
    for (int i = 0; i < n; ++i)
        data += "C" + letters(i) + "=Mass / Area\n";
    return data + "ENDCLASSLIST\n";
}

std::string slateData(int n) {
    std::string data = "BEGINUOMLIST\nkg KG \"Kilogram\" 0 0 1\nENDUOMLIST\nBEGINLIST\nMass\nkg\nENDLIST\n";
    for (int i = 0; i < n; ++i)
        data += "BEGINSLATE\nS" + letters(i) + "\nMass=kg\nENDSLATE\n";
    return data;
}

void define(const std::string &text) {
    UomTable *const lines = tbl_Create(0, UOM_KIND_TEXT);
    for (size_t begin = 0, end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
        tbl_PutText(lines, UOM_APPEND, text.substr(begin, end - begin).c_str());
    uoms_NewSet("Plant");
    uoms_PutSetDefinition("Plant", lines);
    tbl_Free(lines);
}

void alias(const std::string &text) {
    UomEntry entry;
    uom_ReadAliasText(text.data(), text.size());
    uom_ReadEntry("Mass", "1 kg", &entry); // makes the index
}

const struct Text {
    const char *name;
    int size; // the N that shows how it grows: enough to outweigh what does not
    void (*give)(int n);
    bool shipped = false; // in the shipped catalogue, and not in a small one, which starts faster
} texts[] = {
    {"units-blanks", 8000, [](int n) { fill("Leng", std::string(static_cast<size_t>(n), ' ') + "m"); }},
    {"units-parentheses", 8000, [](int n) { fill("Leng", repeated("()", n) + "m"); }},
    {"units-open", 8000, [](int n) { fill("(Leng Mass) 2", repeated("(m", n)); }},
    {"units-quotients", 8000, [](int n) { fill("Density", repeated("lb/", n)); }},
    {"units-letters", 20000, [](int n) { fill("Leng", repeated("x", n)); }},
    {"classes-names", 8000, [](int n) { parse(repeated("Pres ", n)); }},
    {"classes-blanks", 20000, [](int n) { parse("Leng" + repeated(" ", n) + "2"); }},
    {"classes-parentheses", 20000, [](int n) { parse(repeated("(", n)); }},
    {"classes-quotes", 20000, [](int n) { parse(repeated("'", n)); }},
    {"classes-letters", 20000, [](int n) { parse(repeated("x", n)); }},
    {"data-units", 4000, [](int n) { start(unitData(n)); }},
    {"data-classes", 1000, [](int n) { start(classData(n)); }},
    {"data-slates", 1000, [](int n) { start(slateData(n)); }},
    {"data-comments", 20000, [](int n) { start(repeated("// a comment\n", n)); }},
    {"data-one-line", 50000, [](int n) { start(repeated("a", n)); }},
    {"slate-lines", 2000, [](int n) { define("[Plant]\nBasedOn=SI\n" + repeated("Temp=C\nDensity=lb/ft3\n", n)); }},
    {"slate-unknown", 4000, [](int n) { define("[Plant]\n" + numbered("x", "=y\n", n)); }},
    {"slate-long-line", 20000, [](int n) { define("[Plant]\nTemp=" + repeated("x", n) + "\n"); }},
    {"aliases-lines", 2000, [](int n) { alias(numbered("name", "q = 14 lb\n", n)); }},
    {"aliases-same", 2000, [](int n) { alias(repeated("name = 14 lb\n", n)); }},
    {"aliases-long-name", 20000, [](int n) { alias(repeated("x", n) + " = lb\n"); }},
    {"aliases-long-text", 4000, [](int n) { alias("x = " + repeated("lb/", n) + "lb\n"); }},
    {"entry-product", 10, [](int n) { read("", "1 " + repeated("m-kg/", n) + "m"); }, true},
    {"entry-refused", 4000, [](int n) { read("", repeated("qx-", n)); }, true},
    {"entry-letters", 4000, [](int n) { read("Pres", repeated("k", n)); }, true},
    {"entry-parentheses", 4000, [](int n) { read("Leng", repeated("(", n) + "m" + repeated(")", n)); }, true},
    {"entry-number", 4000, [](int n) { read("Leng", repeated("1", n) + " m"); }, true},
    {"entry-classes", 4000, [](int n) { read(repeated("Leng ", n).c_str(), "1 m"); }, true},
    {"search-words", 500, [](int n) { tbl_Free(uom_Search(repeated("pound ", n).c_str(), 5)); }, true},
};

} // namespace

int main(int count, char **words) {
    if (count < 3) {
        for (const Text &text : texts)
            std::printf("%s %d\n", text.name, text.size);
        return 0;
    }
    const Text *const text = std::find_if(std::begin(texts), std::end(texts),
                                          [&](const Text &one) { return std::strcmp(one.name, words[1]) == 0; });
    if (text == std::end(texts)) {
        std::fprintf(stderr, "uom_cost: no text is called %s\n", words[1]);
        return 1;
    }
    const char *const start[] = {"-f", text->shipped ? UOM_BENCH_DATA : UOM_BENCH_SMALL_DATA};
    if (uom_Init2(2, start) != 0) {
        std::fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    text->give(std::atoi(words[2]));
    return 0;
}
