#include <gtest/gtest.h>

#include "DecodingFailure.h"
#include "OvikModel/values/Numbers.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;

TEST(Numbers, OneValueIsABareNumberAnyOtherCountAnArray) {
    struct Case {
        std::vector<double> values;
        const char* json;
    };
    const Case cases[] = {
        {{2.5}, "2.5"},
        {{}, "[]"},
        {{1, 2.5}, "[1,2.5]"},
        {{-3}, "-3"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(Numbers{c.values})), c.json);
        EXPECT_EQ(decodeJSON<Numbers>(std::string_view(c.json)), Numbers{c.values}) << c.json;
    }
}

TEST(Numbers, ReadingTakesABareNumberOrAnArray) {
    EXPECT_EQ(decodeJSON<Numbers>(std::string_view("7")), (Numbers{{7}}));
    EXPECT_EQ(decodeJSON<Numbers>(std::string_view("[0.5]")), (Numbers{{0.5}}));
    const DecodingFailure failures[] = {
        {R"("2")", DecodingError::Kind::typeMismatch, "", "Expected to decode Array<Any> but found a string instead."},
        {R"({"values":[1]})", DecodingError::Kind::typeMismatch, "",
         "Expected to decode Array<Any> but found a dictionary instead."},
        {R"([1,"a"])", DecodingError::Kind::typeMismatch, "[1]",
         "Expected to decode Double but found a string instead."},
        {"null", DecodingError::Kind::valueNotFound, "", "Expected Array<Any> value but found null instead."},
    };
    for (const DecodingFailure& failure : failures) expectRefused<Numbers>(failure);
}

} // namespace
} // namespace ovik
