// uom.hpp as a host sees it: owners, whole texts, statuses with their messages, and the catalogue in use.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "uom/uom.hpp"

namespace {

class HppTest : public testing::Test {
protected:
    void SetUp() override { uom::startFile(UOM_TEST_DATA); }
    void TearDown() override { uom::end(); }
};

// "status: message" of a result.
template <class T> std::string refusal(const uom::Result<T> &result) {
    return std::to_string(result.code()) + ": " + result.message();
}

template <class Call> std::string thrown(Call &&call) {
    try {
        call();
    } catch (const uom::Error &error) {
        return std::to_string(error.status()) + ": " + error.what();
    }
    return "nothing";
}

// To the same object, where compilers do not see it.
template <class Owner> void moveTo(Owner &to, Owner &from) {
    to = std::move(from);
}

// --- owners

TEST_F(HppTest, ChainsMoveAndAreCopiedOnDemand) {
    uom::Chain chain("Pres/VolRate 2", "KPA / (M3 / SEC) 2");
    uom::Chain copy = chain.copy();
    uom::Chain moved = std::move(chain);
    EXPECT_TRUE(chain.empty());
    EXPECT_EQ(chain.units(), "");
    EXPECT_EQ(chain.classText(), "");
    EXPECT_EQ(chain.begin(), chain.end());
    EXPECT_TRUE(chain.copy().empty());
    EXPECT_EQ(refusal(chain.tryFill("m")).substr(0, 15), "1: No UOM class");

    moveTo(moved, moved);
    EXPECT_EQ(moved.units(), "kPa/(m3/sec)2");
    moved.fill("psi/(ft3/min)2");
    EXPECT_EQ(copy.units(), "kPa/(m3/sec)2");
    copy = std::move(moved);
    EXPECT_EQ(copy.units(), "psi/(ft3/min)2");
    EXPECT_EQ(copy.classText(), "Pres / VolRate 2");
    EXPECT_EQ(std::distance(copy.begin(), copy.end()), 3);
    EXPECT_EQ(copy.begin()->baseClass, uom::Chain("Pres").get()->baseClass);

    const uom::Chain taken(copy.release());
    EXPECT_TRUE(copy.empty());
    EXPECT_EQ(taken.units(), "psi/(ft3/min)2");
}

TEST_F(HppTest, TablesOfTextsAndNumbers) {
    const std::vector<std::string> lines = {"a", "", std::string(5000, 'x')};
    uom::Table texts = uom::Table::ofTexts(lines);
    const uom::Table copy = texts.copy();
    uom::Table moved = std::move(texts);
    moveTo(moved, moved);
    EXPECT_EQ(moved.texts(), lines);
    EXPECT_EQ(copy.texts(), lines);
    EXPECT_EQ(moved.text(2), lines[2]);
    EXPECT_EQ(moved.text(3), "");
    EXPECT_EQ(texts.size(), 0u);
    EXPECT_TRUE(texts.texts().empty());
    EXPECT_TRUE(texts.copy().empty());
    EXPECT_EQ(texts.number(0), 0.0);

    const uom::Table numbers = uom::Table::ofNumbers(std::vector<double>{1.5, -2.0});
    EXPECT_EQ(numbers.numbers(), (std::vector<double>{1.5, -2.0}));
    EXPECT_EQ(numbers.number(2), 0.0);
    EXPECT_EQ(numbers.text(0), "") << "a number is no address of a text";
    EXPECT_TRUE(uom::Table::ofNumbers({}).empty());
}

TEST_F(HppTest, AConversionThatWasMovedAwayConvertsNothing) {
    uom::Conversion conversion("Leng", "ft", "m");
    uom::Conversion moved = std::move(conversion);
    moveTo(moved, moved);
    EXPECT_EQ(moved(10.0), 3.048);
    std::vector<double> values = {10.0};
    const std::string away = "1: The conversion was moved away.";
    EXPECT_EQ(refusal(conversion.tryConvert(values)), away);
    EXPECT_EQ(thrown([&] { conversion.convert(values); }), away);
    EXPECT_EQ(thrown([&] { conversion(10.0); }), away);
    EXPECT_FALSE(conversion.constants());
    EXPECT_EQ(values[0], 10.0);
}

// --- texts

TEST_F(HppTest, TextsComeBackWhole) {
    // An operation that stops three bytes short of its buffer.
    for (const size_t length : {0u, 1u, 509u, 511u, 512u, 1020u, 1023u, 1024u, 70000u}) {
        const std::string whole(length, 'x');
        EXPECT_EQ(uom::wholeText([&](char *out, int32_t size) {
                      const size_t room = static_cast<size_t>(size) - 3;
                      whole.substr(0, room).copy(out, room);
                  }),
                  whole);
    }
    const std::string blanks(60000, ' ');
    EXPECT_EQ(uom::absoluteClass("Pres" + blanks + "/ Leng"), "PresAbs / Leng");
    EXPECT_EQ(uom::absoluteClass("Mass" + blanks + "/ Leng").size(), 60010u);

    std::string classString = "Htco";
    for (int i = 1; i < 20; ++i)
        classString += " / Htco";
    uom::Chain chain(classString, "English");
    std::vector<char> large(1 << 16);
    uom_GetDisplayUnits(chain.get(), large.data(), 1 << 16, UOM_STYLE_HTML);
    ASSERT_GT(std::strlen(large.data()), 512u);
    EXPECT_EQ(chain.units(UOM_STYLE_HTML), large.data());
    EXPECT_EQ(chain.classText(), classString);
}

TEST_F(HppTest, TextsEndWhereTheirViewEnds) {
    EXPECT_EQ(uom::Chain(std::string_view("Pressure", 4), std::string_view("kPag", 3)).units(), "kPa");
    EXPECT_EQ(uom::findSlate(std::string_view("Metrical", 6)), UOM_SET_METRIC);
}

// --- errors

TEST_F(HppTest, RefusalsHaveStatusAndMessage) {
    const std::string missing = "2: The Unit-of-Measure class is missing.";
    const std::string unknown = "2: Parsing UOM class string \"Foo\" but unable to identify the UOM class \"Foo\".";
    const std::string noSlate = "1: There is no slate \"Foo\".";
    // The message of another failure, or of the same one, stands there before.
    for (int round = 0; round < 2; ++round) {
        for (const char *empty : {"", " ", "/", "2"}) {
            EXPECT_EQ(refusal(uom::Chain::tryMake(empty)), missing) << empty;
            EXPECT_EQ(refusal(uom::tryDimensions(empty)), missing) << empty;
            EXPECT_EQ(refusal(uom::tryDisplayUnits(empty, "SI")), missing) << empty;
            EXPECT_EQ(refusal(uom::tryConvert(1.0, empty, "m", "ft")), missing) << empty;
        }
        EXPECT_EQ(refusal(uom::Chain::tryMake("Foo")), unknown);
        EXPECT_EQ(refusal(uom::Chain::tryMake("Foo", "m")), unknown);
        EXPECT_EQ(refusal(uom::tryUnits("Foo")), unknown);
        EXPECT_EQ(refusal(uom::tryDifferenceClass("Foo")), unknown);
        EXPECT_EQ(refusal(uom::tryDisplayUnits("Foo", "SI")), unknown);
        EXPECT_EQ(refusal(uom::tryConvert(1.0, "Foo", "m", "ft")), unknown);
        EXPECT_EQ(refusal(uom::tryDisplayUnits("Leng", "Foo")), noSlate);
        EXPECT_EQ(refusal(uom::tryFindSlate("")), "1: There is no slate \"\".");
        EXPECT_EQ(refusal(uom::tryDefaults("Foo")), noSlate);
        EXPECT_EQ(refusal(uom::trySlateDefinition("Foo")), noSlate);
        EXPECT_EQ(refusal(uom::tryPutSlateDefinition("Foo", {})), noSlate);
        EXPECT_EQ(refusal(uom::tryNewSlate("Bar", "Foo")), noSlate);
        EXPECT_EQ(refusal(uom::tryDeleteSlate("Foo")), noSlate);
        EXPECT_EQ(refusal(uom::tryUseGaugePressureOf("Foo")), noSlate);
        EXPECT_EQ(refusal(uom::tryStatedDefault("Foo", "Leng")), "1: Unrecognized Unit-of-Measure slate \"Foo\".");
        EXPECT_EQ(refusal(uom::tryStatedDefault("SI", "Foo")), "1: Unrecognized Unit-of-Measure class \"Foo\".");
        EXPECT_EQ(refusal(uom::trySetDefault("SI", "Foo", "m")), "1: Unrecognized Unit-of-Measure class \"Foo\".");
    }
    EXPECT_FALSE(uom::tryFindSlate("Bar")) << "a refused slate was made";
    EXPECT_EQ(refusal(uom::Chain::tryMake("Leng", "kg")),
              "2: UOM string \"kg\": unidentified UOM for UOM class \"Leng\".");
    EXPECT_EQ(refusal(uom::tryConvert(1.0, "Leng", "kg", "m")),
              "3: UOM string \"kg\": unidentified UOM for UOM class \"Leng\".");
    EXPECT_EQ(refusal(uom::tryConvert(1.0, "Leng", "m", "kg")),
              "4: UOM string \"kg\": unidentified UOM for UOM class \"Leng\".");
    EXPECT_EQ(refusal(uom::tryUnits("Density")),
              "1: The class \"Density\" is made of several: each of them has units of its own.");
    EXPECT_EQ(refusal(uom::tryNewClass("Leng", "Mass")),
              "2: UOM class \"Leng\" already exists. New class was not created.");
    EXPECT_EQ(refusal(uom::tryDeleteClass("Leng")), "2: The class \"Leng\" cannot be deleted.");
    EXPECT_EQ(refusal(uom::tryReport(UOM_REPORT_FULL, "/no/such/folder/report")),
              "2: Unable to write the report to \"/no/such/folder/report\": No such file or directory.");
    EXPECT_EQ(thrown([] { uom::findSlate("Foo"); }), noSlate);
    EXPECT_EQ(thrown([] { uom::Chain("Foo"); }), unknown);
}

TEST_F(HppTest, ResultsHoldAValueOrAStatus) {
    uom::Result<std::string> good = uom::tryDisplayUnits("Pres", "SI");
    ASSERT_TRUE(good);
    EXPECT_EQ(good.code(), UOM_DONE);
    EXPECT_EQ(*good, "kPa");
    EXPECT_EQ(std::move(good).valueOr("none"), "kPa");
    EXPECT_EQ(uom::tryDisplayUnits("Pres", "Foo").valueOr("none"), "none");
    EXPECT_EQ(*uom::tryFindSlate("SI"), UOM_SET_SI);
}

// --- conversions

TEST_F(HppTest, ArraysOfAllKinds) {
    const uom::Conversion conversion("Temp", "C", "K");
    double array[] = {0.0, 100.0};
    conversion.convert(array);
    EXPECT_EQ(array[1], 373.15);
    std::vector<float> floats = {100.0f};
    conversion.convert(floats);
    EXPECT_EQ(floats[0], 373.15f);

    const std::vector<double> in = {0.0, 100.0};
    std::vector<double> out(2);
    conversion.convert(in, out);
    EXPECT_EQ(out, (std::vector<double>{273.15, 373.15}));
    out.push_back(7.0);
    EXPECT_EQ(refusal(conversion.tryConvert(in, out)), "1: The arrays of a conversion are of 2 and 3 values.");
    EXPECT_EQ(out, (std::vector<double>{273.15, 373.15, 7.0}));

    struct Stream {
        char tag;
        double pressure, temperature;
    };
    std::vector<Stream> streams = {{'a', 1.0, 0.0}, {'b', 2.0, 100.0}};
    conversion.convertMember(streams, &Stream::temperature);
    EXPECT_EQ(streams[0].temperature, 273.15);
    EXPECT_EQ(streams[1].temperature, 373.15);
    EXPECT_EQ(streams[1].pressure, 2.0);
    double backwards[2];
    conversion.convertStrided(&in[1], -8, backwards, 8, 2);
    EXPECT_EQ(backwards[0], 373.15);

    const std::optional<uom::Constants> constants = conversion.constants();
    ASSERT_TRUE(constants);
    EXPECT_EQ(constants->factor, 1.0);
    EXPECT_EQ(constants->offset, 273.15);
    EXPECT_FALSE(uom::Conversion("PetroDensity", "API", "kg/m3").constants());
}

TEST_F(HppTest, EmptySpansAreConvertedToNothing) {
    const uom::Conversion conversion("Leng", "ft", "m");
    std::vector<double> none;
    std::vector<float> noFloats;
    EXPECT_TRUE(conversion.tryConvert(none));
    EXPECT_TRUE(conversion.tryConvert(noFloats));
    EXPECT_TRUE(conversion.tryConvert(uom::Span<const double>(), uom::Span<double>()));
    EXPECT_TRUE(conversion.tryConvertStrided(nullptr, 0, nullptr, 0, 0));
    EXPECT_TRUE(uom::tryConvert(none, "Leng", "ft", "m"));
    EXPECT_EQ(uom::tryConvert(none, "Leng", "ft", "kg").code(), UOM_CONVERT_BAD_TARGET) << "bad units stay bad";
}

TEST_F(HppTest, ValuesFromTextsAndFromChains) {
    EXPECT_EQ(uom::convert(10, "Leng", "ft", "m"), 3.048);
    std::vector<double> values = {10.0, -1.5e35};
    uom::convert(values, "Leng", "ft", "m");
    EXPECT_EQ(values, (std::vector<double>{3.048, -1.5e35}));
    std::vector<float> floats = {10.0f};
    uom::convert(floats, "Leng", "ft", "m");
    EXPECT_EQ(floats[0], 3.048f);
    EXPECT_EQ(thrown([&] { uom::convert(values, "Leng", "ft", "kg"); }).substr(0, 2), "4:");
    EXPECT_EQ(values[0], 3.048);

    const uom::Chain feet("Leng", "ft"), metres("Leng", "m");
    EXPECT_EQ(uom::Conversion(feet, metres)(10.0), 3.048);
    EXPECT_EQ(uom::Conversion::tryMake(feet, uom::Chain()).code(), UOM_REFUSED);
}

// --- catalogues

TEST_F(HppTest, TypedTexts) {
    const auto entry = uom::tryReadEntry("PresGradient", "3 psi/100ft");
    ASSERT_TRUE(entry) << entry.message();
    EXPECT_EQ(entry->units + " " + std::to_string(*entry->value * entry->scale), "psi/ft 0.030000");
    EXPECT_FALSE(uom::tryReadEntry("Pres", "psi")->value);
    EXPECT_EQ(refusal(uom::tryReadEntry("Pres", "kPs")),
              "1: \"kPs\" is no unit that is known here. Did you mean \"kPa\"?");
    std::string note;
    const auto toC = uom::Conversion::tryFromEntries("", "F", "C", &note);
    ASSERT_TRUE(toC) << toC.message();
    EXPECT_EQ((*toC)(212.0), 100.0);
    EXPECT_EQ(note, "Read as Temp; as TempDiff, 1 F is 0.555556 C.");
    EXPECT_EQ(refusal(uom::Conversion::tryFromEntries("", "F", "Cx")), "4: \"Cx\" is no unit that is known here.");
    EXPECT_EQ(uom::entryClasses("kPa").front(), "Pres");
    EXPECT_EQ(uom::choices("Temp").size(), 4u);
    EXPECT_EQ(uom::search("kilopascal", 1).at(0).token, "kPa");
    ASSERT_TRUE(uom::tryReadAliases("bucket = 10 liter"));
    EXPECT_EQ(uom::tryReadEntry("ActVol", "bucket")->scale, 10.0);
    const uom::Alias bucket = uom::aliases().front();
    EXPECT_EQ(bucket.name + "=" + bucket.units + "[" + bucket.classTokens + "]", "bucket=10 liter[]");
}

TEST_F(HppTest, EachCatalogueHasItsPressure) {
    uom::Catalogue mine;
    mine.startFile(UOM_TEST_DATA);
    {
        const auto inUse = mine.use();
        uom::setDefault("Current", "GaugePresBasis", "83.5");
        EXPECT_NEAR(uom::convert(250.0, "Pres", "kPag", "kPa"), 333.5, 1e-9);
        const auto former = uom::useDefault();
        EXPECT_NEAR(uom::convert(250.0, "Pres", "kPag", "kPa"), 351.325, 1e-9);
    }
    EXPECT_NEAR(uom::convert(250.0, "Pres", "kPag", "kPa"), 351.325, 1e-9);
    double inThread = 0.0;
    std::thread([&] {
        const auto inUse = mine.use();
        inThread = uom::convert(250.0, "Pres", "kPag", "kPa");
    }).join();
    EXPECT_NEAR(inThread, 333.5, 1e-9);
}

TEST_F(HppTest, GuardsPutBackWhatWasInUse) {
    uom::Catalogue outer, inner;
    const auto inUse = [] {
        UomCatalogue *now = uom_UseCatalogue(nullptr);
        uom_UseCatalogue(now);
        return now;
    };
    ASSERT_EQ(inUse(), nullptr);
    {
        const auto first = outer.use();
        EXPECT_EQ(inUse(), outer.get());
        EXPECT_NE(thrown([&] {
                      const auto second = inner.use();
                      EXPECT_EQ(inUse(), inner.get());
                      uom::Chain("Leng"); // of a catalogue that is not started
                  }),
                  "nothing");
        EXPECT_EQ(inUse(), outer.get());
        EXPECT_EQ(inner.tryStartFile("/no/such/file").code(), UOM_START_NO_FILE);
        EXPECT_EQ(inUse(), outer.get());
        inner.end();
        EXPECT_EQ(inUse(), outer.get());
    }
    EXPECT_EQ(inUse(), nullptr);
}

TEST_F(HppTest, CataloguesMove) {
    uom::Catalogue site;
    site.startFile(UOM_TEST_DATA);
    uom::Catalogue moved = std::move(site);
    moveTo(moved, moved);
    {
        const auto inUse = moved.use();
        EXPECT_EQ(uom::displayUnits("Pres", "SI"), "kPa");
    }
    const std::string away = "1: The catalogue was moved away.";
    EXPECT_EQ(refusal(site.tryStart()), away);
    EXPECT_EQ(thrown([&] { const auto inUse = site.use(); }), away);
    site.end();
    EXPECT_EQ(uom::displayUnits("Pres", "SI"), "kPa") << "the default catalogue has been ended";
    site = std::move(moved);
    const auto inUse = site.use();
    EXPECT_EQ(uom::displayUnits("Pres", "SI"), "kPa");
}

TEST_F(HppTest, StartsFromTextAndWithWords) {
    const char *const text = "BEGINUOMLIST\nnull,null,null,0,0,1\nfurlong,FURL,220 yards,0,0,201.168\nENDUOMLIST\n"
                             "BEGINLIST\nLeng\nfurlong\nENDLIST\nBEGINSLATE\nSI\nLeng=furlong\nENDSLATE\n";
    uom::Catalogue small, broken;
    small.startText(text, {"kesta"});
    {
        const auto inUse = small.use();
        EXPECT_EQ(uom::displayUnits("Leng", "SI"), "furlong");
    }
    EXPECT_EQ(refusal(broken.tryStartText("ENDUOMLIST\nENDLIST\n")),
              "2: UOM File \"(text)\", Error on line 2, \"ENDLIST\" not expected.");
    // The basis of a rate is named by the mode.
    uom::Catalogue kesta;
    kesta.startFile(UOM_TEST_DATA, {"kesta"});
    const auto tokens = [](const char *className) {
        std::string all;
        for (const uom::UnitEntry &unit : uom::units(className))
            all += unit.token + ";";
        return all;
    };
    const std::string ours = tokens("Basis");
    const auto inUse = kesta.use();
    EXPECT_NE(tokens("Basis"), ours);
}

// --- classes, units and slates

TEST_F(HppTest, ClassesAndUnits) {
    const std::vector<uom::ClassEntry> classes = uom::classes();
    ASSERT_FALSE(classes.empty());
    const auto pressure = std::find_if(classes.begin(), classes.end(), [](auto &entry) { return entry.number == 7; });
    ASSERT_NE(pressure, classes.end());
    EXPECT_EQ(pressure->token + "," + pressure->longName + "," + pressure->keyword, "Pres,Pressure,PRES");
    for (const uom::ClassEntry &entry : classes) {
        EXPECT_GE(entry.number, 3) << entry.token;
        EXPECT_EQ(uom::classText(entry.number), entry.token);
    }
    const uom::Table listed(uom_GetClassList(UOM_STYLE_TOKEN));
    EXPECT_EQ(classes.back().token, listed.text(listed.size() - 1));
    // The list cuts at 79 characters.
    const std::string longName(100, 'q');
    uom::newClass(longName, "Leng");
    EXPECT_EQ(uom::classes().size(), classes.size() + 1);
    EXPECT_EQ(uom::classes().back().token, longName);

    std::string units;
    for (const uom::UnitEntry &unit : uom::units("Temp")) {
        units += unit.token + " ";
        if (unit.token == "F") {
            EXPECT_NEAR((212.0 + unit.offset) * unit.factor, 373.15, 1e-9);
        }
    }
    EXPECT_EQ(units, "C K F R ");
    EXPECT_TRUE(uom::units(100000).empty());
    EXPECT_TRUE(uom::isClass("Pres/VolRate 2") && !uom::isClass("Foo"));
    EXPECT_TRUE(uom::unitsFit("Leng 2", "m2") && !uom::unitsFit("Leng", "m2") && !uom::unitsFit("Foo", "m"));
    EXPECT_EQ(uom::dimensions("Pres"), (std::array<int32_t, 6>{1, -1, -2, 0, 0, 0}));
    EXPECT_EQ(uom::differenceClass("Pres") + uom::standardClass("TempAbs"), "PresDiffTemp");
    EXPECT_EQ(uom::multiplierText(*uom::Chain("VolRate", "M BBL/day").begin()), "M ");
}

TEST_F(HppTest, SlatesAndTheirDefaults) {
    uom::newClass("SaltFlux", "Mass / Area Time");
    const int32_t plant = uom::newSlate("Plant", "SI");
    EXPECT_EQ(uom::findSlate("plant"), plant);
    uom::setDefault("Plant", "Pres", "barg");
    EXPECT_EQ(uom::statedDefault("Plant", "Pres") + "," + uom::statedDefault("Plant", "Temp"), "barg,");
    EXPECT_EQ(uom::displayUnits("PresDiff", "Plant"), "bar");
    const std::vector<uom::SlateEntry> slates = uom::slates();
    EXPECT_EQ(slates.back().name + " based on " + slates.back().parent, "Plant based on SI");
    EXPECT_EQ(slates.front().number, 1);
    EXPECT_EQ(slates.back().number, plant);

    for (const uom::DefaultEntry &entry : uom::defaults("Plant")) {
        EXPECT_EQ(entry.units, uom::displayUnits(entry.className, "Plant")) << entry.className;
    }
    // Its text makes the same of another.
    std::vector<std::string> lines = uom::slateDefinition("Plant");
    uom::newSlate("Other", "Metric");
    uom::putSlateDefinition("Other", lines);
    lines[0] = "[Other]";
    EXPECT_EQ(uom::slateDefinition("Other"), lines);
    EXPECT_EQ(uom::tryPutSlateDefinition("Other", {}).code(), UOM_REFUSED);

    uom::setDefault("Plant", "GaugePresBasis", "83.5");
    uom::useGaugePressureOf("Plant");
    EXPECT_NEAR(uom::convert(250.0, "Pres", "kPag", "kPa"), 333.5, 1e-9);
    uom::deleteSlate("Plant");
    EXPECT_FALSE(uom::tryFindSlate("Plant"));
    uom::newClass("SaltRate", "Mass / Time");
    uom::deleteClass("SaltRate");
    EXPECT_FALSE(uom::isClass("SaltRate"));
}

TEST_F(HppTest, OddAnswersToOddQuestions) {
    EXPECT_TRUE(uom::tryStart({"kesta"})) << "started already, wherever the default file is";
    EXPECT_EQ(uom::units("(Leng)").size(), uom::units("Leng").size());
    EXPECT_EQ(uom::tryNewSlate(std::string_view("\0x", 2), "SI").code(), UOM_REFUSED);
}

} // namespace
