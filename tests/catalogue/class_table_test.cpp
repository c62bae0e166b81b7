// The compiled classes and the look-ups among them.
#include "catalogue/class_table.h"

#include "tests/library_fixture.h"

namespace {

class CatalogueClasses : public ShippedTest {};

TEST_F(CatalogueClasses, AreFoundWithoutAnIndexToo) {
    const auto found = [](int32_t style) {
        std::string numbers;
        for (int32_t c = 1; c < uom_GetUOMClassCount(); ++c) {
            char text[64];
            uom_GetClassText(c, text, sizeof text, style);
            numbers += std::to_string(uom_GetClassType(text, style)) + " ";
        }
        return numbers + std::to_string(uom_GetClassType(std::string(10000, 'T').c_str(), style));
    };
    const std::string tokens = found(1), keywords = found(2), names = found(5);
    class_DropIndex(catalogue());
    EXPECT_EQ(joined(found(1), found(2), found(5)), joined(tokens, keywords, names));
    EXPECT_EQ(tokens.substr(0, 12), "1 2 3 4 5 6 ");
}

TEST(CatalogueClassRows, HaveFlagsAndDimensionsThatFit) {
    std::string withOffset;
    for (const UomClassRow &row : uomStaticRows) {
        withOffset += row.hasOffset ? std::string(row.token) + " " : "";
        for (const int32_t own : row.dimension)
            EXPECT_TRUE(own == 0 || !class_IsComposite(row)) << row.token;
        for (const int32_t flag : {row.allowExponent, row.hasOffset, row.internalFlag})
            EXPECT_TRUE(flag == 0 || flag == 1) << row.token;
    }
    EXPECT_EQ(withOffset, "Temp TempAbs Pres PresAbs ");
}

} // namespace
