// A library started for a test, with the shipped data file or with a text that stands beside the test.
#ifndef UOM_TESTS_LIBRARY_FIXTURE_H
#define UOM_TESTS_LIBRARY_FIXTURE_H

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "api/state.h"
#include "catalogue/class_table.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/text.h"
#include "uom/uom.h"
#include "uomstruct/chain.h"

using namespace uom;

// The catalogue that is under test: the default one.
inline Catalogue &catalogue() {
    return state_Default();
}

// What the conversions of this thread leave behind.
inline Running &running() {
    return state_Scratch().running;
}

// Values as one text, blanks between.
template <class... Values> std::string joined(const Values &...values) {
    std::ostringstream text;
    ((text << values << ' '), ...);
    return text.str().substr(0, text.str().size() - 1);
}

// A table of cases: one a line, or more with ";" between, their cells parted by "|" and trimmed. "~" is a
// blank; "\n", "\t" and "\r" are what they are in code, "\2" and "\3" the superscripts of Latin-1. The answer to
// the cells of a case must be its last cell, but for blanks at its end.
using Cells = std::vector<std::string>;
inline void expectAnswers(const std::string &table, const std::function<std::string(const Cells &)> &answer) {
    std::string cell;
    Cells cells;
    for (size_t i = 0; i < table.size(); ++i) {
        const char c = table[i], *const marks = "ntr23", *const mark = std::strchr(marks, table[i + 1]);
        if (c == '\\' && table[++i] != '\0') {
            cell += mark ? "\n\t\r\xB2\xB3"[mark - marks] : table[i];
        } else if (c != '|' && c != ';' && c != '\n') {
            cell += c;
        } else {
            const size_t begin = cell.find_first_not_of(' '), end = cell.find_last_not_of(' ');
            cells.push_back(begin == std::string::npos ? "" : cell.substr(begin, end - begin + 1));
            std::replace(cells.back().begin(), cells.back().end(), '~', ' ');
            cell.clear();
            if (c != '|' && cells.size() > 1) {
                std::string given = answer(cells);
                given.erase(given.find_last_not_of(' ') + 1);
                EXPECT_EQ(given, cells.back()) << "for \"" << cells[0] << "\" \"" << cells[1] << "\"";
            }
            if (c != '|')
                cells.clear();
        }
    }
}

class LibraryTest : public testing::Test {
public:
    using Words = std::vector<const char *>;
    using Lines = std::vector<std::string>;

    static std::string lastError() { return uom_GetLastErrorMessage(); }
    static int32_t unitOf(const char *token) { return uom_GetUnitType(token); }
    static int32_t classOf(const char *token) { return uom_GetClassType(token, 1); }
    static std::string unitText(int32_t unit, int32_t style = 1) {
        char out[128] = "";
        uom_GetUnitText(unit, out, sizeof out, style);
        return out;
    }
    static std::string stated(const char *slate, const char *className) {
        char out[256] = "#";
        uoms_GetClassDefault(slate, className, out, sizeof out);
        return out;
    }
    static std::string resolved(const char *slate, const char *className) {
        char out[256] = "#";
        return uoms_GetDisplayUnits(className, slate, out, sizeof out, 1);
    }
    static bool state(const char *slate, const char *className, const char *value) {
        return uoms_SetClassDefault(slate, className, value) == 0;
    }
    static int32_t newSlate(const char *name, const char *parent) {
        uoms_NewSet(name);
        return uoms_PutSetBasedOn(name, parent);
    }
    static Lines takeLines(UomTable *table) {
        Lines lines(table ? 0 : 1, "null");
        for (uint32_t i = 0; table && i < table->count; ++i)
            lines.emplace_back(tbl_GetText(table, i));
        tbl_Free(table);
        return lines;
    }
    static UomTable *tableOf(const Lines &texts) {
        UomTable *table = tbl_Create(0, UOM_KIND_TEXT);
        for (const std::string &text : texts)
            tbl_PutText(table, 0xFFFFFFFF, text.c_str());
        return table;
    }
    static std::string display(UomStruct chain, int32_t style = 1, int32_t size = 256) {
        std::vector<char> out(static_cast<size_t>(size) + 1, '#');
        EXPECT_EQ(uom_GetDisplayUnits(chain, out.data(), size, style), out.data());
        EXPECT_EQ(out.back(), '#') << "written behind the buffer";
        return out.data();
    }
    // Each node as "baseClass:token", "3*" in front of the token for a multiplier and "-" for no unit; groups as "("
    // and ")power".
    static std::string describeUnits(UomStruct chain) {
        std::string text;
        for (; chain; chain = chain->next) {
            const std::string token = chain->unit == UOM_NULL ? "-" : unitText(chain->unit);
            const std::string factor = chain->multiplier ? std::to_string(chain->multiplier) + "*" : "";
            text += (text.empty() ? "" : " ") + (chain->classId == CLASS_OPEN ? "("
                                                 : chain->classId == CLASS_CLOSE
                                                     ? ")" + std::to_string(chain->exponent)
                                                     : std::to_string(chain->baseClass) + ":" + factor + token);
        }
        return text;
    }

protected:
    void TearDown() override { stop(); }

