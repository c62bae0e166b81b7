// A library started for a test: with the shipped data file, or with a data text written beside the test.
#ifndef UOM_TESTS_LIBRARY_FIXTURE_H
#define UOM_TESTS_LIBRARY_FIXTURE_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "uom/uom.h"
#include "uomstruct/chain.h"

inline const char *const SHIPPED_DATA = UOM_TEST_DATA;

// A catalogue just large enough for what slates do, without custom classes. "|" stands for the end of a line.
inline const char *const SMALL_DATA =
    R"(BEGINUOMLIST|none NONE "No Unit" 0 0.0 1.0|Mole MOLE "Mole" 0 0.0 1.0|Molar MOLAR "Molar" 0 0.0 1.0
Mass WT "Mass" 0 0.0 1.0|StdLiqVol LV "Liquid" 0 0.0 1.0|Vol VOL "Actual" 0 0.0 1.0
StdVapVol GV "Vapor" 0 0.0 1.0|K K "Kelvin" 0 0.0 1.0|C C "Celsius" 0 273.15 1.0
R R "Rankine" 0 0.0 0.5555555555555556|F F "Fahrenheit" 0 459.67 0.5555555555555556
Pa PA "Pascal" 0 0.0 1.0|kPa KPA "Kilopascal" 0 0.0 1000.0|bar BAR "Bar" 0 0.0 100000.0
kPag KPAG "Gauge" 0 101.325 1000.0|sec SEC "Second" 0 0.0 1.0|hr HR "Hour" 0 0.0 3600.0
m M "Meter" 0 0.0 1.0|m2 M2 "Square Meter" 0 0.0 1.0|m3 M3 "Cubic Meter" 0 0.0 1.0
kg KG "Kilogram" 0 0.0 1.0|lb LB "Pound" 1 0.0 0.45359237|kg-mol KG-MOL "Kilogram Mole" 0 0.0 1.0
lb-mol LB-MOL "Pound Mole" 1 0.0 0.45359237|ENDUOMLIST|BEGINLIST|Temp|C|F|K|ENDLIST
BEGINLIST|TempAbs|K|R|ENDLIST|BEGINLIST|TempDiff|C|F|K|ENDLIST|BEGINLIST|Pres|kPa|Pa|bar|kPag|ENDLIST
BEGINLIST|PresAbs|kPa|bar|ENDLIST|BEGINLIST|PresDiff|kPa|bar|ENDLIST|BEGINLIST|Time|sec|hr|ENDLIST
BEGINLIST|Leng|m|ENDLIST|BEGINLIST|Area|m2|ENDLIST|BEGINLIST|StdLiqVol|m3|ENDLIST
BEGINLIST|Mass|kg|lb|ENDLIST|BEGINLIST|Mole|kg-mol|lb-mol|ENDLIST
BEGINLIST|OXBasisList|Mole|Mass|StdLiqVol|ENDLIST|BEGINCOMMONLIST|Shorts|kg|lb|ENDCOMMONLIST
BEGINSLATE|English|Temp=F|Mass=lb|ENDSLATE
BEGINSLATE|Metric|Temp=C|Pres=bar|Mass=kg|MassRate=kg/hr|ENDSLATE|BEGINSLATE|SI|Temp=K|ENDSLATE
BEGINSLATE|Internal|Temp=K|ENDSLATE|BEGINSLATE|OXInternal|ENDSLATE
BEGINSLATE|Current|BasedOn=English|ENDSLATE
)";

inline std::string Message() {
    return uom_GetLastErrorMessage();
}

inline int32_t ClassOf(const char *token) {
    return class_Find(token, STYLE_TOKEN);
}

inline std::string UnitText(int32_t unit, int32_t style = 1, int32_t size = 128) {
    std::vector<char> out(static_cast<size_t>(size) + 1, '#');
    uom_GetUnitText(unit, out.data(), size, style);
    EXPECT_EQ(out.back(), '#') << "written behind the buffer";
    return out.data();
}

inline std::string Display(UomStruct chain, int32_t style = 1, int32_t size = 256) {
    std::vector<char> out(static_cast<size_t>(size) + 1, '#');
    EXPECT_EQ(uom_GetDisplayUnits(chain, out.data(), size, style), out.data());
    EXPECT_EQ(out.back(), '#') << "written behind the buffer";
    return out.data();
}

