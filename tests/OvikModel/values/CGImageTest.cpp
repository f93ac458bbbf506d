#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "OvikModel/values/ImageBox.h" // the image record that ImageBox holds

namespace ovik {
namespace {

TEST(CGImage, RowsMustFitTheirBytes) {
    constexpr std::int64_t huge = std::numeric_limits<std::int64_t>::max();
    // Width, height, bytes per row, bytes, and whether they fit.
    const std::tuple<std::int64_t, std::int64_t, std::int64_t, std::size_t, bool> cases[] = {
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
    for (const auto& [width, height, bytesPerRow, byteCount, fits] : cases) {
        const auto make = [&] { return CGImage(width, height, bytesPerRow, std::vector<std::uint8_t>(byteCount)); };
        if (fits)
            EXPECT_NO_THROW((void)make()) << width << "x" << height;
        else
            EXPECT_THROW((void)make(), std::invalid_argument) << width << "x" << height;
    }
}

} // namespace
} // namespace ovik
