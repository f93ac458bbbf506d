#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "OvikModel/values/ImageBox.h" // the image record that ImageBox holds

namespace ovik {
namespace {

TEST(CGImage, RowsMustFitTheirBytes) {
    struct Case {
        std::int64_t width, height, bytesPerRow;
        std::size_t byteCount;
        bool fits;
    };
    constexpr std::int64_t huge = std::numeric_limits<std::int64_t>::max();
    const Case cases[] = {
        {3, 2, 12, 24, true},
        {3, 2, 16, 32, true}, // padded rows
        {2, 0, 8, 0, true},
        {3, 2, 11, 24, false}, // a row shorter than its pixels
        {3, 2, 12, 23, false}, // a byte short
        {-1, 2, 12, 24, false},
        {1, 1, -4, 4, false},
        {1, huge, 4, 4, false},       // would overflow a multiplication
        {huge, 1, huge, 4, false},
    };
    for (const Case& c : cases) {
        const auto make = [&] { return CGImage(c.width, c.height, c.bytesPerRow, std::vector<std::uint8_t>(c.byteCount)); };
        if (c.fits)
            EXPECT_NO_THROW((void)make()) << c.width << "x" << c.height;
        else
            EXPECT_THROW((void)make(), std::invalid_argument) << c.width << "x" << c.height;
    }
}

} // namespace
} // namespace ovik
