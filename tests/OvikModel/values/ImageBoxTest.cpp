#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "OvikModel/values/ImageBox.h"

namespace ovik {
namespace {

TEST(ImageBox, PixelSizeIsTheImagesOrZero) {
    const auto image = std::make_shared<const CGImage>(3, 2, 16, std::vector<std::uint8_t>(32, 0xFF));
    EXPECT_EQ(ImageBox{image}.pixelSize(), (PixelSize{3, 2}));
    EXPECT_EQ(ImageBox{}.pixelSize(), (PixelSize{0, 0}));
}

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
