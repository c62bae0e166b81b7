// A walk over the shipped data file, as text and as the library has read it.
#include <algorithm>
#include <map>
#include <set>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "tests/support_fixture.h"

namespace {

using Fields = std::vector<std::string>;

struct Section {
    std::string keyword, name;
    std::vector<std::string> lines;
};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), str_Lower);
    return text;
}

Fields fieldsOf(const std::string &line) {
    Fields fields;
    size_t at = 0;
    while ((at = line.find_first_not_of(" ,\t", at)) != std::string::npos) {
        const bool quoted = line[at] == '"';
        const size_t begin = at + quoted, end = line.find_first_of(quoted ? "\"" : " ,\t", begin);
        fields.push_back(line.substr(begin, end == std::string::npos ? end : end - begin));
        if (end == std::string::npos)
            break;
        at = end + 1;
    }
    return fields;
}

class CatalogueShippedData : public ShippedFixture {
protected:
    void SetUp() override {
        ShippedFixture::SetUp();
        std::ifstream file(UOM_TEST_DATA);
        bool inSection = false;
        for (std::string line; std::getline(file, line);) {
            all.push_back(line);
            const size_t begin = line.find_first_not_of(" \t");
            if (begin == std::string::npos || line.compare(begin, 2, "//") == 0)
                continue;
            line.erase(0, begin);
            const std::string first = fieldsOf(line)[0];
            if (first.rfind("BEGIN", 0) == 0) {
                sections.push_back({first, "", {}});
                inSection = true;
            } else if (first.rfind("END", 0) == 0) {
                inSection = false;
            } else if (inSection) {
                Section &section = sections.back();
                const bool named = section.keyword != "BEGINUOMLIST" && section.keyword != "BEGINCLASSLIST";
                if (named && section.name.empty())
                    section.name = first;
                else
                    section.lines.push_back(line);
            }
        }
    }

    std::vector<Section> of(const std::string &keyword) const {
        std::vector<Section> found;
        for (const Section &section : sections)
            if (section.keyword == keyword)
                found.push_back(section);
        return found;
    }

    // The unit lines, cut into fields.
    std::vector<Fields> unitLines() const {
        std::vector<Fields> lines;
        for (const Section &section : of("BEGINUOMLIST"))
            for (const std::string &line : section.lines)
                lines.push_back(fieldsOf(line));
        return lines;
    }

    std::vector<std::string> all;
    std::vector<Section> sections;
};

TEST_F(CatalogueShippedData, LinesObeyTheRules) {
    EXPECT_LT(100u, all.size());
    for (size_t i = 0; i < all.size(); ++i) {
        const std::string &line = all[i];
        SCOPED_TRACE("line " + std::to_string(i + 1));
        EXPECT_GE(131u, line.size());
        for (const char c : line)
            EXPECT_TRUE((c >= ' ' && c <= '~') || c == '\t');
        const size_t begin = line.find_first_not_of(" \t");
        if (begin == std::string::npos || line.compare(begin, 2, "//") == 0)
            continue;
        EXPECT_EQ(std::string::npos, line.find("//"));
        EXPECT_EQ(std::string::npos, line.find(';'));
        EXPECT_EQ(0, std::count(line.begin(), line.end(), '"') % 2);
        EXPECT_NE(' ', line.back());
    }
}

TEST_F(CatalogueShippedData, UnitLinesAreWhole) {
    const std::vector<Fields> lines = unitLines();
    ASSERT_EQ(static_cast<size_t>(uomUnitCount), lines.size());
    std::set<std::string> tokens;
    for (const Fields &fields : lines) {
        ASSERT_EQ(6u, fields.size()) << fields[0];
        SCOPED_TRACE(fields[0]);
        const std::string &token = fields[0], &keyword = fields[1];
        EXPECT_TRUE(tokens.insert(lowered(token)).second) << "two tokens differ in case alone";
        EXPECT_TRUE(str_IsLetter(token[0]) || token[0] == '$');
        EXPECT_FALSE(keyword.empty());
        EXPECT_GE(20u, keyword.size());
        EXPECT_EQ(std::string::npos, keyword.find(' '));
        EXPECT_EQ(std::string::npos, keyword.find_first_of("abcdefghijklmnopqrstuvwxyz"));
        EXPECT_FALSE(fields[2].empty());
        EXPECT_TRUE(fields[3] == "0" || fields[3] == "1");
        char *end;
        EXPECT_LE(0.0, std::strtod(fields[4].c_str(), &end));
        EXPECT_EQ('\0', *end);
        EXPECT_LT(0.0, std::strtod(fields[5].c_str(), &end));
        EXPECT_EQ('\0', *end);
    }
    EXPECT_EQ(0u, tokens.count("tons")) << "the name that start-up gives in one mode";
}

