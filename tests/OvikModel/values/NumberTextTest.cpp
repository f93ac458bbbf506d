#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "DecodingFailure.h"
#include "OvikModel/values/NumberText.h"
#include "OvikModel/values/Numbers.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

TEST(NumberText, FormatRoundsPadsAndGroups) {
    const std::tuple<double, int, bool, const char*> cases[] = {
        {1234567.891, 2, true, "1,234,567.89"},
        {-0.004, 2, false, "0.00"}, // no negative zero
        {-0.4, 0, false, "0"},
        {2.5, 0, false, "3"}, // halves away from zero
        {-2.5, 0, false, "-3"},
        {0.125, 2, false, "0.13"},
        {-123456, 0, true, "-123,456"},
        {999999.9996, 3, true, "1,000,000.000"}, // rounding carries into a new group
        {1, 9, false, "1.000000"},               // decimals clamped to 6
        {1.7, -3, false, "2"},
        {1e20, 1, true, "100,000,000,000,000,000,000.0"},
        {NAN, 2, true, "0"},
        {-INFINITY, 0, false, "0"},
    };
    for (const auto& [value, decimals, grouped, text] : cases)
        EXPECT_EQ(NumberText::format(value, decimals, grouped), text) << value << " " << decimals;
}

TEST(NumberText, FormatOfAValueTooLargeToScaleStillPrintsItsDigits) {
    const std::string text = NumberText::format(1.7976931348623157e308, 6, true);
    EXPECT_EQ(text.substr(0, 8), "179,769,");
    EXPECT_EQ(text.substr(text.size() - 7), ".000000");
    EXPECT_EQ(text.size(), 309 + 102 + 7); // 309 digits, 102 commas, point and decimals
}

TEST(NumberText, SubstituteKeepsTheLookOfTheFirstNumber) {
    const std::tuple<double, const char*, const char*> cases[] = {
        {42, "Step 1,000.50 of 9", "Step 42.00 of 9"},
        {42, "no digits", "42"},      // the text is dropped
        {3.14159, "Value: 7.5", "Value: 3.1"},
        {1234.5, "-5 items", "1235 items"}, // the sign belongs to the number
        {-1500, "+10", "-1500"},
        {5, "x+-3", "x+5"},
        {5, "1234,567", "5,567"},      // four leading digits can't open a group
        {5, "12,3456", "56"},          // a group is exactly three digits
        {1000000, "v 0,000 w", "v 1,000,000 w"},
        {5, "1. then", "5. then"},     // a point needs a digit after it
        {2.5, "a 1.2345678 b", "a 2.500000 b"},
        {7, "1,2 and 3", "7,2 and 3"}, // a comma without three digits is no grouping
        {NAN, "x 5", "x 0"},
    };
    for (const auto& [value, text, result] : cases) EXPECT_EQ(NumberText::substitute(value, text), result) << text;
}

using testing::expectRefused;

TEST(Numbers, OneValueIsABareNumberAnyOtherCountAnArray) {
    const std::pair<std::vector<double>, const char*> cases[] = {
        {{2.5}, "2.5"}, {{}, "[]"}, {{1, 2.5}, "[1,2.5]"},
    };
    for (const auto& [values, json] : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(Numbers{values})), json);
        EXPECT_EQ(decodeJSON<Numbers>(std::string_view(json)), Numbers{values}) << json;
    }
    EXPECT_EQ(decodeJSON<Numbers>(std::string_view("[0.5]")), (Numbers{{0.5}}));
    expectRefused<Numbers>({R"("2")", DecodingError::Kind::typeMismatch, ""});
}

} // namespace
} // namespace ovik
