// Start-up words, modes and what they rename, what a clean-up leaves, starting again.
#include "loading/startup.h"

#include <filesystem>

#include "support/platform.h"
#include "catalogue/units.h"
#include "slates/properties.h"
#include "tests/library_fixture.h"
#include "uom/catalogue.h"
#include "uom/entry.h"

namespace {

// What a host finds before its first start.
const std::string atLoad =
    joined(UOM_NULL, UOM_BASMOLE, catalogue().named.UOM_BASMOLAR, UOM_BASMASS, UOM_BASLIQV, UOM_BASVAPV, UOM_BASACTV,
           UOM_SET_NULL, UOM_SET_ENGLISH, UOM_SET_METRIC, UOM_SET_SI, UOM_SET_INTERNAL, UOM_SET_OXINTERNAL,
           UOM_SET_CURRENT, UOM_SET_MAX, catalogue().started, catalogue().classes.count, catalogue().units.count,
           catalogue().slates.currentRoot, running().factor, running().offset, running().linear) +
    " | " +
    joined(catalogue().modes.kesta, catalogue().modes.vel2go, catalogue().modes.orbex, catalogue().modes.allowMult,
           catalogue().modes.qx71, catalogue().modes.moleQuantity, uom_GetDefaultDisplayStyle(),
           catalogue().styles.scanClass, catalogue().styles.scanUom, catalogue().dataFile, error_Text());

class CatalogueStartup : public LibraryTest {
protected:
    // The words of a text, blanks between, or "|" where they are paths that may hold blanks.
    struct SplitWords {
        explicit SplitWords(const std::string &text, char separator = ' ') {
            std::istringstream stream(text);
            for (std::string word; std::getline(stream, word, separator);)
                if (!word.empty())
                    kept.push_back(word);
            for (const std::string &word : kept)
                words.push_back(word.c_str());
        }
        int32_t count() const { return static_cast<int32_t>(words.size()); }
        std::vector<std::string> kept;
        Words words;
    };
    static int32_t init3(const std::string &text) {
        const SplitWords words(text, '|');
        return uom_Init3(words.count(), words.words.data());
    }
};

TEST_F(CatalogueStartup, WordsAndThenTheFileDecideTheModes) {
    // words, lines of the file: orbex, kesta, vel2go, multipliers allowed, moles, older numbering
    const char cases[] = R"(
        | | 1 0 0 0 1 0; nosuch -nosuch --kesta | | 1 0 0 0 1 0; kesta | | 0 1 0 1 1 0; /VEL2GO | | 0 0 1 1 1 0
        vel2go kesta | | 0 1 0 1 1 0; kesta -Orbex vel2go | | 1 0 0 0 1 0; kesta orbex allowmult | | 1 0 0 1 1 0
        -qx71 molar mole | | 1 0 0 0 0 1; mole molar | | 1 0 0 0 1 0
        | UOMOPTION molar\nUOMOPTION mole | 1 0 0 0 0 0; mole | UOMOPTION molar | 1 0 0 0 1 0
        | UOMOPTION KESTA\nUOMOPTION qx71 | 0 1 0 1 1 1; orbex | UOMOPTION kesta | 1 0 0 0 1 0
        | UOMOPTION vel2go | 0 0 1 1 1 0; | BEGINUOMLIST\nUOMOPTION uommult | 1 0 0 1 1 0
        | UOMOPTION allowmult\nUOMOPTION\nuomoption kesta | 1 0 0 0 1 0; | ENDUOMLIST\nUOMOPTION kesta | 1 0 0 0 1 0
    )";
    expectAnswers(cases, [&](const Cells &c) {
        const SplitWords words(c[0]);
        EXPECT_EQ(0, startWith(c[1] + "\n", words.words));
        EXPECT_EQ(0, catalogue().units.count);
        const std::string all =
            joined(catalogue().modes.orbex, catalogue().modes.kesta, catalogue().modes.vel2go,
                   uom_GetAllowUOMMultipliers(), catalogue().modes.moleQuantity, catalogue().modes.qx71);
        stop();
        return all;
    });
    const char *const withNull[] = {nullptr, "kesta", "-f", path.c_str()};
    std::ofstream(path) << "\n";
    EXPECT_EQ(0, uom_Init2(4, withNull));
    EXPECT_EQ(1, catalogue().modes.kesta);
}

