#include <gtest/gtest.h>

#include <gif_lib.h>

#include "OvikPlatform/codecs/GIFCodec.h"
#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/PictureDifference.h"
#include "OvikPlatform/media/TestMovies.h"

namespace ovik {
namespace {

using testing::RGBA;

constexpr RGBA clear{0, 0, 0, 0}, red{255, 0, 0, 255}, green{0, 255, 0, 255};

// An 8 × 6 screen holding an interlaced 4 × 4 first frame at (2, 1) whose rows alternate red
// and green, with column 1 in the transparent colour; then a second frame all in red, which
// must not show. Written by giflib's encoder, rows in the interlaced order.
std::string twoFrames() {
    const std::filesystem::path path = testing::TestMovies::folder() / "frames.gif";
    int error = 0;
    GifFileType* gif = EGifOpenFileName(path.c_str(), false, &error);
    const GifColorType colours[4] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {9, 9, 9}};
    ColorMapObject* map = GifMakeMapObject(4, colours);
    EGifSetGifVersion(gif, true);
    EGifPutScreenDesc(gif, 8, 6, 2, 0, map);
    GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, 2};
    GifByteType extension[4];
    const std::size_t length = EGifGCBToExtension(&control, extension);
    EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, int(length), extension);
    EGifPutImageDesc(gif, 2, 1, 4, 4, true, nullptr);
    for (const int row : {0, 2, 1, 3}) {
        GifPixelType line[4] = {GifPixelType(row % 2), 2, GifPixelType(row % 2), GifPixelType(row % 2)};
        EGifPutLine(gif, line, 4);
    }
    EGifPutImageDesc(gif, 0, 0, 8, 6, false, nullptr);
    GifPixelType full[8] = {};
    for (int row = 0; row < 6; ++row) EGifPutLine(gif, full, 8);
    EGifCloseFile(gif, &error);
    GifFreeMapObject(map);
    return testing::fileBytes(path);
}

TEST(GIFCodec, DrawsTheFirstFrameInPlaceWithItsTransparency) {
    const CGImage image = GIFCodec::decode(twoFrames());
    ASSERT_EQ(image.width(), 8);
    ASSERT_EQ(image.height(), 6);
    for (std::int64_t y = 0; y < 6; ++y)
        for (std::int64_t x = 0; x < 8; ++x) {
            const bool inFrame = x >= 2 && x < 6 && y >= 1 && y < 5;
            const RGBA expected = !inFrame || x == 3 ? clear : ((y - 1) % 2 ? green : red);
            EXPECT_EQ(testing::pixelAt(image, x, y), expected) << x << "," << y;
        }
}

} // namespace
} // namespace ovik
