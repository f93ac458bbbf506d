#include <gtest/gtest.h>

#include "OvikPlatform/geometry/CGAffineTransform.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {
namespace {

TEST(Geometry, JSONFormsAreArrays) {
    const CGRect rect{{1.5, -2}, {30, 40}};
    EXPECT_EQ(encodeJSON(rect).compact(), "[[1.5,-2],[30,40]]");
    EXPECT_EQ(decodeJSON<CGRect>(std::string_view("[[1.5,-2],[30,40]]")), rect);
    EXPECT_EQ(encodeJSON(CGVector{3, 4}).compact(), "[3,4]");
    EXPECT_EQ(encodeJSON(CGAffineTransform::translation(5, 6)).compact(), "[1,0,0,1,5,6]");
}

TEST(Geometry, MalformedFormsAreRefused) {
    const char* bad[] = {"[[1,2],[3]]", "[[1,2]]", "[1,2,3]", R"({"x":1})", R"([["a",2],[3,4]])", "[[1,2],[3,4],[5,6]]"};
    for (const char* text : bad) EXPECT_THROW((void)decodeJSON<CGRect>(std::string_view(text)), DecodingError) << text;
    EXPECT_THROW((void)decodeJSON<CGAffineTransform>(std::string_view("[1,0,0,1,0]")), DecodingError);
}

TEST(Geometry, StandardizedRectHasNoNegativeSize) {
    const CGRect flipped{{10, 10}, {-4, -6}};
    EXPECT_EQ(flipped.standardized(), (CGRect{{6, 4}, {4, 6}}));
    EXPECT_EQ(flipped.maxX(), 10);
    EXPECT_EQ(flipped.width(), 4);
}

} // namespace
} // namespace ovik