TEST_F(CatalogueStartup, FindsThePathAmongTheWords) {
    const char cases[] = R"(
        |; -f /no/a | /no/a; /F /no/a -f/no/b | /no/b; -fab | ab; -f/no/a -f |; -f kesta | kesta
        -f -f /no/c | -f; f /no/d |
    )";
    expectAnswers(cases, [&](const Cells &c) {
        const SplitWords words(c[0]);
        EXPECT_EQ(1, uom_Init2(words.count(), words.words.data()));
        EXPECT_EQ("Unable to open the Unit of Measure data file \"" + std::string(catalogue().dataFile) + "\".",
                  lastError());
        EXPECT_EQ(0, catalogue().started);
        EXPECT_EQ("-1 -1",
                  joined(catalogue().modes.allowMult, catalogue().modes.kesta)); // not settled, and "kesta" was a path
        const std::string found = catalogue().dataFile;
        stop();
        return found;
    });
    EXPECT_EQ(1, uom_Init2(-3, nullptr));
    EXPECT_EQ(1, startFile(::testing::TempDir())); // a directory
    EXPECT_EQ(1, startFile(std::string(10000, 'p')));
    EXPECT_EQ(511u, lastError().size());
}

// Files of both lengths are there: the longer path must not be cut to the other.
TEST_F(CatalogueStartup, RefusesAPathLongerThanItKeeps) {
    const std::string folder = path + ".d", deep = folder + "/" + std::string(250, 'd');
    const std::string longest = deep + "/" + std::string(518 - deep.size(), 'f'), tooLong = longest + "f";
    std::filesystem::create_directories(deep);
    for (const std::string &file : {longest, tooLong})
        std::ofstream(file) << "BEGINUOMLIST\nnone N N 0 0 1\nENDUOMLIST\n";
    const std::string refusal = "Unable to open the Unit of Measure data file \"";

    EXPECT_EQ(0, startFile(longest));
    EXPECT_EQ(1, init3("-f|" + tooLong)) << "another file than the one in use";
    EXPECT_EQ((refusal + tooLong).substr(0, 511), lastError());
    EXPECT_EQ(0, catalogue().started);
    EXPECT_EQ(1, uom_Init2(0, nullptr)) << "no cut path is kept";
    EXPECT_EQ(refusal + "\".", lastError());

    EXPECT_EQ(0, startFile(longest));
    uom_SetDataFileName(catalogue(), "");
    EXPECT_EQ(longest, catalogue().dataFile);
    uom_SetDataFileName(catalogue(), tooLong.c_str());
    EXPECT_STREQ("", catalogue().dataFile);
    uom_Cleanup();
    EXPECT_EQ(1, uom_Init2(0, nullptr));

    uom_SetDataFileName(catalogue(), longest.c_str());
    EXPECT_EQ(0, uom_Init2(0, nullptr));
    std::error_code ignored; // where the system's paths are shorter
    std::filesystem::remove_all(folder, ignored);
}

// What is looked for by name has to be in the shipped file, which knows nothing of the names in the code.
TEST_F(CatalogueStartup, TellsTheNamesThatItLooksFor) {
    const Lines units = takeLines(uom_GetKnownUnits()), lists = takeLines(uom_GetKnownLists());
    std::ifstream file(UOM_TEST_DATA);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    ASSERT_EQ(0, startShipped({"kesta"}));
    for (const std::string &unit : units) {
        const size_t bar = unit.find('|');
        const bool second = bar != std::string::npos && unitOf(unit.substr(bar + 1).c_str()) > UOM_NULL;
        EXPECT_TRUE(unitOf(unit.substr(0, bar).c_str()) > UOM_NULL || second) << unit;
    }
    for (const std::string &list : lists)
        EXPECT_NE(text.find("BEGINLIST\n" + list + "\n"), std::string::npos) << list;
    for (const char *name : {"Mole", "Mass", "Molar", "Vol|Volume", "Liq. Vol.|StdLiqVol", "kPag", "ppb"})
        EXPECT_EQ(1, std::count(units.begin(), units.end(), name)) << name;
    EXPECT_EQ(joined(92, 19), joined(units.size(), lists.size()));
}

