// The reader of the data file: lines, units, sections, and what it says of a broken file.
#include "catalogue/data_file.h"

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "tests/library_fixture.h"

namespace {

const std::string units = "BEGINUOMLIST\nnone NONE none 0 0 1\nm M Meter 0 0 1\nft FT Foot 0 0 0.3048\n"
                          "sec SEC Second 0 0 1\nENDUOMLIST\n"; // six lines

class CatalogueDataFile : public LibraryTest {
protected:
    // The units from the second on, as "[token,keyword,description,style,offset,factor]".
    static std::string unitTexts() {
        std::ostringstream all;
        for (int32_t i = 1; i < uomUnitCount; ++i) {
            const UomUnit *unit = unit_Record(i);
            all << "[" << unit->token << "," << unit->keyword << "," << unit->description << ","
                << unit->multiplierStyle << "," << unit->offset << "," << unit->factor << "]";
        }
        return all.str();
    }
    static std::string listOf(int32_t classId) {
        UomTable *const list = uom_GetUnitList(classId);
        std::string all;
        for (const std::string &token : list ? takeLines(list) : Lines())
            all += (all.empty() ? "" : " ") + token;
        return all;
    }
};

TEST_F(CatalogueDataFile, LinesBecomeUnits) {
    const auto unitsOf = [&](const Cells &c) {
        EXPECT_EQ(0, startWith("before\nBEGINUOMLIST\nnone N n 0 0 1\n" + c[0] + "\nENDUOMLIST\n"));
        const std::string all = unitTexts();
        stop();
        return all;
    };
    const char cases[] = R"(
        m M Meter 0 0 1 | [m,M,Meter,0,0,1]
        ~~\tm,M ,,"Meter, long"\t1,273.15,1e-3~~ | [m,M,Meter, long,1,273.15,0.001]
        "in Hg" INHG 'said "so"' 0 -2 .5 | [in Hg,INHG,said "so",0,-2,0.5]
        m '' "" 2x 1.5y 3, | [m,,,2,1.5,3]
        m M M x y z | [m,M,M,0,0,0]; m M M 1 | [m,M,M,1,0,0]; m M M 0 0 1 and more | [m,M,M,0,0,1]
        // m M Meter 0 0 1 |
        m M Meter 0 0 1 // a comment |
        m M "Meter // or so" 0 0 1 |
        |; ~,~,\t |; UOMOPTION nosuch |; BEGINUOMLIST |; beginuomlist B b 0 0 1 | [beginuomlist,B,b,0,0,1]
        m M M 0 0 1\nm M N 0 0 1\r | [m,M,M,0,0,1][m,M,N,0,0,1]
    )";
    expectAnswers(cases, unitsOf);
    EXPECT_EQ("", unitsOf({"m M \"Meter; or so\" 0 0 1"}));
    const std::string filler(100, ' '); // a line of more than 131 characters is two
    EXPECT_EQ("[m,M,M,0,0,1][x,X,x,0,0,1]", unitsOf({"m M" + filler + "M 0 0 1" + filler + "x X x 0 0 1"}));
    EXPECT_EQ(0, startWith("BEGINUOMLIST\nnone N n 0 0 1\nu U u 0 0 1")) << "a file may end in the unit list";
    EXPECT_EQ("[u,U,u,0,0,1]", unitTexts());
}

TEST_F(CatalogueDataFile, KeywordsInAWrongPlaceAreErrors) {
    const std::string longLine(200, 'x');
    const auto complaintOf = [&](const Cells &c) {
        EXPECT_EQ(2, startWith(units + c[0]));
        EXPECT_EQ(0, uomInitDone);
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

TEST_F(CatalogueDataFile, WhatIsNotUnderstoodIsPassedOver) {
    std::string rubbish;
    uint32_t state = 1;
    for (int i = 0; i < 20000; ++i)
        rubbish += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    for (const std::string sections :
         {"anything\nendlist\nBEGINUOMLIST\n", "ENDSELECTLISTS\nENDSELECTLISTS\n", "BEGINLIST\n",
          "BEGINLIST\nLeng\nm\n", "BEGINCOMMONLIST\nx\n", "BEGINSLATE\n", "BEGINSLATE\nS\n",
          "BEGINLIST\nnosuch\nm\nENDLIST\n", "BEGINCLASSLIST\nx=y\nLeng=Mass\n"})
        for (const std::string &end : {std::string(), rubbish}) {
            EXPECT_EQ(0, startWith(units + sections + end)) << sections;
            EXPECT_EQ("", listOf(11));
            EXPECT_EQ(71, uom_GetUOMClassCount());
            stop();
        }
}

TEST_F(CatalogueDataFile, SelectLists) {
    const char cases[] = R"(
        Leng\nft\nm | 11 | ft m; "Length"\n FT  // no\n m ft\nnosuch | 11 | m
        Leng\nm\nENDLIST\nBEGINLIST\nLENG\nft | 11 | ft; Leng\nm\nENDLIST\nBEGINLIST\nLeng | 11 |
        Leng\nm\nENDLIST\nBEGINLIST\nLeng\nnosuch | 11 |; Velocity\nm\nnone | 58 | m; LENG\r\nm | 11 |
        Time\nENDLIST\nENDSELECTLISTS\nBEGINLIST\nVapVol\nm\nm | 16 | m m
    )";
    expectAnswers(cases, [&](const Cells &c) {
        EXPECT_EQ(0, startWith(units + "BEGINLIST\n" + c[0] + "\nENDLIST\n", {"qx71"})) << "rows, not older numbers";
        const std::string list = listOf(std::stoi(c[1]));
        stop();
        return list;
    });
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

TEST_F(CatalogueDataFile, SlateSections) {
    const std::string lengthy(100, 'S');
    ASSERT_EQ(0, startWith(units + "BEGINLIST\nLeng\nm\nft\nENDLIST\nBEGINLIST\nTime\nsec\nENDLIST\n" +
                           "BEGINSLATE\nOne\nleng=ft\n// Time=sec\nVelocity=m / sec\nnosuch=m\nENDSLATE\n"
                           "BEGINSLATE\nTwo\nParent=One\nNewClasses=3\nNewClass1=Span,Leng\nSpan=ft\nENDSLATE\n"
                           "BEGINSLATE\none\nTime=sec\nLeng=m\nENDSLATE\n"
                           "BEGINSLATE\n\"Three Words\"\nCopyFrom=one\nLeng=\nENDSLATE\n"
                           "BEGINSLATE\n" +
                           lengthy + "\nENDSLATE\nBEGINSLATE\nLast\nLeng=ft\n"));
    const char cases[] = R"(
        One | Leng | m; One | Time | sec; One | Velocity | m/sec; Two | Span | ft; Three Words | Time | sec
        Three Words | Leng |; Last | Leng |
    )";
    expectAnswers(cases, [](const Cells &c) {
        char text[32] = "#";
        EXPECT_EQ(0, uoms_GetClassDefault(c[0].c_str(), c[1].c_str(), text, sizeof text));
        return std::string(text);
    });
    char parent[16];
    EXPECT_STREQ("One", uoms_GetSetBasedOn2("Two", parent, sizeof parent));
    EXPECT_EQ("4 5 6", joined(uom_GetSetType(lengthy.c_str()), uom_GetSetType("Last"), UOM_SET_MAX));
}

} // namespace
