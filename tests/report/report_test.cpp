// The catalogue as a document: its sections in each mode, held against documents of a small catalogue.
#include "report/report.h"

#include "slates/custom_classes.h"
#include "tests/library_fixture.h"

namespace {

class ReportTest : public LibraryTest {
protected:
    void SetUp() override {
        ASSERT_EQ(startSmall(), 0);
        newSlate("Plant", "Metric");
        ASSERT_TRUE(state("Metric", "GaugePresBasis", "90"));
        ASSERT_TRUE(state("Plant", "Mass", "M lb"));
        ASSERT_EQ(uoms_NewClass("Flux", "Mass / Area") + uoms_NewClass("Load", "Mass"), 0);
    }
    std::string written() const {
        std::ostringstream all;
        all << std::ifstream(path).rdbuf();
        return all.str();
    }
    std::string document(int32_t options) const {
        EXPECT_EQ(uom_Dump(options, path.c_str()), 0);
        return written();
    }
    // The lines of a document that begin with one of the texts, blanks at their ends cut and tabs as ">".
    static std::string linesOf(const std::string &document, const Lines &heads) {
        std::istringstream lines(document);
        std::string all;
        for (std::string line; std::getline(lines, line);)
            for (const std::string &head : heads)
                if (line.compare(0, head.size(), head) == 0) {
                    line.erase(line.find_last_not_of(' ') + 1);
                    std::replace(line.begin(), line.end(), '\t', '>');
                    all += line + "\n";
                }
        return all;
    }
};

TEST_F(ReportTest, CustomClasses) {
    const Lines heads = {"Flux", "Load", "  Flux", "Custom"};
    EXPECT_EQ(linesOf(document(REPORT_SLATES + REPORT_CLASSES + REPORT_END_USER), heads),
              "Flux                            Flux           (lb)            (kg)            ()              ()       "
              "       (kg)\nLoad                            Load           lb              kg              ()          "
              "    ()              M lb\n  Flux           = Mass / Area\n");
    EXPECT_EQ(linesOf(document(REPORT_SLATES + REPORT_CLASSES + REPORT_END_USER + REPORT_TAB), heads),
              "Custom Classes\nFlux>Flux>(lb)>(kg)>()>()>(kg)>\nLoad>Load>lb>kg>()>()>M lb>\nFlux>Mass / Area\n"
              "Load>Mass\n");
    const std::string html = document(REPORT_SLATES + REPORT_CLASSES + REPORT_END_USER + REPORT_HTML);
    EXPECT_EQ(
        linesOf(html, {"<TR><TD>Flux", "<TR><TD BGCOLOR=\"#CCCCFF\"><B>Flux<"}),
        "<TR><TD BGCOLOR=\"#CCCCFF\"><B>Flux</B></TD><TD BGCOLOR=\"#CCCCFF\"><B><CODE>Flux</CODE></B></TD><TD>"
        "<CODE>(lb)</CODE></TD><TD><CODE>(kg)</CODE></TD><TD><CODE>()</CODE></TD><TD><CODE>()</CODE></TD><TD><CODE>"
        "(kg)</CODE></TD></TR>\n<TR><TD>Flux</TD><TD>Mass / Area</TD></TR>\n");
}

TEST_F(ReportTest, DefinitionsOfSlatesAndWords) {
    ASSERT_TRUE(state("SI", "allowModify", "0"));
    EXPECT_EQ(uom_Dump(REPORT_DEFINITIONS + REPORT_HTML, (" \"" + path + "\" ").c_str()), 0);
    const std::string slates = written();
    EXPECT_EQ(linesOf(slates, {"["}), "[English]\n[Metric]\n[Internal]\n[OXInternal]\n[Plant]\n[Current]\n");
    EXPECT_EQ(slates.find("[English]\n"), 0u);
    EXPECT_NE(uom_Dump(REPORT_DEFINITIONS, "/dev/full"), 0);
    EXPECT_NE(slates.find("\n\n[Metric]\nBasedOn=Metric\n"), std::string::npos);
    for (const auto &word : {std::pair("EndUser", 263), std::pair("full", 15), std::pair("javadoc", 1287),
                             std::pair("excel", 2311), std::pair("UOMSLATES", 4096), std::pair("x", 15)}) {
        EXPECT_EQ(uom_DumpByName(catalogue(), running(), word.first, path.c_str()), 0);
        const std::string named = written();
        EXPECT_EQ(named, document(word.second)) << word.first;
    }
    EXPECT_EQ(document(0), document(15));
    EXPECT_NE(uom_Dump(15, "/nosuch/directory/report"), 0);
    EXPECT_NE(uom_DumpSlates(catalogue(), running(), "/nosuch/directory/report"), 0);
}

} // namespace
