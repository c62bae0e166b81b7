// Exhausted memory at each allocation in turn: whatever is called does all of it or nothing, says which, and
// leaks nothing.
#include <functional>

#include "slates/lists.h"
#include "slates/properties.h"
#include "slates/working_units.h"
#include "tests/library_fixture.h"

namespace {

int asked, failing, fresh; // allocations asked for, the number of the one that fails, blocks given
bool forGood;              // all behind it fail as well

void *faulty(void *block, size_t size) {
    if (++asked == failing || (forGood && asked > failing))
        return nullptr;
    void *given = std::realloc(block, size);
    if (!block && given)
        ++fresh;
    return given;
}

class MemoryTest : public LibraryTest {
protected:
    void SetUp() override {
        path = WriteData(SMALL_DATA);
        fresh = asked = failing = 0;
        forGood = false;
        freed = memCounters.frees;
        memReallocate = faulty;
    }

    // Blocks that the library holds.
    int32_t Live() const { return fresh - (memCounters.frees - freed); }

    // Runs with the n-th allocation failing; whether it came to that.
    static bool Fails(int n, bool others, const std::function<void()> &run) {
        asked = 0;
        failing = n;
        forGood = others;
        run();
        const bool failed = asked >= n;
        failing = 0;
        forGood = false;
        return failed;
    }

    // All that can be seen of classes, lists and slates.
    static std::string Snapshot() {
        std::string text = std::to_string(UOM_SET_MAX) + " " + std::to_string(uom_GetUOMClassCount()) + "\n";
        for (int32_t c = 1; c < uom_GetUOMClassCount(); ++c) {
            for (const int32_t style : {1, 2, 5}) {
                char out[64];
                uom_GetClassText(c, out, sizeof out, style);
                text += std::string(out) + ",";
            }
            for (const std::string &unit : TakeLines(uom_GetUnitList(c)))
                text += " " + unit;
            text += "\n";
        }
        for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate) {
            char name[64], parent[64];
            uom_GetBaseName2(slate, name, sizeof name);
            uom_GetSetBasedOn2(slate, parent, sizeof parent);
            text += std::string(name) + "<" + parent + " " + std::to_string(uom_GetCurrentSet());
            for (const int32_t format : {1, 2})
                for (const std::string &line : TakeLines(uoms_GetSetDefinition(name, format)))
                    text += "|" + line;
            text += "\n";
        }
        int32_t count = 0;
        if (char **lists = uoms_GetCommonListNames(&count)) {
            for (int32_t i = 0; i < count; ++i)
                text += std::string(lists[i]) + ";";
            uoms_FreeArray(lists);
        }
        return text;
    }

    // Where two snapshots part, empty when they are equal.
    static std::string Difference(const std::string &is, const std::string &expected) {
        if (is == expected)
            return "";
        size_t i = 0;
        while (i < is.size() && i < expected.size() && is[i] == expected[i])
            ++i;
        const size_t from = i < 30 ? 0 : i - 30;
        return "\"" + is.substr(from, 70) + "\" in place of \"" + expected.substr(from, 70) + "\"";
    }

    std::string path;
    int32_t freed = 0;
};

TEST_F(MemoryTest, StartUp) {
    ASSERT_EQ(Start(path), 0);
    const std::string whole = Snapshot();
    uom_Cleanup();
    EXPECT_EQ(Live(), 0);
    std::string silent; // allocations whose failure left something out of a library that said it was started
    for (const bool others : {false, true})
        for (int n = 1;; ++n) {
            SCOPED_TRACE(testing::Message() << "allocation " << n << (others ? " and all behind it" : ""));
            int32_t status = -1;
            const bool failed = Fails(n, others, [&] { status = Start(path); });
            if (status == 0) {
                if (Snapshot() != whole)
                    silent += std::to_string(n) + " ";
                uom_Cleanup();
            } else {
                EXPECT_EQ(status, 11);
                EXPECT_EQ(uomInitDone, 0);
                EXPECT_NE(Message().find("emory"), std::string::npos) << Message();
            }
            ASSERT_EQ(Start(path), 0); // the next one mends it
            EXPECT_EQ(Resolved("Current", "Temp"), "F");
            EXPECT_EQ(TakeLines(uom_GetUnitList(CLASS_TEMP)).size(), 3u);
            uom_Cleanup();
            ASSERT_EQ(Live(), 0);
            if (!failed)
                break;
            ASSERT_LT(n, 5000);
        }
    EXPECT_EQ(silent, "");
}

struct Step {
    const char *name;
    std::function<int32_t()> run; // 0 when it says that it was done
    std::function<void()> undo;   // back to what was before
};