TEST_F(CatalogueShippedData, WellKnownUnitsAreAllThere) {
    const struct {
        std::string variable;
        int32_t unit;
    } variables[] = {
#define WELL_KNOWN(variable, token) {#variable, variable},
#include "catalogue/well_known_units.def"
#undef WELL_KNOWN
    };
    std::map<std::string, int32_t> unitOfName;
    for (const auto &known : variables)
        unitOfName[known.variable] = known.unit;
    EXPECT_EQ(86u, unitOfName.size());
    // A variable bears the token in capitals, with "_" for each run of other characters.
    std::istringstream tokens(
        "K,C,R,F,Pa,kPa,MPa,Pag,kPag,MPag,mbar,bar,mbarg,barg,in Hg,mm Hg,in Hgg,mm Hgg,ata,ate,psia,psig,psi,"
        "in H2O,in H2Og,kg/cm2,kg/cm2g,sec,hr,ang,m,in,ft,ang2,m2,ft2,ang3,g,g-mol,ton,J,kJ,W,kW,MW,VA,VAR,KVA,"
        "KVAR,HP,x 10^6 J,x 10^6 kJ,x 10^6 BTU,x 10^6 W,x 10^6 kW,x 10^6 MW,x 10^6 VA,x 10^6 VAR,x 10^6 HP,"
        "x 10^6 KVA,x 10^6KVAR,API,spgr,OXcredits,J/g-K,cal/g-K,BTU/lb-C,BTU/lb-K,BTU/lb-F,J/g-C,kcal/kg-C,"
        "BTU/Kg-C,cal/g-C,kJ/kg-C,kW/m-K,BTU/hr-ft-F,W/m2-K,BTU/hr-ft2-F,W/K,BTU/hr-F,m2-K/W,hr-ft2-F/BTU,"
        "percent,fraction,ppm,ppb");
    for (std::string token; std::getline(tokens, token, ',');) {
        const bool million = token.rfind("x 10^6", 0) == 0;
        std::string name = million ? "UOM_U_E6_" : "UOM_U_";
        for (const char letter : token.substr(token.find_first_not_of(' ', million ? 6 : 0))) {
            const bool plain = str_IsLetter(letter) || str_IsDigit(letter);
            if (plain || name.back() != '_')
                name += plain ? str_Upper(letter) : '_';
        }
        ASSERT_EQ(1u, unitOfName.count(name)) << name;
        EXPECT_LT(UOM_NULL, unitOfName[name]) << name;
        EXPECT_EQ(token == "ton" ? "tons" : token, unit_Token(unitOfName[name]));
        unitOfName.erase(name);
    }
    EXPECT_TRUE(unitOfName.empty());
    const int32_t basis[] = {UOM_BASMOLE, UOM_BASMASS, UOM_BASMOLAR, UOM_BASACTV, UOM_BASLIQV, UOM_BASVAPV};
    std::string names;
    for (const int32_t unit : basis)
        names += std::string(unit_Token(unit)) + "|";
    EXPECT_EQ("Mole|Mass|Molar|Vol|Liq. Vol.|Vap. Vol.|", names);
}

