#include <gtest/gtest.h>

#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

TEST(PNGCodec, RoundTripKeepsPremultipliedPixels) {
    // Premultiplied values of a half-transparent orange, an opaque grey and a clear pixel.
    const CGImage image(3, 1, 12, {128, 64, 0, 128, 90, 90, 90, 255, 0, 0, 0, 0});
    const std::string bytes = PNGCodec::encode(image);
    ASSERT_TRUE(PNGCodec::hasSignature(bytes));
    const CGImage back = PNGCodec::decode(bytes);
    ASSERT_EQ(back.width(), 3);
    for (std::int64_t x = 0; x < 3; ++x)
        EXPECT_LE(testing::channelError(testing::pixelAt(back, x, 0), testing::pixelAt(image, x, 0)), 1) << x;
    EXPECT_THROW(PNGCodec::encode(CGImage(0, 0, 0, {})), ImageCodecError);
}

} // namespace
} // namespace ovik