TEST_F(MemoryTest, EachOperationDoesAllOrNothing) {
    ASSERT_EQ(Start(path), 0);
    NewSlate("Plant", "Metric");
    ASSERT_TRUE(State("Plant", "MassRate", "lb/hr"));
    ASSERT_TRUE(State("Plant", "GaugePresBasis", "90"));
    ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area"), 0);
    ASSERT_EQ(uoms_NewClass("Load", "Mass"), 0);
    ASSERT_TRUE(State("Plant", "Flux", "lb/m2"));
    const std::vector<std::string> saved = TakeLines(uoms_GetSetDefinition("Plant", 2));
    const auto put = [](const char *className, const char *value) {
        return [=] { return uoms_SetClassDefault("Plant", className, value); };
    };
    const auto withdraw = [](const char *className) { return [=] { uoms_SetClassDefault("Plant", className, ""); }; };
    const int32_t lb[] = {uom_GetUnitType("lb"), 0}, area[] = {uom_GetUnitType("kg"), uom_GetUnitType("m2")};
    const int32_t none[] = {0, 0}, plant = uom_GetSetType("Plant");
    const int32_t load = ClassOf("Load"), density = ClassOf("Density");
    const Step steps[] = {
        {"new slate", [] { return uoms_NewSet("New") < 0 ? 11 : 0; }, [] { uoms_DeleteSet("New"); }},
        {"parent", [] { return uoms_PutSetBasedOn("Plant", "SI") < 0 ? 11 : 0; },
         [] { uoms_PutSetBasedOn("Plant", "Metric"); }},
        {"rename",
         [] {
             uoms_RenameSet("Plant", "Works");
             return uom_GetSetType("Works") < 0 ? 11 : 0;
         },
         [] { uoms_RenameSet("Works", "Plant"); }},
        {"default of a base class", put("Time", "hr"), withdraw("Time")},
        {"default of a late class", [=] { return uom_SetClassDefault(UOM_SET_SI, load, lb, none); },
         [] { uoms_SetClassDefault("SI", "Load", ""); }},
        {"default of a composite class", put("Density", "lb/m3"), withdraw("Density")},
        {"default by number", [=] { return uom_SetClassDefault(plant, density, area, none); }, withdraw("Density")},
        {"default with rules", put("Temp", "F"), withdraw("Temp")},
        {"withdrawn composite", put("MassRate", ""), [] { State("Plant", "MassRate", "lb/hr"); }},
        {"gauge basis", put("GaugePresBasis", "95"), [] { State("Plant", "GaugePresBasis", "90"); }},
        {"gauge basis in pascals", put("GaugePresBasis", "95000"), [] { State("Plant", "GaugePresBasis", "90"); }},
        {"new base class", [] { return uoms_NewClass("Weight", "Mass"); }, [] { uoms_DeleteClass("Weight"); }},
        {"new composite class", [] { return uoms_NewClass("Feed", "MassRate"); }, [] { uoms_DeleteClass("Feed"); }},
        {"keyword", [] { return uoms_PutClassText("Load", "LOAD", 2); }, [] { uoms_PutClassText("Load", "load", 2); }},
        {"choices",
         [] {
             UomTable *tokens = TableOf({"lb"});
             const int32_t status = tokens && tokens->count == 1 ? uoms_SetUOMChoices("Mass", tokens) : 11;
             tbl_Free(tokens);
             return status;
         },
         [] { uoms_SetUOMChoices("Mass", nullptr); }},
        {"choices by number", [=] { return uom_SetUOMChoices(CLASS_MASS, lb); },
         [] { uom_SetUOMChoices(CLASS_MASS, nullptr); }}};
    uoms_PutClassText("Load", "load", 2);
    for (const Step &step : steps)
        for (const bool others : {false, true}) {
            const std::string before = Snapshot();
            ASSERT_EQ(step.run(), 0) << step.name << ": " << Message();
            const std::string after = Snapshot();
            const int32_t live = Live();
            EXPECT_NE(Difference(after, before), "") << step.name;
            step.undo();
            ASSERT_EQ(Difference(Snapshot(), before), "") << step.name;
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message() << step.name << ", allocation " << n << (others ? " on" : ""));
                int32_t status = -1;
                const bool failed = Fails(n, others, [&] { status = step.run(); });
                const std::string wrong = Difference(Snapshot(), status == 0 ? after : before);
                EXPECT_EQ(wrong, "") << "status " << status;
                if (status != 0) {
                    ASSERT_EQ(step.run(), 0) << Message();
                }
                if (wrong.empty()) {
                    EXPECT_LE(Live(), live); // fewer where an index for look-ups was given up
                }
                step.undo();
                if (!failed || !wrong.empty())
                    break;
                ASSERT_LT(n, 1000);
            }
        }
    uom_Cleanup();
    EXPECT_EQ(Live(), 0);
}

