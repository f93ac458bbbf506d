#include <gtest/gtest.h>

#include <stdexcept>

#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/RenderDestination.h"

namespace ovik {
namespace {

TEST(RenderDestination, RefusesRowsThatCannotHoldThePixels) {
    std::vector<std::uint8_t> buffer(64);
    struct Case {
        const char* what;
        std::uint8_t* pixels;
        std::int64_t width, height, bytesPerRow;
    };
    const Case cases[] = {{"no pixels", nullptr, 2, 2, 8}, {"no width", buffer.data(), 0, 2, 8},
                          {"a negative height", buffer.data(), 2, -1, 8}, {"short rows", buffer.data(), 2, 2, 7}};
    for (const Case& c : cases)
        EXPECT_THROW(RenderDestination(c.pixels, c.width, c.height, c.bytesPerRow), std::invalid_argument) << c.what;
    // An image of another size writes nothing.
    const RenderDestination destination(buffer.data(), 2, 2, 8);
    EXPECT_THROW(destination.write(CGImage(2, 1, 8, std::vector<std::uint8_t>(8, 1))), std::invalid_argument);
    EXPECT_EQ(buffer, std::vector<std::uint8_t>(64));
}

} // namespace
} // namespace ovik
