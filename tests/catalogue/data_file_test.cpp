// The reader of the data file: its class lines, and what it says of a broken file.
#include "loading/data_file.h"

#include "catalogue/class_table.h"
#include "tests/library_fixture.h"

namespace {

const std::string units = "BEGINUOMLIST\nnone NONE none 0 0 1\nm M Meter 0 0 1\nft FT Foot 0 0 0.3048\n"
                          "sec SEC Second 0 0 1\nENDUOMLIST\n"; // six lines

class CatalogueDataFile : public LibraryTest {
protected:
    static std::string listOf(int32_t classId) {
        std::string all;
        for (const std::string &token : takeLines(uom_GetUnitList(classId)))
            all += (all.empty() ? "" : " ") + token;
        return all;
    }
};

TEST_F(CatalogueDataFile, KeywordsInAWrongPlaceAreErrors) {
    const std::string longLine(200, 'x');
    const auto complaintOf = [&](const Cells &c) {
        EXPECT_EQ(2, startWith(units + c[0]));
        EXPECT_EQ(0, catalogue().started);
        const std::string head = "UOM File \"" + path + "\", Error on line ", message = lastError();
        EXPECT_EQ(head, message.substr(0, head.size()));
        stop();
        return message.substr(head.size());
    };
    const char cases[] = R"(
        BEGINLIST\nBEGINLIST | 8, "BEGINLIST" not expected.
        BEGINLIST\nENDLIST | 8, "ENDLIST" not expected.
        \n// comment\nENDLIST | 9, "ENDLIST" not expected.
        BEGINLIST\nLeng\nm\nENDCOMMONLIST | 10, "ENDCOMMONLIST" not expected.
        ENDCOMMONLIST | 7, "ENDCOMMONLIST" not expected.
        BEGINLIST\nLeng\nBEGINCOMMONLIST | 9, "BEGINCOMMONLIST" not expected.
        BEGINCOMMONLIST\nBEGINSLATE | 8, "BEGINSLATE" not expected.
        BEGINSLATE\nENDSLATE | 8, "ENDSLATE" not expected.
        BEGINSLATE\nS\nENDCLASSLIST | 9, "ENDCLASSLIST" not expected.
        BEGINCLASSLIST\nBEGINCLASSLIST | 8, "BEGINCLASSLIST" not expected.
        BEGINSLATE\nBEGINCLASSLIST | 8, "BEGINCLASSLIST" not expected.
        BEGINCLASSLIST\nENDSELECTLISTS | 8, "ENDSELECTLISTS" not expected.
    )";
    expectAnswers(cases, complaintOf);
    EXPECT_EQ("12, \"ENDLIST\" not expected.", complaintOf({longLine + longLine + "\n\n  ENDLIST anything"}));
    EXPECT_EQ("10, \"ENDSLATE\" not expected.", complaintOf({"ENDSELECTLISTS\n" + longLine + "\nENDSLATE\n"}));
}

TEST_F(CatalogueDataFile, ClassLines) {
    ASSERT_EQ(0, startWith(units + "BEGINLIST\nLeng\nm\nENDLIST\nBEGINCLASSLIST\n"
                                   "Own=\"Leng / Time\", \"My Own\"\nCopy=Leng,'Long, name'\n"
                                   "Spaced =Leng\nSpaced = Leng\nFails=Nosuch\nOwn=Leng,\"Other\"\n"
                                   "\"Two Words\"=Leng,'Long too'\n'Blank' =Leng\n"
                                   "Leng=Time,\"Not for me\"\nAlone\nENDCLASSLIST\n"
                                   "BEGINLIST\nLeng\nft\nENDLIST\n"));
    // A known custom class is given the long name all the same.
    const char cases[] = R"(
        Own | 71; Other | 71; My Own | 0; Copy | 72; long, name | 72; Length | 11; Not for me | 0
        Spaced | 0; Fails | 0; Alone | 0; Two Words | 73; Long too | 73; Blank | 0
    )";
    expectAnswers(cases, [](const Cells &c) { return joined(classOf(c[0].c_str())); });
    EXPECT_EQ(1, uoms_IsClassValid("Own 2"));
    EXPECT_EQ("m", listOf(72)) << "the list as it stood";
}

} // namespace
