// Exhausted memory at each allocation in turn: whatever is called does all of it or nothing, says which, and
// leaks nothing.
#include <cerrno>
#include <utility>

#include "loading/startup.h"
#include "report/report.h"
#include "slates/lists.h"
#include "slates/properties.h"
#include "slates/unit_pairs.h"
#include "support/line_reader.h"
#include "support/scoped.h"
#include "support/table.h"
#include "text/class_text.h"
#include "tests/library_fixture.h"
#include "uom/catalogue.h"
#include "uom/entry.h"

namespace {

int asked, failing, fresh; // allocations asked for, the number of the one that fails, blocks given
bool forGood;              // all behind it fail as well

class MemoryTest : public LibraryTest {
protected:
    void SetUp() override {
        fresh = failing = 0;
        freed = mem_Counters().frees;
        memReallocate = [](void *block, size_t size) {
            if (++asked == failing || (forGood && asked > failing))
                return static_cast<void *>(nullptr);
            void *given = std::realloc(block, size);
            fresh += !block && given;
            return given;
        };
        ASSERT_EQ(startSmall(), 0);
    }

    // Blocks that the library holds.
    int32_t live() const { return fresh - (mem_Counters().frees - freed); }

    // Runs again and again, each time with the next allocation failing, alone and with all behind it, until none is
    // left to fail; what came of it is checked after each.
    static void failEach(const std::string &what, const std::function<void()> &run,
                         const std::function<void(bool failed)> &check) {
        for (const bool others : {false, true}) {
            bool failed = true;
            for (int n = 1; failed && !HasFailure(); ++n) {
                SCOPED_TRACE(what + ", allocation " + std::to_string(n) + (others ? " and all behind it" : ""));
                asked = 0, failing = n, forGood = others;
                run();
                failed = asked >= n, failing = 0, forGood = false;
                check(failed);
            }
        }
    }

    // All that can be seen of classes, lists and slates.
    static std::string snapshot() {
        std::string text = std::to_string(UOM_SET_MAX) + " " + std::to_string(uom_GetUOMClassCount()) + "\n";
        const auto add = [&](UomTable *lines) {
            for (const std::string &line : takeLines(lines))
                text += line + "|";
        };
        for (int32_t c = 1; c < uom_GetUOMClassCount(); ++c) {
            for (const int32_t style : {1, 2, 5}) {
                char out[64];
                uom_GetClassText(c, out, sizeof out, style);
                text += std::string(out) + ",";
            }
            add(uom_GetUnitList(c));
        }
        for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate) {
            char name[64], parent[64];
            uom_GetBaseName2(slate, name, sizeof name);
            text += "\n" + joined(name, uom_GetSetBasedOn2(slate, parent, sizeof parent), uom_GetCurrentSet());
            for (const int32_t format : {1, 2})
                add(uoms_GetSetDefinition(name, format));
        }
        return text;
    }

    // Where two snapshots part, empty when they are equal.
    static std::string difference(const std::string &is, const std::string &expected) {
        const size_t shorter = std::min(is.size(), expected.size()); // the ends differ when one is a part of the other
        const auto at = std::mismatch(is.begin(), is.begin() + static_cast<std::ptrdiff_t>(shorter), expected.begin());
        const auto from = static_cast<size_t>(std::max<std::ptrdiff_t>(at.first - is.begin() - 30, 0));
        return is == expected ? ""
                              : "\"" + is.substr(from, 70) + "\" in place of \"" + expected.substr(from, 70) + "\"";
    }

    int32_t freed = 0;
};

TEST_F(MemoryTest, StartUp) {
    const std::string whole = snapshot();
    uom_Cleanup();
    EXPECT_EQ(live(), 0);
    int32_t status = -1;
    const auto start = [&] { status = startSmall(); };
    failEach("start-up", start, [&](bool) {
        if (status == 0) { // an allocation that only makes things faster may fail unseen
            EXPECT_EQ(difference(snapshot(), whole), "");
            uom_Cleanup();
        } else {
            EXPECT_EQ(joined(status, catalogue().started), "11 0");
            EXPECT_NE(lastError().find("emory"), std::string::npos) << lastError();
        }
        ASSERT_EQ(startSmall(), 0); // the next one mends it
        EXPECT_EQ(resolved("Current", "Temp"), "F");
        uom_Cleanup();
        ASSERT_EQ(live(), 0);
    });
}

