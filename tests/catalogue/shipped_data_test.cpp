// A walk over the shipped data file, as text and as the library has read it.
#include <set>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "tests/catalogue/shipped_file.h"
#include "tests/library_fixture.h"

namespace {

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), str_Lower);
    return text;
}

class CatalogueShippedData : public ShippedTest {};

TEST_F(CatalogueShippedData, ListsNameUnitsAndUnitsAreListed) {
    std::set<std::string> tokens, listed, applicationLists;
    const std::vector<Fields> lines = shippedUnits();
    for (const Fields &fields : lines)
        tokens.insert(fields[0]);
    for (const Section &section : shippedSections("BEGINLIST")) {
        const bool known = class_Find(catalogue(), section.name.c_str(), 1) != 0;
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
    for (const UomTable *list : catalogue().lists.application)
        EXPECT_TRUE(list);
    for (size_t i = 1; i < lines.size(); ++i)
        EXPECT_EQ(1u, listed.count(lines[i][0])) << "in no class: " << lines[i][0];
}

TEST_F(CatalogueShippedData, UnitsReadBackInEachClassThatListsThem) {
    // A unit's whole token, and the token with a multiplier, must not be taken for another unit of the class.
    for (int32_t i = 4; i < uom_GetUOMClassCount(); ++i) {
        const int32_t *units = uom_GetClassUnits(catalogue(), i);
        for (; units && *units != UOM_NULL; ++units) {
            const std::string token = unit_Token(catalogue(), *units);
            int32_t length, consumed, multiplier, unit;
            EXPECT_EQ(*units, uom_ScanUnitToken(catalogue(), i, token.c_str(), 1, &length)) << i << " " << token;
            EXPECT_EQ(token.size(), static_cast<size_t>(length));
            const bool api = unit_Record(catalogue(), *units)->multiplierStyle == 1;
            const std::string millions = (api ? "MM " : "M*") + token;
            EXPECT_EQ(0, uom_FindUnitFromString(i, millions.c_str(), 1, &consumed, &multiplier, &unit));
            EXPECT_EQ(*units, unit) << i << " " << millions;
            EXPECT_EQ(6, multiplier) << i << " " << millions;
            const char *keyword = unit_Record(catalogue(), *units)->keyword;
            uom_ScanUnitToken(catalogue(), i, keyword, 2, &length);
            EXPECT_EQ(std::strlen(keyword), static_cast<size_t>(length)) << i << " " << keyword;
        }
    }
}

TEST_F(CatalogueShippedData, ClassLinesCommonListsAndSlatesAreUnderstood) {
    size_t classes = STATIC_CLASSES;
    for (const Section &section : shippedSections("BEGINCLASSLIST"))
        classes += section.lines.size();
    EXPECT_EQ(classes, static_cast<size_t>(uom_GetUOMClassCount()));
    std::set<std::string> names;
    for (const Section &section : shippedSections("BEGINCOMMONLIST")) {
        EXPECT_TRUE(names.insert(lowered(section.name)).second) << section.name;
        if (class_Find(catalogue(), section.name.c_str(), 1) == 0)
            continue;
        for (const std::string &line : section.lines)
            EXPECT_EQ(0, uoms_ValidateUOM(section.name.c_str(), fieldsOf(line)[0].c_str()))
                << section.name << ": " << lastError();
    }
    const std::set<std::string> properties = {"GaugePresBasis", "isSystem", "isHidden", "allowDelete",
                                              "allowModify",    "BasedOn",  "CopyFrom"};
    size_t slates = 1;
    for (const Section &section : shippedSections("BEGINSLATE")) {
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