// Whole scenarios that go on whatever fails; afterwards nothing of them is left, and nothing else has
// changed.
TEST_F(MemoryTest, ScenariosLeaveNothingBehind) {
    ASSERT_EQ(Start(path), 0);
    ASSERT_EQ(uoms_NewClass("First", "Mass"), 0); // the one that stays
    const int32_t slates = UOM_SET_MAX;
    const std::function<void()> scenarios[] = {
        [] { // a slate made, used and deleted
            uoms_NewSet("Plant");
            uoms_PutSetBasedOn("Plant", "Metric");
            uoms_SetClassDefault("Plant", "Temp", "F");
            uoms_SetClassDefault("Plant", "MassRate", "lb/hr");
            uoms_SetClassDefault("Plant", "GaugePresBasis", "90");
            uoms_CopySet("Plant", "English");
            uoms_ClearSet("Plant");
            char out[64];
            uoms_GetDisplayUnits("Pres/MassRate 2", "Plant", out, sizeof out, 1);
            uoms_GetClassDefault("Plant", "MassRate", out, sizeof out);
            uoms_RenameSet("Plant", "Works");
            tbl_Free(uom_GetSetList());
            uoms_DeleteSet("Plant");
            uoms_DeleteSet("Works");
        },
        [] { // a definition out and in
            uoms_NewSet("Plant");
            for (const int32_t format : {0, 1, 2}) {
                UomTable *lines = uoms_GetSetDefinition("Metric", format);
                uoms_PutSetDefinition("Plant", lines);
                tbl_Free(lines);
            }
            uoms_DeleteSet("Plant");
        },
        [] { // a class made, used and deleted
            uoms_NewClass("Load", "Mass");
            uoms_NewClass("Flux", "MassRate / Area");
            uoms_SetClassDefault("Metric", "Flux", "lb/hr-m2");
            uoms_PutClassText("Flux", "Mass Flux", 5);
            double value = 1;
            uoms_ConvertArray(&value, 1, "Flux / Load", "kg/hr-m2/kg", "lb/hr-m2/lb");
            while (uom_GetClassType("Flux", 1) > 0 && uoms_DeleteClass("Flux") == 0)
                continue;
            while (uom_GetClassType("Load", 1) > 0 && uoms_DeleteClass("Load") == 0)
                continue;
        }};
    for (const std::function<void()> &scenario : scenarios)
        for (const bool others : {false, true}) {
            scenario();
            std::string before = Snapshot();
            int32_t classes = uom_GetUOMClassCount();
            const int32_t live = Live();
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message() << "scenario " << (&scenario - scenarios) << ", allocation " << n
                                                << (others ? " on" : ""));
                const bool failed = Fails(n, others, scenario);
                // A table that could not shrink keeps an empty place.
                while (UOM_SET_MAX > slates)
                    ASSERT_EQ(uom_DeleteSet(UOM_SET_MAX - 1), 0);
                for (const char *name : {"Flux", "Load"}) // what could not be deleted then, can be now
                    if (uom_GetClassType(name, 1) > 0) {
                        EXPECT_EQ(uoms_DeleteClass(name), 0);
                    }
                if (uom_GetUOMClassCount() > classes && !class_Row(classes)) {
                    classes = uom_GetUOMClassCount();
                    before = Snapshot();
                }
                ASSERT_EQ(Difference(Snapshot(), before), "");
                ASSERT_LE(Live(), live);
                if (!failed)
                    break;
                ASSERT_LT(n, 5000);
            }
        }
    uom_Cleanup();
    EXPECT_EQ(Live(), 0);
}

// What gives something new gives all of it or null.
TEST_F(MemoryTest, ResultsAreWholeOrNull) {
    ASSERT_EQ(Start(path), 0);
    const auto array = [](char **texts, int32_t count) {
        std::string text = texts ? "" : "null";
        for (int32_t i = 0; texts && i < count; ++i)
            text += std::string(texts[i] ? texts[i] : "?") + ";";
        uoms_FreeArray(texts);
        return text;
    };
    const auto table = [](UomTable *lines) {
        std::string text;
        for (const std::string &line : TakeLines(lines))
            text += line + ";";
        return text == "null;" ? "null" : text;
    };
    const auto chain = [](UomStruct head) {
        const std::string text = head ? std::to_string(uom_GetUnitCount(head)) : "null";
        uom_Free(&head);
        return text;
    };
    const std::function<std::string()> results[] = {[&] { return table(uoms_GetSetDefinition("Metric", 0)); },
                                                    [&] { return table(uoms_GetSetDefinition("Metric", 1)); },
                                                    [&] { return table(uoms_GetSetDefinition("Metric", 2)); },
                                                    [&] { return table(uom_GetSetList()); },
                                                    [&] { return table(uom_GetUnitList(CLASS_TEMP)); },
                                                    [&] {
                                                        int32_t n = 0;
                                                        char **texts = uoms_GetSetNames(&n);
                                                        return array(texts, n);
                                                    },
                                                    [&] {
                                                        int32_t n = 0;
                                                        char **texts = uoms_GetUOMList("Mass", &n);
                                                        return array(texts, n);
                                                    },
                                                    [&] {
                                                        int32_t n = 0;
                                                        char **texts = uoms_GetSetPropertyList(&n);
                                                        return array(texts, n);
                                                    },
                                                    [&] { return chain(uoms_New("(Mass Leng) 2 / Rate")); }};
    for (const auto &result : results) {
        const std::string whole = result();
        const int32_t live = Live();
        for (int n = 1;; ++n) {
            SCOPED_TRACE(testing::Message() << whole << " allocation " << n);
            std::string text;
            const bool failed = Fails(n, n % 2 == 0, [&] { text = result(); });
            EXPECT_EQ(text, failed ? "null" : whole);
            EXPECT_LE(Live(), live);
            if (!failed || text != "null")
                break;
            ASSERT_LT(n, 1000);
        }
    }
}

} // namespace