TEST_F(MemoryTest, EachOperationDoesAllOrNothing) {
    newSlate("Plant", "Metric");
    ASSERT_TRUE(state("Plant", "MassRate", "lb/hr"));
    ASSERT_TRUE(state("Plant", "GaugePresBasis", "90"));
    ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area"), 0);
    ASSERT_EQ(uoms_NewClass("Load", "Mass"), 0);
    ASSERT_TRUE(state("Plant", "Flux", "lb/m2"));
    uoms_PutClassText("Load", "load", 2);
    const auto put = [](const char *className, const char *value) {
        return [=] { return uoms_SetClassDefault("Plant", className, value); };
    };
    const auto withdraw = [](const char *className) { return [=] { uoms_SetClassDefault("Plant", className, ""); }; };
    const int32_t lb[] = {uom_GetUnitType("lb"), 0}, area[] = {lb[0], uom_GetUnitType("m2")}, none[] = {0, 0};
    const int32_t plant = uom_GetSetType("Plant"), load = classOf("Load"), density = classOf("Density");
    const struct {
        const char *name;
        std::function<int32_t()> run; // 0 when it says that it was done
        std::function<void()> undo;   // back to what was before
    } steps[] = {
        {"slate", [] { return uoms_NewSet("New") < 0; }, [] { uoms_DeleteSet("New"); }},
        {"parent", [] { return uoms_PutSetBasedOn("Plant", "SI") < 0; }, [] { uoms_PutSetBasedOn("Plant", "Metric"); }},
        {"rename", [] { return uoms_RenameSet("Plant", "Works"), uom_GetSetType("Works") < 0; },
         [] { uoms_RenameSet("Works", "Plant"); }},
        {"late class", [=] { return uom_SetClassDefault(UOM_SET_SI, load, lb, none); },
         [] { uoms_SetClassDefault("SI", "Load", ""); }},
        {"composite", put("Density", "lb/m3"), withdraw("Density")},
        {"by number", [=] { return uom_SetClassDefault(plant, density, area, none); }, withdraw("Density")},
        {"rules", put("Temp", "F"), withdraw("Temp")},
        {"withdrawn", put("MassRate", ""), [] { state("Plant", "MassRate", "lb/hr"); }},
        {"gauge basis", put("GaugePresBasis", "95000"), [] { state("Plant", "GaugePresBasis", "90"); }},
        {"base class", [] { return uoms_NewClass("Weight", "Mass"); }, [] { uoms_DeleteClass("Weight"); }},
        {"composite class", [] { return uoms_NewClass("Feed", "MassRate"); }, [] { uoms_DeleteClass("Feed"); }},
        {"keyword", [] { return uoms_PutClassText("Load", "LOAD", 2); }, [] { uoms_PutClassText("Load", "load", 2); }},
        {"choices", [=] { return uom_SetUOMChoices(CLASS_MASS, lb); }, [] { uom_SetUOMChoices(CLASS_MASS, nullptr); }}};
    for (const auto &step : steps) {
        const std::string before = snapshot();
        ASSERT_EQ(step.run(), 0) << step.name << ": " << lastError();
        const std::string after = snapshot();
        const int32_t held = live();
        EXPECT_NE(difference(after, before), "") << step.name;
        step.undo();
        ASSERT_EQ(difference(snapshot(), before), "") << step.name;
        int32_t status = -1;
        failEach(
            step.name, [&] { status = step.run(); },
            [&](bool) {
                EXPECT_EQ(difference(snapshot(), status == 0 ? after : before), "") << "status " << status;
                EXPECT_TRUE(status == 0 || step.run() == 0) << lastError();
                EXPECT_LE(live(), held); // fewer where an index for look-ups was given up
                step.undo();
            });
    }
    uom_Cleanup();
    EXPECT_EQ(live(), 0);
}