    // Back to the state at load, whatever start-up came to: what a failed one left goes with a good one.
    void stop() {
        memReallocate = std::realloc;
        Catalogue &all = catalogue();
        if (!all.started && (all.classes.rows || all.slates.records)) {
            EXPECT_EQ(startWith("ENDUOMLIST\n"), 0);
        }
        uom_Cleanup();
        all.modes = {};
        all.styles = {};
        all.slateIndex = {};
        all.dataFile[0] = '\0';
        error_Clear();
        state_Scratch().running.apiPending = 0;
        all.classes.copied = false;
        all.classes.count = all.units.count = all.slates.currentRoot = 0;
        std::remove(path.c_str());
    }
    int32_t startFile(const std::string &file, const Words &words = {}) {
        Words all = {"-f", file.c_str()};
        all.insert(all.end(), words.begin(), words.end());
        return uom_Init2(static_cast<int32_t>(all.size()), all.data());
    }
    int32_t startShipped(const Words &words = {}) { return startFile(UOM_TEST_DATA, words); }
    int32_t startSmall() { return startFile(UOM_TEST_DIR "/small_data.txt"); }
    int32_t startWith(const std::string &text, const Words &words = {}) {
        std::ofstream(path, std::ios::binary) << text;
        return startFile(path, words);
    }

    const std::string path = testing::TempDir() + "uom_" + std::to_string(getpid()) + ".txt"; // of startWith's file
};

// The same, started with the shipped file in the mode that goes by default.
class ShippedTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(startShipped(), 0) << lastError(); }
};

// A chain of a class string, filled from a unit string, or from units by token for the nodes in order, null for
// none and parentheses passed over.
struct Chain {
    UomStruct head;
    explicit Chain(UomStruct owned) : head(owned) {}
    explicit Chain(const std::string &classString, const char *units = nullptr) : head(uoms_New(classString.c_str())) {
        EXPECT_NE(head, nullptr) << classString << ": " << LibraryTest::lastError();
        EXPECT_TRUE(!units || uom_FillStructFromString(head, units, 1) == 0) << LibraryTest::lastError();
    }
    Chain(const std::string &classString, std::initializer_list<const char *> units) : Chain(classString) {
        auto unit = units.begin();
        for (UomStruct at = head; at && unit != units.end(); at = at->next)
            if (at->classId != CLASS_OPEN && at->classId != CLASS_CLOSE)
                chain_SetUnit(catalogue(), at, uom_GetUnitType(*unit++));
        EXPECT_EQ(unit, units.end()) << classString << " has fewer nodes";
    }
    ~Chain() { uom_Free(&head); }
    Chain(const Chain &) = delete;
    Chain &operator=(const Chain &) = delete;
    UomStruct node(int index) const { return index == 1 ? head->next : index == 2 ? head->next->next : head; }
};

#endif