TEST_F(CatalogueStartup, NothingIsThereAtLoad) {
    EXPECT_EQ("0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 | -1 -1 -1 -1 -1 -1 1 1 1  ", atLoad);
}

TEST_F(CatalogueStartup, PassesAByteOrderMarkOver) {
    const std::string mark = "\xEF\xBB\xBF",
                      text = mark + "BEGINUOMLIST\nnone N N 0 0 1\nm M Meter 0 0 1\nENDUOMLIST\n";
    EXPECT_EQ(0, startWith(text));
    EXPECT_EQ(2, catalogue().units.count);
    stop();
    EXPECT_EQ(0, uom_InitText(text.data(), text.size(), 0, nullptr));
    EXPECT_EQ(2, catalogue().units.count);
    stop();
    ASSERT_EQ(0, startSmall());
    const std::string aliases = mark + "[Leng]\nmetre = m\n";
    UomEntry entry;
    EXPECT_EQ(0, uom_ReadAliasText(aliases.data(), aliases.size()));
    EXPECT_EQ(0, uom_ReadEntry("Leng", "metre", &entry)) << entry.message;
}

// The longest line that is one, with a return more.
TEST_F(CatalogueStartup, TakesReturnsAsTheSystemDoes) {
    const std::string longest = "m M Meter 0 0 1" + std::string(115, ' ');
    const std::string text =
        "BEGINUOMLIST\r\nnone N N 0 0 1\r\n" + longest + "\r\nENDUOMLIST\r\nBEGINLIST\r\nLeng\r\nENDLST\r\n";
    const std::string wrong = text + "BEGINLIST\r\n";
    EXPECT_EQ(0, startWith(text));
    EXPECT_EQ(RETURNS_END_LINES ? 2 : 0, catalogue().units.count);
    stop();
    EXPECT_EQ(RETURNS_END_LINES ? 2 : 0, uom_InitText(wrong.data(), wrong.size(), 0, nullptr));
    EXPECT_EQ(RETURNS_END_LINES ? "UOM File \"(text)\", Error on line 8, \"BEGINLIST\" not expected." : "",
              lastError());
}

TEST_F(CatalogueStartup, DebugTextKeepsTheNewest) {
#ifdef _WIN32
    GTEST_SKIP() << "the debugger has it";
#endif
    std::string line(100, 'a'), kept = platform_DebugText();
    for (int i = 0; i < 300; ++i) {
        line.replace(0, 4, std::to_string(1000 + i));
        platform_Debug(line.c_str());
        const std::string before = kept;
        kept = platform_DebugText();
        ASSERT_LT(kept.size(), 8192u);
        ASSERT_GE(kept.size(), line.size() + before.size() / 2) << "no more than the older half goes";
        ASSERT_EQ(line, kept.substr(kept.size() - 100));
        ASSERT_TRUE(kept.size() == before.size() + 100 || before.size() + 100 >= 8192) << "and only when it has to";
        ASSERT_EQ(before.substr(before.size() + 100 - kept.size()) + line, kept);
    }
    ASSERT_EQ(0, startSmall());
    char parent[64];
    for (const std::string &name : {std::string("uom_GetSetBasedOn"), std::string("uoms_GetSetBasedOn")}) {
        name[3] == 's' ? uoms_GetSetBasedOn("SI", parent) : uom_GetSetBasedOn(UOM_SET_SI, parent);
        const std::string notice = "COREKIT.DLL: call to deprecated function " + name + ".\n",
                          text = platform_DebugText();
        EXPECT_EQ(notice, text.substr(text.size() - notice.size()));
    }
}