// What a slate itself states for a class.
inline std::string Stated(const char *slate, const char *className) {
    char out[256] = "#";
    uoms_GetClassDefault(slate, className, out, sizeof out);
    return out;
}

// What a class comes to in a slate, parents included.
inline std::string Resolved(const char *slate, const char *className) {
    char out[256] = "#";
    uoms_GetDisplayUnits(className, slate, out, sizeof out, 1);
    return out;
}

// States a default and tells whether it was taken.
inline bool State(const char *slate, const char *className, const char *value) {
    return uoms_SetClassDefault(slate, className, value) == 0;
}

inline int32_t NewSlate(const char *name, const char *parent) {
    const int32_t slate = uoms_NewSet(name);
    uoms_PutSetBasedOn(name, parent);
    return slate;
}

// Takes a table and gives its texts; a null table gives the one text "null".
inline std::vector<std::string> TakeLines(UomTable *table) {
    std::vector<std::string> lines;
    if (!table)
        return {"null"};
    for (uint32_t i = 0; i < table->count; ++i)
        lines.emplace_back(tbl_GetText(table, i));
    tbl_Free(table);
    return lines;
}

inline UomTable *TableOf(const std::vector<std::string> &texts) {
    UomTable *table = tbl_Create(0, 2);
    for (const std::string &text : texts)
        tbl_PutText(table, 0xFFFFFFFF, text.c_str());
    return table;
}

// A chain of a class string, filled from a unit string when one is given.
struct Chain {
    UomStruct head;
    explicit Chain(UomStruct owned) : head(owned) {}
    explicit Chain(const std::string &classString, const char *units = nullptr) : head(uoms_New(classString.c_str())) {
        EXPECT_NE(head, nullptr) << classString << ": " << Message();
        if (units) {
            EXPECT_EQ(uom_FillStructFromString(head, units, 1), 0) << Message();
        }
    }
    // Units by token for the nodes in order, parentheses passed over; null for none.
    Chain(const std::string &classString, std::initializer_list<const char *> units)
        : head(uoms_New(classString.c_str())) {
        EXPECT_NE(head, nullptr) << classString << ": " << Message();
        UomStruct node = head;
        for (const char *unit : units) {
            while (node && (node->classId == CLASS_OPEN || node->classId == CLASS_CLOSE))
                node = node->next;
            if (!node) {
                ADD_FAILURE() << classString << " has fewer nodes";
                return;
            }
            chain_SetUnit(node, uom_GetUnitType(unit));
            EXPECT_EQ(node->unit == UOM_NULL, unit == nullptr) << unit;
            node = node->next;
        }
    }
    ~Chain() { uom_Free(&head); }
    Chain(const Chain &) = delete;
    Chain &operator=(const Chain &) = delete;

    UomStruct Node(int index) const {
        UomStruct node = head;
        while (node && index-- > 0)
            node = node->next;
        return node;
    }
};

class LibraryTest : public testing::Test {
protected:
    void TearDown() override {
        memReallocate = std::realloc;
        uom_Cleanup();
        uomApiPending = uomCurrentSet = 0; // clean-up leaves them as they are
        if (!written.empty())
            std::remove(written.c_str());
    }

    static int32_t Start(const std::string &path, const std::vector<const char *> &words = {}) {
        std::vector<const char *> all = {"-f", path.c_str()};
        all.insert(all.end(), words.begin(), words.end());
        return uom_Init3(static_cast<int32_t>(all.size()), all.data());
    }

    // Writes the text, "|" as the end of a line, to a file that lives as long as the test, and answers its
    // path.
    std::string WriteData(const std::string &text) {
        const testing::TestInfo *test = testing::UnitTest::GetInstance()->current_test_info();
        written = testing::TempDir() + "uom_" + test->test_suite_name() + "_" + test->name() + ".txt";
        for (size_t i = testing::TempDir().size(); i < written.size(); ++i)
            if (written[i] == '/')
                written[i] = '_';
        std::string lines = text;
        std::replace(lines.begin(), lines.end(), '|', '\n');
        std::ofstream(written, std::ios::binary) << lines;
        return written;
    }

private:
    std::string written;
};

// The same with the shipped data file, started.
class ShippedTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(Start(SHIPPED_DATA), 0) << Message(); }
};

#endif