TEST_F(CatalogueShippedData, ListsNameUnitsAndUnitsAreListed) {
    std::set<std::string> tokens, listed, applicationLists;
    const std::vector<Fields> lines = unitLines();
    for (const Fields &fields : lines)
        tokens.insert(fields[0]);
    for (const Section &section : of("BEGINLIST")) {
        const bool known = class_Find(section.name.c_str(), 1) != 0;
        if (!known)
            applicationLists.insert(section.name);
        EXPECT_FALSE(section.lines.empty()) << section.name;
        std::set<std::string> seen;
        for (const std::string &line : section.lines) {
            const Fields fields = fieldsOf(line);
            EXPECT_EQ(1u, fields.size()) << line;
            EXPECT_EQ(1u, tokens.count(fields[0])) << section.name << ": " << line;
            EXPECT_TRUE(seen.insert(fields[0]).second) << section.name << " names twice " << line;
            if (known)
                listed.insert(fields[0]);
        }
    }
    EXPECT_EQ(19u, applicationLists.size());
    for (const UomTable *list : uomListTables)
        EXPECT_TRUE(list);
    for (size_t i = 1; i < lines.size(); ++i)
        EXPECT_EQ(1u, listed.count(lines[i][0])) << "in no class: " << lines[i][0];
}

TEST_F(CatalogueShippedData, EveryClassCanBeUsed) {
    for (int32_t i = 3; i < uom_GetUOMClassCount(); ++i) {
        const std::string token = std::string("\"") + class_Token(i) + "\"";
        EXPECT_EQ(1, uoms_IsClassValid(token.c_str())) << token;
        if (uom_IsClassBase(i) && i < STATIC_CLASSES) {
            EXPECT_TRUE(uom_GetClassUnits(i)) << token;
        }
    }
}

TEST_F(CatalogueShippedData, UnitsReadBackInEachClassThatListsThem) {
    // A unit's whole token, and the token with a multiplier, must not be taken for another unit of the class.
    for (int32_t i = 4; i <= 68; ++i) {
        const int32_t *units = uom_GetClassUnits(i);
        for (; units && *units != UOM_NULL; ++units) {
            const std::string token = unit_Token(*units);
            int32_t length, consumed, multiplier, unit;
            EXPECT_EQ(*units, uom_ScanUnitToken(i, token.c_str(), 1, &length)) << i << " " << token;
            EXPECT_EQ(token.size(), static_cast<size_t>(length));
            const bool api = unit_Record(*units)->multiplierStyle == 1;
            const std::string millions = (api ? "MM " : "M*") + token;
            EXPECT_EQ(0, uom_FindUnitFromString(i, millions.c_str(), 1, &consumed, &multiplier, &unit));
            EXPECT_EQ(*units, unit) << i << " " << millions;
            EXPECT_EQ(6, multiplier) << i << " " << millions;
            const char *keyword = unit_Record(*units)->keyword;
            uom_ScanUnitToken(i, keyword, 2, &length);
            EXPECT_EQ(std::strlen(keyword), static_cast<size_t>(length)) << i << " " << keyword;
        }
    }
}

TEST_F(CatalogueShippedData, ClassLinesCommonListsAndSlatesAreUnderstood) {
    size_t classes = STATIC_CLASSES;
    for (const Section &section : of("BEGINCLASSLIST"))
        classes += section.lines.size();
    EXPECT_EQ(classes, static_cast<size_t>(uom_GetUOMClassCount()));
    std::set<std::string> names;
    for (const Section &section : of("BEGINCOMMONLIST")) {
        EXPECT_TRUE(names.insert(lowered(section.name)).second) << section.name;
        if (class_Find(section.name.c_str(), 1) == 0)
            continue;
        for (const std::string &line : section.lines)
            EXPECT_EQ(0, uoms_ValidateUOM(section.name.c_str(), fieldsOf(line)[0].c_str()))
                << section.name << ": " << lastError();
    }
    const std::set<std::string> properties = {"GaugePresBasis", "isSystem", "isHidden", "allowDelete",
                                              "allowModify",    "BasedOn",  "CopyFrom"};
    size_t slates = 1;
    for (const Section &section : of("BEGINSLATE")) {
        ++slates;
        for (const std::string &line : section.lines) {
            const size_t mark = line.find('=');
            ASSERT_NE(std::string::npos, mark) << line;
            const std::string key = line.substr(0, mark), value = line.substr(mark + 1);
            if (properties.count(key) == 0) {
                EXPECT_EQ(0, uoms_ValidateUOM(key.c_str(), value.c_str())) << section.name << ": " << line;
            }
        }
    }
    EXPECT_EQ(slates, static_cast<size_t>(UOM_SET_MAX));
}

} // namespace
