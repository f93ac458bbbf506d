#include <gtest/gtest.h>

#include <png.h>

#include <functional>

#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/PeakMemory.h"
#include "OvikPlatform/codecs/Quadrants.h"
#include "OvikPlatform/codecs/RowReducer.h"

namespace ovik {
namespace {

using testing::blue, testing::green, testing::red, testing::white, testing::quadrantsByFFmpeg;

// The same quadrants as an Adam7 interlaced PNG, which ffmpeg doesn't write.
std::string interlacedQuadrants(std::int64_t width, std::int64_t height) {
    std::string bytes;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &bytes,
        [](png_structp p, png_bytep data, std::size_t size) {
            static_cast<std::string*>(png_get_io_ptr(p))->append(reinterpret_cast<const char*>(data), size);
        },
        nullptr);
    png_set_IHDR(png, info, png_uint_32(width), png_uint_32(height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_ADAM7,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    std::vector<std::uint8_t> row(std::size_t(width) * 3);
    for (int pass = png_set_interlace_handling(png); pass > 0; --pass)
        for (std::int64_t y = 0; y < height; ++y) {
            for (std::int64_t x = 0; x < width; ++x) {
                const testing::RGBA c = testing::quadrantColour(x, y, width, height);
                for (int k = 0; k < 3; ++k) row[std::size_t(x * 3 + k)] = std::uint8_t(c[std::size_t(k)]);
            }
            png_write_row(png, row.data());
        }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return bytes;
}

TEST(RowReducer, FactorKeepsTheLongSideAtLeastTheSizeAsked) {
    struct Case {
        std::int64_t width, height, longSide, factor;
    };
    const Case cases[] = {{320, 200, 320, 1}, {639, 100, 320, 1}, {640, 100, 320, 2}, {100, 640, 320, 2},
                          {16000, 16000, 256, 62}, {64, 32, 300, 1}, {64, 32, 0, 64}};
    for (const Case& c : cases)
        EXPECT_EQ(RowReducer::factor(c.width, c.height, c.longSide), c.factor)
            << c.width << "x" << c.height << " for " << c.longSide;
}

// Pixel (x, y) of a 5 × 3 picture has red 10x + 50y; blocks of 2 × 2 leave a column of one
// and a row of one at the edges.
TEST(RowReducer, MeansEachBlockAndTheEdgeBlocksOverTheirFewerPixels) {
    RowReducer reducer(5, 3, 2, 2);
    for (int y = 0; y < 3; ++y) {
        std::vector<std::uint8_t> row;
        for (int x = 0; x < 5; ++x) row.insert(row.end(), {std::uint8_t(10 * x + 50 * y), 0, 0, 255});
        reducer.add(row);
    }
    const CGImage out = reducer.finish();
    ASSERT_EQ(out.width(), 3);
    ASSERT_EQ(out.height(), 2);
    const int expected[2][3] = {{30, 50, 65}, {105, 125, 140}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x) {
            EXPECT_EQ(testing::pixelAt(out, x, y)[0], expected[y][x]) << x << ", " << y;
            EXPECT_EQ(testing::pixelAt(out, x, y)[3], 255) << x << ", " << y;
        }
}

TEST(RowReducer, RefusesRowsThatDontMakeThePicture) {
    const std::vector<std::uint8_t> row(8, 255);
    RowReducer short_(2, 2, 2, 2);
    short_.add(row);
    EXPECT_THROW(short_.finish(), ImageCodecError);
    RowReducer long_(2, 1, 1, 1);
    long_.add(row);
    EXPECT_THROW(long_.add(row), ImageCodecError);
}

TEST(ReducedDecode, KeepsTheQuadrantsAtTheSizeAsked) {
    struct Case {
        const char* name;
        std::function<std::string()> make;
        std::int64_t longSide, width, height;
        int tolerance;
    };
    const Case cases[] = {
        {"png by 13", [] { return quadrantsByFFmpeg("wide.png", 4000, 2000); }, 300, 308, 154, 0},
        // The last pass holds the odd rows: an even factor, halved down.
        {"interlaced png by 12", [] { return interlacedQuadrants(4000, 2000); }, 300, 334, 167, 0},
        {"jpeg at an eighth", [] { return quadrantsByFFmpeg("wide.jpg", 4000, 2000, "-q:v 1 -pix_fmt yuvj444p"); },
         300, 500, 250, 12},
        {"jpeg at an eighth then by 5", [] { return testing::fileBytes(testing::TestMovies::folder() / "wide.jpg"); },
         100, 100, 50, 12},
        {"gif by 6", [] { return quadrantsByFFmpeg("wide.gif", 640, 320); }, 100, 107, 54, 3},
        {"small png as it is", [] { return quadrantsByFFmpeg("small.png", 64, 32); }, 300, 64, 32, 0},
    };
    for (const Case& c : cases) {
        const CGImage image = ImageDecoder::decode(c.make(), c.longSide);
        EXPECT_EQ(image.width(), c.width) << c.name;
        EXPECT_EQ(image.height(), c.height) << c.name;
        EXPECT_LE(testing::quadrantError(image, red, green, blue, white), c.tolerance) << c.name;
    }
}

TEST(ReducedDecode, PixelLimitGrowsWithTheSizeAsked) {
    const std::pair<std::int64_t, std::int64_t> cases[] = {{0, 1 << 25}, {724, 1 << 25}, {725, 64 * 725 * 725},
                                                             {2048, 1 << 28}, {std::int64_t(1) << 40, 1 << 28}};
    for (const auto& [longSide, pixels] : cases) EXPECT_EQ(ImageLimits::pixelsFor(longSide), pixels) << longSide;
}

std::string refusal(const std::string& bytes, std::int64_t longSide) {
    try {
        (void)ImageDecoder::decode(bytes, longSide);
        return "";
    } catch (const ImageCodecError& error) {
        return error.what();
    }
}

// A header of 8000 × 8000 over the data of a small picture: too large to show 256 pixels, so
// refused before any pixel is read; allowed at 1000, what comes of it is up to the data.
TEST(ReducedDecode, RefusesFromTheHeaderWhatTheSizeAskedCantShow) {
    std::string png = quadrantsByFFmpeg("claims.png", 64, 32);
    png.replace(16, 8, std::string("\0\0\x1F\x40\0\0\x1F\x40", 8));
    std::string jpeg = quadrantsByFFmpeg("claims.jpg", 64, 32);
    jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, "\x1F\x40\x1F\x40");
    EXPECT_EQ(refusal(png, 256), "PNG of 8000 × 8000 pixels is outside the limits");
    EXPECT_EQ(refusal(jpeg, 256), "JPEG of 8000 × 8000 pixels is outside the limits");
    for (const std::string& bytes : {png, jpeg}) EXPECT_EQ(refusal(bytes, 1000).find("outside"), std::string::npos);
}

// 8000 × 8000 pixels take 256 MB whole; reduced as read, a row and the result are all held.
TEST(ReducedDecode, HoldsRowsNotTheWholePicture) {
    const std::string pictures[] = {
        quadrantsByFFmpeg("large.png", 8000, 8000),
        quadrantsByFFmpeg("large.jpg", 8000, 8000, "-q:v 2"),
    };
    for (const std::string& bytes : pictures) {
        const std::int64_t grown = testing::peakMemoryGrowth([&bytes] {
            const CGImage image = ImageDecoder::decode(bytes, 1000);
            if (image.width() != 1000) throw ImageCodecError("not reduced");
        });
        EXPECT_GE(grown, 0);
        EXPECT_LT(grown, 32 << 20) << bytes.substr(1, 3);
    }
}

} // namespace
} // namespace ovik
