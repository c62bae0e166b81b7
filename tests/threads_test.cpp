// Threads that read one catalogue, and threads with a catalogue each. Built with the thread sanitizer, these tests are
// also what it looks at.
#include "tests/library_fixture.h"

#include <atomic>
#include <fstream>
#include <thread>

#include "uom/catalogue.h"

namespace {

constexpr int THREADS = 6;

void inThreads(const std::function<void(int)> &work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
        threads.emplace_back(work, i);
    for (std::thread &thread : threads)
        thread.join();
}

std::string contents(const std::string &path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// A catalogue of the calling thread's own, started with a text.
struct OwnCatalogue {
    UomCatalogue *own = uom_NewCatalogue();
    UomCatalogue *before = uom_UseCatalogue(own);
    explicit OwnCatalogue(const std::string &text) {
        EXPECT_EQ(uom_InitText(text.data(), text.size(), 0, nullptr), 0) << uom_GetLastErrorMessage();
    }
    ~OwnCatalogue() {
        EXPECT_EQ(uom_UseCatalogue(before), own);
        uom_FreeCatalogue(own);
    }
};

class Threads : public ShippedTest {
public:
    // One call of each kind that reads, its answers as one text.
    static std::string answers(int variant) {
        static const char *const cases[][4] = {{"Pres", "kPag", "psia", "Pressure"},
                                               {"Pres/VolRate 2", "kpa/(m3/sec)2", "psi/(ft3/min)2", "nosuch"},
                                               {"PetroDensity", "API", "kg/m3", "Rate"},
                                               {"(Leng Mass) 2", "(ft-lb)2", "(m-kg)2", "Htco"},
                                               {"Rate", "lb/hr", "SI", "English"}};
        variant %= 5;
        const char *const(&c)[4] = cases[variant];
        std::string text(512, '\0');
        double values[] = {1.5, 250.0, -1e36, 20.0}, factor = 0, offset = 0;
        std::ostringstream out;
        out.precision(17);
        out << uoms_ConvertArray(values, 4, c[0], c[1], c[2]);
        for (const double value : values)
            out << ' ' << value;
        out << uoms_CalculateConvConstants(c[0], c[1], c[2], &factor, &offset) << ' ' << factor << ' ' << offset;
        out << uoms_ValidateUOM(c[0], c[3]) << uom_GetLastErrorMessage() << uom_GetClassType(c[3], 1);
        out << uoms_GetDisplayUnits(c[0], "Metric", text.data(), 512, 6);
        out << uoms_GetAbsoluteClass(c[0], text.data(), 512) << text.c_str();
        const Chain chain(c[0], c[1]);
        uom_InitializeUnits(chain.head, UOM_SET_SI);
        out << display(chain.head) << uom_ConvertToCurrent(3.0, chain.head)
            << uoms_GetClassDefault("SI", c[3], text.data(), 512);
        for (const std::string &line : takeLines(uoms_GetSetDefinition("SI", variant % 3)))
            out << line;
        return out.str();
    }
};

TEST_F(Threads, ReadOneCatalogueAtOnce) {
    std::vector<std::string> expected;
    for (int i = 0; i < 5; ++i)
        expected.push_back(answers(i));
    inThreads([&](int thread) {
        for (int round = 0; round < 40; ++round)
            EXPECT_EQ(answers(thread + round), expected[static_cast<size_t>(thread + round) % 5]);
    });
    inThreads([](int) { EXPECT_EQ(uom_Dump(UOM_REPORT_FULL, "/dev/null"), 0); });
}

TEST_F(Threads, HaveACatalogueEach) {
    const std::string text = contents(UOM_TEST_DATA);
    inThreads([&](int thread) {
        for (int round = 0; round < 3; ++round) {
            const OwnCatalogue own(text);
            const double pressure = 80.5 + thread;
            EXPECT_TRUE(state("Current", "GaugePresBasis", std::to_string(pressure).c_str()));
            EXPECT_EQ(uoms_NewClass(("Own" + std::string(1, static_cast<char>('a' + thread))).c_str(), "Pres / Leng"),
                      0);
            double value = 250.0;
            EXPECT_EQ(uoms_ConvertArray(&value, 1, "Pres", "kPag", "kPa"), 0);
            EXPECT_DOUBLE_EQ(value, 250.0 + pressure);
            uom_SetDefaultDisplayStyle(1 + thread);
            EXPECT_EQ(answers(2).empty(), false);
        }
    });
    double value = 250.0;
    EXPECT_EQ(uoms_ConvertArray(&value, 1, "Pres", "kPag", "kPa"), 0);
    EXPECT_DOUBLE_EQ(value, 351.325);
    EXPECT_EQ(uom_GetClassType("Owna", 1), 0);
    EXPECT_EQ(uom_GetDefaultDisplayStyle(), 1);
}

TEST_F(Threads, LeaveEachOthersScratchAlone) {
    const Chain density("PetroDensity", "kg/m3"), pressure("Pres", "psia"), bars("Pres", "bar");
    const Chain gravity("PetroMass", "API"), relative("PetroMass", "spgr");
    uoms_New("nosuch");
    const std::string message = lastError();
    const char *const address = uom_GetLastErrorMessage();
    uom_ConvertFromTo(1.0, relative.head, gravity.head); // the formula waits, in this thread
    const double factor = running().factor;
    inThreads([&](int) {
        EXPECT_EQ(lastError(), "");
        EXPECT_NE(uom_GetLastErrorMessage(), address);
        EXPECT_DOUBLE_EQ(uom_ConvertFromTo(14.5, pressure.head, bars.head), 14.5 * 6.894757293168361 / 100);
        uoms_New("other");
        EXPECT_NE(lastError(), message);
    });
    EXPECT_EQ(joined(lastError(), factor, running().apiPending), joined(message, running().factor, 1));
    EXPECT_EQ(uom_GetLastErrorMessage(), address);
    EXPECT_NEAR(uom_ConvertFromTo(1.0, relative.head, relative.head), 10.0, 1e-9) << "what waited is completed here";
}

thread_local bool memoryFails = false;

TEST_F(Threads, ExhaustedMemoryIsThatOfOneThread) {
    memReallocate = [](void *block, size_t size) { return memoryFails ? nullptr : std::realloc(block, size); };
    inThreads([](int thread) {
        memoryFails = thread % 2 == 1;
        for (int round = 0; round < 200; ++round) {
            UomTable *lines = uoms_GetSetDefinition("SI", 0);
            EXPECT_EQ(lines == nullptr, memoryFails);
            tbl_Free(lines);
        }
    });
}

// A chain made node by node remembers its end; another thread may free it, and get its memory again.
TEST_F(Threads, HandChainsOn) {
    std::atomic<UomStruct> handed = nullptr;
    std::thread other([&] {
        for (int i = 0; i < 2000; ++i) {
            UomStruct chain = nullptr;
            while (!(chain = handed.exchange(nullptr)))
                std::this_thread::yield();
            uom_AddNewStruct(&chain);
            EXPECT_EQ(uom_GetUnitCount(chain), 4);
            uom_Free(&chain);
        }
    });
    for (int i = 0; i < 2000; ++i) {
        UomStruct chain = nullptr;
        for (int node = 0; node < 3; ++node)
            uom_AddNewStruct(&chain);
        EXPECT_EQ(uom_GetUnitCount(chain), 3);
        while (handed.load())
            std::this_thread::yield();
        handed = chain;
    }
    other.join();
}

class Catalogues : public LibraryTest {};

TEST_F(Catalogues, AreStartedAndEndedByThemselves) {
    ASSERT_EQ(startShipped(), 0);
    const int32_t slates = UOM_SET_MAX, metric = UOM_SET_METRIC;
    UomCatalogue *own = uom_NewCatalogue();
    EXPECT_EQ(uom_UseCatalogue(own), nullptr);
    EXPECT_EQ(uom_GetClassType("Pres", 1), 0) << "not started";
    const std::string text =
        "UOMOPTION molar\nBEGINUOMLIST\n\"-\" \"-\" \"-\" 0 0 1\n\"parsec\" \"PSC\" \"parsecs\" 0 0 3.1e16\n"
        "ENDUOMLIST\nBEGINLIST\nLeng\nparsec\nENDLIST\nBEGINSLATE\nHere\nLeng=parsec\nENDSLATE\n";
    const char *const words[] = {"-f", "/nosuch/file"};
    EXPECT_EQ(uom_InitText(text.data(), text.size(), 2, words), 0) << lastError();
    EXPECT_EQ(joined(unitText(unitOf("parsec"), 5), stated("Here", "Leng"), unitOf("ft"), uom_GetSetType("Here")),
              "parsecs parsec 0 1");
    EXPECT_EQ(joined(slates, metric), joined(UOM_SET_MAX, UOM_SET_METRIC)) << "the variables are the default one's";
    EXPECT_EQ(uom_InitText("BEGINLIST", 9, 0, nullptr), 0) << "started already";
    EXPECT_EQ(uom_Init3(2, words), 1);
    EXPECT_EQ(lastError(), "Unable to open the Unit of Measure data file \"/nosuch/file\".");
    const std::string wrong = "ENDUOMLIST\n\nENDLIST\n";
    EXPECT_EQ(uom_InitText(wrong.data(), wrong.size(), 0, nullptr), 2);
    EXPECT_EQ(lastError(), "UOM File \"(text)\", Error on line 3, \"ENDLIST\" not expected.");
    EXPECT_EQ(uom_InitText(nullptr, 1, 0, nullptr), 1);
    EXPECT_EQ(uom_InitText(nullptr, 0, 0, nullptr), 0);
    uom_FreeCatalogue(own); // in use: the default one is from then on
    EXPECT_EQ(uom_UseCatalogue(nullptr), nullptr);
    EXPECT_NE(unitOf("ft"), 0);
    uom_FreeCatalogue(nullptr);
}

TEST_F(Catalogues, ReadATextAsTheFile) {
    const std::string text = contents(UOM_TEST_DATA);
    ASSERT_EQ(startShipped(), 0);
    std::vector<Lines> expected;
    for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate)
        expected.push_back(
            takeLines(uoms_GetSetDefinition(takeLines(uom_GetSetList())[static_cast<size_t>(slate)].c_str(), 2)));
    uom_Cleanup();
    ASSERT_EQ(uom_InitText(text.data(), text.size(), 0, nullptr), 0);
    for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate)
        EXPECT_EQ(expected[static_cast<size_t>(slate - 1)],
                  takeLines(uoms_GetSetDefinition(takeLines(uom_GetSetList())[static_cast<size_t>(slate)].c_str(), 2)));
    EXPECT_EQ(uom_GetUnitType("psig"), unitOf("psig"));
}

} // namespace