// Whole scenarios that go on whatever fails; afterwards nothing of them is left, and nothing else has changed.
TEST_F(MemoryTest, ScenariosLeaveNothingBehind) {
    ASSERT_EQ(uoms_NewClass("First", "Mass"), 0); // the one that stays
    const int32_t slates = UOM_SET_MAX;
    const auto slateUsed = [] {
        uoms_NewSet("Plant");
        for (const auto &pair :
             {std::pair("Temp", "F"), std::pair("MassRate", "lb/hr"), std::pair("GaugePresBasis", "9")})
            uoms_SetClassDefault("Plant", pair.first, pair.second);
        uoms_CopySet("Plant", "English");
        resolved("Plant", "Pres/MassRate 2");
        uoms_RenameSet("Plant", "Works");
        for (const int32_t format : {0, 1, 2}) {
            UomTable *lines = uoms_GetSetDefinition("Metric", format);
            uoms_PutSetDefinition("Works", lines);
            tbl_Free(lines);
        }
        uoms_DeleteSet("Plant");
        uoms_DeleteSet("Works");
    };
    const auto classUsed = [] {
        uoms_NewClass("Load", "Mass");
        uoms_NewClass("Flux", "MassRate / Area");
        uoms_SetClassDefault("Metric", "Flux", "lb/hr-m2");
        double value = 1;
        uoms_ConvertArray(&value, 1, "Flux / Load", "kg/hr-m2/kg", "lb/hr-m2/lb");
        for (const char *name : {"Flux", "Load"})
            uoms_DeleteClass(name);
    };
    for (const std::function<void()> &scenario : {std::function<void()>(slateUsed), std::function<void()>(classUsed)}) {
        scenario();
        std::string before = snapshot();
        int32_t classes = uom_GetUOMClassCount();
        const int32_t held = live();
        int32_t run = 0;
        failEach("scenario", scenario, [&](bool) {
            while (UOM_SET_MAX > slates) // a table that could not shrink keeps an empty place
                ASSERT_EQ(uom_DeleteSet(UOM_SET_MAX - 1), 0);
            for (const char *name : {"Flux", "Load"}) // what could not be deleted then, can be now
                EXPECT_TRUE(uom_GetClassType(name, 1) <= 0 || uoms_DeleteClass(name) == 0);
            if (uom_GetUOMClassCount() > classes && !class_Row(catalogue(), classes)) {
                classes = uom_GetUOMClassCount();
                before = snapshot();
            }
            if (++run % 4 == 0 || UOM_SET_MAX != slates) { // which takes longest
                ASSERT_EQ(difference(snapshot(), before), "");
            }
            ASSERT_LE(live(), held);
        });
    }
}

// A default without memory is told from a bad slate by its status and a message.
TEST_F(MemoryTest, TypedTexts) {
    const char aliases[] = "stone = 14 lb\n";
    UomEntry entry;
    UomConversion *conversion = nullptr;
    UomTable *table = nullptr;
    const struct {
        const char *what;
        std::function<int32_t()> run; // 0, or 11
    } cases[] = {
        {"a text of a class", [&] { return uom_ReadEntry("MassRate", "5 lb/hr/1", &entry) == 11 ? 11 : 0; }},
        {"a text of any", [&] { return uom_ReadEntry(nullptr, "5 lb/hr", &entry); }},
        {"two texts", [&] { return uom_NewConversionFromEntries("", "lb/hr", "kg/sec", &conversion, &entry); }},
        {"classes", [&] { return (table = uom_GetEntryClasses("lb")) ? 0 : 11; }},
        {"search", [&] { return (table = uom_Search("pound", 9)) ? 0 : 11; }},
        {"choices", [&] { return (table = uom_GetChoices("Mass")) ? 0 : 11; }},
        {"list of aliases", [&] { return (table = uom_GetAliases()) ? 0 : 11; }},
        {"choices of slates", [&] { return (table = uom_GetChoices("Mass / Time")) ? 0 : 11; }},
        {"aliases", [&] { return uom_ReadAliasText(aliases, sizeof aliases - 1); }},
    };
    for (const auto &c : cases) {
        int32_t status = -1, held = 0;
        failEach(
            c.what,
            [&] {
                catalogue_DropWords(catalogue());
                mem_Free(std::exchange(catalogue().aliasText, nullptr));
                held = live();
                status = c.run();
            },
            [&](bool failed) {
                EXPECT_TRUE(status == 0 || (failed && status == 11)) << status << ' ' << lastError();
                EXPECT_EQ(conversion != nullptr, status == 0 && std::string(c.what) == "two texts");
                uom_FreeConversion(std::exchange(conversion, nullptr));
                tbl_Free(std::exchange(table, nullptr));
                catalogue_DropWords(catalogue());
                mem_Free(std::exchange(catalogue().aliasText, nullptr));
                EXPECT_EQ(held, live());
            });
    }
}

