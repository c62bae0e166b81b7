// A library started for one test: with the shipped data file, or with a text that stands beside the test.
#ifndef UOM_TESTS_SUPPORT_FIXTURE_H
#define UOM_TESTS_SUPPORT_FIXTURE_H

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/class_rows.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "support/text.h"
#include "uom/uom.h"

// One allocation fails: the one behind `left` others, once or with all that follow it.
class FailingMemory {
public:
    explicit FailingMemory(int allocationsBefore, bool forGood = false) {
        left = allocationsBefore;
        lasting = forGood;
        failures = 0;
        memReallocate = allocate;
    }
    ~FailingMemory() { memReallocate = std::realloc; }
    FailingMemory(const FailingMemory &) = delete;
    FailingMemory &operator=(const FailingMemory &) = delete;

    // Whether the scenario came as far as the failing allocation.
    static bool reached() { return failures > 0; }

private:
    static void *allocate(void *block, size_t size) {
        const bool fails = lasting ? left <= 0 : left == 0;
        --left;
        failures += fails;
        return fails ? nullptr : std::realloc(block, size);
    }
    static inline int left = 0, failures = 0;
    static inline bool lasting = false;
};

// Runs a scenario again and again, each time with the next allocation failing, until none is left to fail.
template <class Scenario> void failEachAllocation(const Scenario &scenario) {
    for (const bool lasting : {false, true}) {
        int place = 0;
        for (bool reached = true; reached && place < 100000; ++place) {
            SCOPED_TRACE("allocation " + std::to_string(place) + (lasting ? " and all behind it" : ""));
            scenario(place, lasting, &reached);
            if (::testing::Test::HasFatalFailure())
                return;
        }
        EXPECT_GT(place, 1) << "the scenario allocates nothing";
    }
}

// Values as one text, blanks between.
template <class... Values> std::string joined(const Values &...values) {
    std::ostringstream text;
    ((text << values << ' '), ...);
    std::string all = text.str();
    return all.substr(0, all.size() - 1);
}

// A table of cases: one a line, or more with ";" between, their cells parted by "|" and trimmed. "~" is a
// blank; "\n", "\t" and "\r" are what they are in code, "\2" and "\3" the superscripts of Latin-1. The answer to
// the cells of a case must be its last cell, but for blanks at its end.
using Cells = std::vector<std::string>;
inline void expectAnswers(const std::string &table, const std::function<std::string(const Cells &)> &answer) {
    std::string cell, row;
    Cells cells;
    const auto endCell = [&] {
        const size_t begin = cell.find_first_not_of(' '), end = cell.find_last_not_of(' ');
        cell = begin == std::string::npos ? "" : cell.substr(begin, end - begin + 1);
        for (char &c : cell)
            c = c == '~' ? ' ' : c;
        cells.push_back(cell);
        cell.clear();
    };
    for (size_t i = 0; i < table.size(); ++i) {
        const char c = table[i];
        row += c;
        if (c == '|') {
            endCell();
        } else if (c == ';' || c == '\n') {
            endCell();
            if (cells.size() > 1) {
                std::string given = answer(cells);
                given.erase(given.find_last_not_of(' ') + 1);
                EXPECT_EQ(cells.back(), given) << "in the case " << row;
            }
            cells.clear();
            row.clear();
        } else if (c == '\\' && i + 1 < table.size()) {
            const char *const marks = "ntr23", *const mark = std::strchr(marks, table[++i]);
            cell += mark ? "\n\t\r\xB2\xB3"[mark - marks] : table[i];
        } else {
            cell += c;
        }
    }
}

// Each node as "baseClass:token" with a multiplier as "3*" in front of the token; "-" for no unit. Groups
// stand as "(" and ")power".
inline std::string describeUnits(UomStruct chain) {
    std::string text;
    for (UomStruct node = chain; node; node = node->next) {
        text += text.empty() ? "" : " ";
        if (node->classId == CLASS_OPEN) {
            text += "(";
        } else if (node->classId == CLASS_CLOSE) {
            text += ")" + std::to_string(node->exponent);
        } else {
            char token[256] = "";
            uom_GetUnitText(node->unit, token, sizeof token, 1);
            text += std::to_string(node->baseClass) + ":";
            if (node->multiplier != 0)
                text += std::to_string(node->multiplier) + "*";
            text += *token ? token : "-";
        }
    }
    return text;
}

class UomFixture : public ::testing::Test {
protected:
    using Words = std::vector<const char *>;

    UomFixture() : path(::testing::TempDir() + "uom_" + std::to_string(getpid()) + ".txt") {
        static const std::vector<UomClassRow> compiled(std::begin(uomStaticRows), std::end(uomStaticRows));
        rowsAtLoad = &compiled;
    }

    void TearDown() override {
        stop();
        std::remove(path.c_str());
    }

    // Back to the state at load, whatever start-up came to: what a failed one left goes with a good one.
    void stop() {
        if (uomInitDone == 0 && (uomClassTable || uomSlateTable)) {
            EXPECT_EQ(0, startWith("ENDUOMLIST\n"));
        }
        uom_Cleanup();
        std::copy(rowsAtLoad->begin(), rowsAtLoad->end(), std::begin(uomStaticRows));
        uomMoleQuantity = -1;
        defaultScanClassStyle = defaultScanUOMStyle = defaultDisplayStyle = 1;
        uomDataFile[0] = uomLastError[0] = '\0';
        uomClassCount = uomUnitCount = 0;
    }

    int32_t startFile(const std::string &file, const Words &words = {}) {
        Words all = {"-f", file.c_str()};
        all.insert(all.end(), words.begin(), words.end());
        return uom_Init2(static_cast<int32_t>(all.size()), all.data());
    }
    int32_t startShipped(const Words &words = {}) { return startFile(UOM_TEST_DATA, words); }
    int32_t startWith(const std::string &text, const Words &words = {}) {
        std::ofstream(path, std::ios::binary) << text;
        return startFile(path, words);
    }

    static std::string lastError() { return uom_GetLastErrorMessage(); }
    static int32_t unitOf(const char *token) { return uom_GetUnitType(token); }
    static int32_t classOf(const char *token) { return uom_GetClassType(token, 1); }

    const std::string path; // of the file that startWith writes

private:
    const std::vector<UomClassRow> *rowsAtLoad;
};

// The same, started with the shipped file in the mode that goes by default.
class ShippedFixture : public UomFixture {
protected:
    void SetUp() override { ASSERT_EQ(0, startShipped()) << lastError(); }
};

#endif