TEST_F(CatalogueStartup, WhatSurvivesACleanup) {
    ASSERT_EQ(0, startShipped({"kesta", "mole", "allowmult"}));
    EXPECT_EQ(0, startWith("ENDUOMLIST\n", {"orbex"})) << "does nothing";
    EXPECT_EQ(1, catalogue().modes.kesta);
    uom_SetDefaultDisplayStyle(5);
    EXPECT_FALSE(uoms_New("Nosuch"));
    const std::string message = lastError();
    const char *const address = uom_GetLastErrorMessage();
    const int32_t metric = UOM_SET_METRIC, mass = UOM_BASMASS, units = catalogue().units.count;
    uom_Cleanup();
    uom_Cleanup();
    EXPECT_EQ(message, lastError());
    EXPECT_EQ(address, uom_GetLastErrorMessage());
    EXPECT_EQ(joined(metric, mass), joined(UOM_SET_METRIC, UOM_BASMASS));
    EXPECT_EQ("1 5 -1 -1", joined(catalogue().modes.moleQuantity, uom_GetDefaultDisplayStyle(), catalogue().modes.kesta,
                                  catalogue().modes.allowMult));
    for (const UomClassRow &row : catalogue().classes.compiled)
        EXPECT_FALSE(row.uomList || row.uomChoices) << row.token;
    // The file of the last start is read when none is named. What a Quantity counts stays what that made it.
    const char *const molar = "molar";
    ASSERT_EQ(0, uom_Init2(1, &molar));
    EXPECT_STREQ(UOM_TEST_DATA, catalogue().dataFile);
    EXPECT_EQ(joined(1, 0, units),
              joined(uom_GetDefaultDisplayStyle(), catalogue().modes.moleQuantity, catalogue().units.count));
    UomStruct chain = uoms_New("Rate Quantity");
    EXPECT_EQ("40:- 19:- 10:- 40:- 19:-", describeUnits(chain));
    uom_Free(&chain);
    stop();
    ASSERT_EQ(0, startShipped({"molar"}));
    chain = uoms_New("Rate Quantity");
    EXPECT_EQ("40:- 20:- 10:- 40:- 20:-", describeUnits(chain)) << "when it comes first";
    uom_Free(&chain);
}

// The build puts the data file where it stands beside an installed library.
TEST_F(CatalogueStartup, FindsTheFileBesideTheLibrary) {
    DataFilePlaces places;
    ASSERT_TRUE(platform_FindDataFile(places));
    const std::string found = places.paths[places.count - 1];
    EXPECT_EQ("uomdata.txt", found.substr(found.size() - 11));
    ASSERT_EQ(0, uom_Init()) << lastError();
    EXPECT_EQ(found, catalogue().dataFile);

    std::vector<char> out(found.size() + 3, '#');
    const int32_t fits = static_cast<int32_t>(found.size()) + 1;
    EXPECT_EQ(joined(1, ""), joined(uom_FindDataFile(out.data(), fits - 1), out.data()));
    EXPECT_EQ(joined(0, found), joined(uom_FindDataFile(out.data(), fits), out.data()));
    EXPECT_EQ('#', out[static_cast<size_t>(fits)]) << "written behind the size";
    EXPECT_EQ("1 1", joined(uom_FindDataFile(nullptr, 10), uom_FindDataFile(out.data(), 0)));
    EXPECT_STREQ(UOM_VERSION, uom_GetVersion());
    places = {{"/a/uomdata.txt", "/b/uomdata.txt", "./uomdata.txt"}, 3};
    const char *const told[] = {"", "\"/a/uomdata.txt", "\"/a/uomdata.txt\" and \"/b/uomdata.txt",
                                "\"/a/uomdata.txt\", \"/b/uomdata.txt\" and \"./uomdata.txt"};
    for (places.count = 1; places.count <= 3; ++places.count) {
        error_Set("Failed.");
        startup_ExplainPlaces(places);
        EXPECT_EQ("Failed. Looked for it as " + std::string(told[places.count]) + "\".", lastError());
    }
}

TEST_F(CatalogueStartup, RefusesTablesThatContradictThemselves) {
    ASSERT_EQ(0, startSmall());
    uom_Cleanup();
    const int32_t index = catalogue().classes.compiled[CLASS_MASS].index;
    catalogue().classes.compiled[CLASS_MASS].index = 7;
    EXPECT_EQ(3, startSmall());
    EXPECT_EQ("UOM Initialization: UOM Class table is inconsistent", lastError());
    EXPECT_EQ(1, catalogue().started) << "in use all the same";
    catalogue().classes.compiled[CLASS_MASS].index = index;
    EXPECT_EQ(0, startup_CheckTables(catalogue()));
    unit_Record(catalogue(), 2)->index = 1;
    EXPECT_EQ(4, startup_CheckTables(catalogue()));
    EXPECT_EQ("UOM Initialization: UOM Unit table is inconsistent", lastError());
}

} // namespace