// The door and prepared conversions: the whole answer, or that memory is exhausted; never less of it.
TEST_F(MemoryTest, AnswersOfTheDoorAreWholeOrNone) {
    UomEntry entry;
    const auto converted = [](int32_t status, UomConversion *conversion) {
        const double value = conversion ? uom_ConvertOne(conversion, 20.0) : 0.0;
        const std::string text = joined(status, conversion != nullptr, value);
        uom_FreeConversion(conversion);
        return status == 11 && !conversion ? "exhausted" : text;
    };
    const auto typed = [&](const char *classString, const char *text) {
        const int32_t status = uom_ReadEntry(classString, text, &entry);
        return status == 11 ? "exhausted"
                            : joined(status, entry.classString, entry.units, entry.message, entry.suggestion);
    };
    const auto pair = [&](const char *classString, const char *from, const char *to) {
        UomConversion *conversion = nullptr;
        const int32_t status = uom_NewConversionFromEntries(classString, from, to, &conversion, &entry);
        return converted(status, conversion) + (status == 11 ? "" : entry.message);
    };
    const auto table = [](UomTable *rows) {
        std::string text;
        for (const std::string &row : takeLines(rows))
            text += row + ";";
        return text == "null;" ? "exhausted" : text;
    };
    const Chain pounds("(MassRate) 2 / Pres", "(lb/hr)2/kPag"), kilograms("(MassRate) 2 / Pres", "(kg/sec)2/bar");
    const std::string data = "BEGINUOMLIST\nn N n 0 0 1\nm M Meter 0 0 1\nENDUOMLIST\nBEGINLIST\nLeng\nm\nENDLIST\n"
                             "BEGINCLASSLIST\nReach=Leng\nENDCLASSLIST\nBEGINSLATE\nOnly\nLeng=m\nENDSLATE\n";
    const std::string aliases = "stone = 14 lb\n[Mass]\nslug = 32.17 lb // at sea level\n";
    const std::pair<const char *, std::function<std::string()>> answers[] = {
        {"prepared from texts",
         [&] {
             UomConversion *made = nullptr;
             const int32_t status = uoms_NewConversion("(MassRate) 2 / Pres", "(lb/hr)2/kPag", "(kg/sec)2/bar", &made);
             return converted(status, made);
         }},
        {"prepared from chains",
         [&] {
             UomConversion *made = nullptr;
             const int32_t status = uom_NewConversion(pounds.head, kilograms.head, &made);
             return converted(status, made);
         }},
        {"prepared from slates",
         [&] {
             UomConversion *made = nullptr;
             const int32_t status = uoms_NewConversion("MassRate", "English", "Metric", &made);
             return converted(status, made);
         }},
        {"a suggestion", [&] { return typed("Pres", "5 kPs"); }},
        {"a suggestion of any class", [&] { return typed("", "5 kPs/hr"); }},
        {"a product of a class string", [&] { return typed("Mass / (Area Time)", "3 lb/m2-hr"); }},
        {"a class that is none", [&] { return typed("Pressure drop", "3 kPa"); }},
        {"two texts of a class", [&] { return pair("Pres", "5 kPag", "bar"); }},
        {"two texts of no class", [&] { return pair("", "kg2/(m3-K)", "lb2/(m3-F)"); }},
        {"two texts, the second refused", [&] { return pair("", "kPa", "kPs"); }},
        {"two texts that do not fit", [&] { return pair("", "kPa", "kg"); }},
        {"classes of a text", [&] { return table(uom_GetEntryClasses("kPag")); }},
        {"classes of no text", [&] { return table(uom_GetEntryClasses("kPs")) + "."; }},
        {"words", [&] { return table(uom_Search("pund mass", 9)); }},
        {"choices", [&] { return table(uom_GetChoices("Pres")); }},
        {"choices of a class string", [&] { return table(uom_GetChoices("Mass / Area")); }},
        {"aliases",
         [&] {
             if (uom_ReadAliasText(aliases.data(), aliases.size()) != 0)
                 return std::string("exhausted");
             const std::string read = typed("Mass", "2 slug");
             return read == "exhausted" ? read : read + table(uom_GetAliases());
         }},
        {"another catalogue", [&] {
             UomCatalogue *const own = uom_NewCatalogue();
             if (!own)
                 return std::string("exhausted");
             UomCatalogue *const before = uom_UseCatalogue(own);
             const int32_t status = uom_InitText(data.data(), data.size(), 0, nullptr);
             const std::string read = status == 0 ? typed("Reach", "2 m") : status == 11 ? "exhausted" : "refused";
             uom_UseCatalogue(before);
             uom_FreeCatalogue(own);
             return read;
         }}};
    const auto forget = [] {
        catalogue_DropWords(catalogue());
        mem_Free(std::exchange(catalogue().aliasText, nullptr));
    };
    for (const auto &pairOf : answers) {
        const char *const what = pairOf.first;
        const auto &answer = pairOf.second;
        forget();
        const std::string whole = answer();
        ASSERT_EQ(whole.find("exhausted"), std::string::npos) << what;
        forget();
        const int32_t held = live();
        int refused = 0;
        std::string text;
        failEach(
            what, [&] { text = answer(); },
            [&](bool failed) {
                const bool exhausted = text.find("exhausted") != std::string::npos;
                EXPECT_TRUE(text == whole || (failed && exhausted)) << text << "\nin place of\n" << whole;
                refused += exhausted;
                forget();
                EXPECT_EQ(live(), held);
            });
        EXPECT_GT(refused, 0) << what;
    }
}

