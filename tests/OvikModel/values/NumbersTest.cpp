#include <gtest/gtest.h>

#include "DecodingFailure.h"
#include "OvikModel/values/Numbers.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::expectRefused;

TEST(Numbers, OneValueIsABareNumberAnyOtherCountAnArray) {
    const std::pair<std::vector<double>, const char*> cases[] = {
        {{2.5}, "2.5"},
        {{}, "[]"},
        {{1, 2.5}, "[1,2.5]"},
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