TEST_F(MemoryTest, DefaultsSayWhy) {
    for (const auto &pair : {std::pair("MassRate", "lb/hr"), std::pair("GaugePresBasis", "9")}) {
        int32_t status = uoms_SetClassDefault("SI", pair.first, ""), refused = 0;
        std::string message;
        failEach(
            pair.first,
            [&] {
                status = uoms_SetClassDefault("SI", pair.first, pair.second);
                message = lastError();
            },
            [&](bool) {
                EXPECT_TRUE(status == 0 || (status == 11 && message.find("memory is exhausted") != std::string::npos))
                    << status << " " << message;
                refused += status != 0;
                uoms_SetClassDefault("SI", pair.first, "");
            });
        EXPECT_GT(refused, 0) << pair.first;
    }
}

// A failed start's catalogue stays until the next start, or the unloading; no start adds to what another left.
TEST_F(MemoryTest, FailedStartsLeaveNothingForGood) {
    uom_Cleanup();
    const std::string broken = "BEGINUOMLIST\nn N n 0 0 1\nENDUOMLIST\nBEGINCOMMONLIST\nShort\nn\nENDCOMMONLIST\n"
                               "BEGINSLATE\nOnly\nENDSLATE\nENDLIST\n";
    int32_t held = 0;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(startWith(broken), 2);
        EXPECT_GT(live(), 0);
        EXPECT_EQ(i == 0 ? live() : held, live());
        held = live();
    }
    ASSERT_EQ(startSmall(), 0);
    EXPECT_EQ(uom_GetSetType("Only"), -1);
    uom_Cleanup();
    EXPECT_EQ(startWith(broken), 2);
    startup_End(catalogue());
    EXPECT_EQ(live(), 0);
}

// What gives something new gives all of it or nothing.
TEST_F(MemoryTest, ResultsAreWholeOrNull) {
    const auto array = [](char **(*make)(int32_t *)) {
        int32_t count = 0;
        char **texts = make(&count);
        std::string text = texts ? "" : "null";
        for (int32_t i = 0; texts && i < count; ++i)
            text += std::string(texts[i] ? texts[i] : "?") + ";";
        uoms_FreeArray(texts);
        return text;
    };
    const auto table = [](UomTable *lines) {
        std::string text;
        for (const std::string &line : takeLines(lines))
            text += line + ";";
        return text == "null;" ? "null" : text;
    };
    const auto chain = [](UomStruct head) {
        const std::string text = head ? describeUnits(head) : "null";
        uom_Free(&head);
        return text;
    };
    // With the system's number for exhausted memory when it is not whole.
    const auto document = [&](int32_t options) {
        const int32_t status = uom_Dump(options, path.c_str());
        EXPECT_TRUE(status == 0 || status == ENOMEM) << status;
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return status == 0 ? text.str() : "null";
    };
    for (int32_t slate = 2; slate < UOM_SET_MAX; ++slate) // the document of one slate, and of Current
        uoms_SetClassDefault(takeLines(uom_GetSetList())[static_cast<size_t>(slate)].c_str(), "allowModify", "0");
    const std::string lengthy = "lb" + std::string(1000, ' ') + "/m3";
    const ScopedTable texts(tableOf({"a", "b"}));
    const std::function<std::string()> results[] = {
        [&] { return table(uoms_GetSetDefinition("Metric", 0)); },
        [&] { return table(uoms_GetSetDefinition("Metric", 2)); },
        [&] { return table(uom_GetUnitList(CLASS_TEMP)); },
        [&] { return table(uom_GetKnownUnits()); },
        [&] { return table(uom_GetKnownLists()); },
        [&] { return array([](int32_t *n) { return uoms_GetSetNames(catalogue(), n); }); },
        [&] { return array([](int32_t *n) { return uoms_GetCommonListNames(catalogue(), n); }); },
        [&] { return array(uoms_GetSetPropertyList); },
        [&] { return array(uoms_GetServerPropertyList); },
        [&] { return array([](int32_t *n) { return uoms_GetClassTextList(catalogue(), "token", n); }); },
        [&] { return array([](int32_t *n) { return uoms_GetClassUnitPairs(catalogue(), "Density", "lb/ft3", n); }); },
        [&] { return table(uom_GetSetList()); },
        [&] { return table(uom_GetClassList(1)); },
        [&] { return table(tbl_Copy(texts.table)); },
        [&] {
            Preprocessor preprocessor;
            TokenReader *const reader = reader_Create(0, 0, nullptr, preprocessor);
            const bool whole = reader && reader_SetDelimiters(reader, "x") == 0 && reader_SplitText(reader, "axb") == 0;
            const std::string text = whole ? reader_Token(reader, 1) : "null";
            reader_Free(reader);
            return text;
        },
        [&] { return array([](int32_t *n) { return uoms_GetUOMList(catalogue(), "Mass", n); }); },
        [&] { return chain(uoms_New("(Mass Leng) 2 / Rate")); },
        [&] { return chain(uom_CreateStruct(CLASS_RATE, 1, nullptr)); },
        [&] { return chain(uom_StringToStruct("lb/hr", CLASS_RATE, 1)); },
        [&] { return chain(uom_ClassAndUnitToStruct("WTRA LB/HR", 2)); },
        [&] {
            UomStruct set = nullptr;
            const int32_t status = uom_SetClassandUnit(&set, CLASS_RATE, "lb/hr", 1);
            EXPECT_EQ(status, set == nullptr);
            return chain(set);
        },
        [&] { return document(REPORT_DEFINITIONS); },
        [&] {
            UomStruct filled = uoms_New("Density");
            const int32_t status = filled ? uom_FillStructFromString(filled, lengthy.c_str(), 1) : 11;
            const std::string text = chain(filled);
            EXPECT_TRUE(status == 0 || (status == 11 && (text == "null" || text == "18:- 15:-"))) << text;
            return status == 0 ? text : "null";
        }};
    for (const auto &result : results) {
        const std::string whole = result();
        const int32_t held = live();
        std::string text;
        failEach(
            whole.substr(0, 40), [&] { text = result(); },
            [&](bool failed) {
                EXPECT_EQ(text, failed ? "null" : whole);
                EXPECT_LE(live(), held);
            });
    }
}

} // namespace
