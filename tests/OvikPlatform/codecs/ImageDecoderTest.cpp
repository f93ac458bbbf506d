#include <gtest/gtest.h>

#include <libheif/heif.h>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

#include <filesystem>
#include <functional>
#include <map>
#include <memory>

#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/codecs/Quadrants.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/media/PictureDifference.h"

namespace ovik {
namespace {

using testing::RGBA;
using testing::red, testing::green, testing::blue, testing::white, testing::quadrantError;

// 64 × 32 in four quadrants: red, green over blue, white.
constexpr std::int64_t patternWidth = 64, patternHeight = 32;

std::string byFFmpeg(const std::string& name, const std::string& options = "") {
    return testing::quadrantsByFFmpeg(name, patternWidth, patternHeight, options);
}

// The same quadrants through libheif's HEVC encoder.
std::string byLibheif() {
#if defined(__SANITIZE_ADDRESS__)
    // x265 keeps a little state for the life of the process that it never frees.
    __lsan::ScopedDisabler encoderState;
#endif
    const std::filesystem::path path = testing::TestMovies::folder() / "quadrants.heic";
    std::unique_ptr<heif_context, void (*)(heif_context*)> context(heif_context_alloc(), heif_context_free);
    heif_encoder* encoder = nullptr;
    EXPECT_EQ(heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &encoder).code, heif_error_Ok);
    heif_encoder_set_lossy_quality(encoder, 95);
    heif_image* image = nullptr;
    heif_image_create(patternWidth, patternHeight, heif_colorspace_RGB, heif_chroma_interleaved_RGB, &image);
    heif_image_add_plane(image, heif_channel_interleaved, patternWidth, patternHeight, 8);
    int stride = 0;
    std::uint8_t* plane = heif_image_get_plane(image, heif_channel_interleaved, &stride);
    for (std::int64_t y = 0; y < patternHeight; ++y)
        for (std::int64_t x = 0; x < patternWidth; ++x) {
            const RGBA colour = testing::quadrantColour(x, y, patternWidth, patternHeight);
            for (std::size_t c = 0; c < 3; ++c) plane[y * stride + x * 3 + std::int64_t(c)] = std::uint8_t(colour[c]);
        }
    EXPECT_EQ(heif_context_encode_image(context.get(), image, encoder, nullptr, nullptr).code, heif_error_Ok);
    EXPECT_EQ(heif_context_write_to_file(context.get(), path.c_str()).code, heif_error_Ok);
    heif_image_release(image);
    heif_encoder_release(encoder);
    return testing::fileBytes(path);
}

struct Sample {
    const char* name;
    std::function<std::string()> make;
    ImageFormat format;
    int tolerance;
};

const Sample samples[] = {
    {"png", [] { return byFFmpeg("quadrants.png"); }, ImageFormat::png, 0},
    {"jpeg", [] { return byFFmpeg("quadrants.jpg", "-q:v 1 -pix_fmt yuvj444p"); }, ImageFormat::jpeg, 12},
    // ffmpeg's GIF palette keeps 3 bits of red and green: 255 comes back as 252.
    {"gif", [] { return byFFmpeg("quadrants.gif"); }, ImageFormat::gif, 3},
    {"heic", byLibheif, ImageFormat::heic, 16},
};

TEST(ImageDecoder, DecodesEachFormatByItsSignature) {
    for (const Sample& sample : samples) {
        const std::string bytes = sample.make();
        const ImageDecoder::Described described = ImageDecoder::describe(bytes);
        EXPECT_EQ(described.format, sample.format) << sample.name;
        EXPECT_EQ(described.properties, (ImageProperties{patternWidth, patternHeight, 72})) << sample.name;
        const CGImage image = ImageDecoder::decode(bytes);
        ASSERT_EQ(std::pair(image.width(), image.height()), std::pair(patternWidth, patternHeight)) << sample.name;
        EXPECT_LE(quadrantError(image, red, green, blue, white), sample.tolerance) << sample.name;
    }
}

// The quadrant JPEG with an EXIF block (big-endian, as cameras often write it) that holds only
// an orientation.
std::string withOrientation(const std::string& jpeg, int orientation) {
    const std::string tiff = std::string("MM\0\x2A\0\0\0\x08", 8) + std::string("\0\x01", 2) +
                             std::string("\x01\x12\0\x03\0\0\0\x01\0", 9) + char(orientation) +
                             std::string("\0\0\0\0\0\0", 6);
    const std::string payload = std::string("Exif\0\0", 6) + tiff;
    const std::size_t length = payload.size() + 2;
    const std::string segment = std::string("\xFF\xE1") + char(length >> 8) + char(length & 0xFF) + payload;
    return jpeg.substr(0, 2) + segment + jpeg.substr(2);
}

TEST(ImageDecoder, TurnsJPEGsAsTheirEXIFOrientationSays) {
    struct Case {
        int orientation;
        RGBA topLeft, topRight, bottomLeft, bottomRight;
    };
    // Stored: red, green over blue, white. Worked out by turning and mirroring a drawing.
    const Case cases[] = {
        {1, red, green, blue, white},  {2, green, red, white, blue}, {3, white, blue, green, red},
        {4, blue, white, red, green},  {5, red, blue, green, white}, {6, blue, red, white, green},
        {7, white, green, blue, red},  {8, green, white, red, blue},
    };
    const std::string jpeg = byFFmpeg("upright.jpg", "-q:v 1 -pix_fmt yuvj444p");
    for (const Case& c : cases) {
        const std::string bytes = withOrientation(jpeg, c.orientation);
        const CGImage image = ImageDecoder::decode(bytes);
        const bool turned = c.orientation >= 5;
        ASSERT_EQ(image.width(), turned ? patternHeight : patternWidth) << c.orientation;
        ASSERT_EQ(image.height(), turned ? patternWidth : patternHeight) << c.orientation;
        EXPECT_LE(quadrantError(image, c.topLeft, c.topRight, c.bottomLeft, c.bottomRight), 12) << c.orientation;
        EXPECT_EQ(ImageDecoder::describe(bytes).properties.width, image.width()) << c.orientation;
    }
}

std::string patched(std::string bytes, std::size_t at, const std::string& with) {
    return bytes.replace(at, with.size(), with);
}

TEST(ImageDecoder, RefusesWhatIsNotAWholePictureWithinTheLimits) {
    std::map<std::string, std::string> bad = {
        {"empty", ""},
        {"noise", std::string(1000, '\x3C')},
        {"png signature", "\x89PNG\r\n\x1a\n"},
        {"jpeg signature", "\xFF\xD8\xFF"},
        {"heic box", std::string("\0\0\0\x18" "ftypheic\0\0\0\0mif1", 20)},
        // A screen of 0 × 0, no colours, then the trailer.
        {"empty gif", std::string("GIF89a\0\0\0\0\0\0\0;", 14)},
        {"wide png", PNGCodec::encode(CGImage(PNGCodec::maximumSide + 1, 1, (PNGCodec::maximumSide + 1) * 4,
                                              std::vector<std::uint8_t>((PNGCodec::maximumSide + 1) * 4, 255)))},
    };
    for (const Sample& sample : samples) {
        const std::string bytes = sample.make();
        bad.emplace(std::string("half a ") + sample.name, bytes.substr(0, bytes.size() / 2));
        if (sample.format == ImageFormat::gif) bad.emplace("huge gif", patched(bytes, 6, "\xFF\xFF\xFF\xFF"));
        // The frame header's height and width, after its marker, length and precision.
        if (sample.format == ImageFormat::jpeg)
            bad.emplace("huge jpeg", patched(bytes, bytes.find("\xFF\xC0") + 5, "\x9C\x40\x9C\x40"));
    }
    for (const auto& [name, bytes] : bad) EXPECT_THROW(ImageDecoder::decode(bytes), ImageCodecError) << name;
    // The header alone is enough to refuse these.
    for (const char* name : {"noise", "empty gif", "wide png", "huge gif", "huge jpeg"})
        EXPECT_THROW(ImageDecoder::describe(bad.at(name)), ImageCodecError) << name;
    EXPECT_THROW(ImageDecoder::read(testing::TestMovies::folder() / "absent.png"), PosixError);
}

// Up to 32768 pixels a side and 2^28 in all, both inclusive.
TEST(ImageLimits, BothLimitsAreInclusive) {
    using Size = std::pair<std::int64_t, std::int64_t>;
    for (const auto& [width, height] : {Size{32768, 1}, {1, 32768}, {16384, 16384}})
        EXPECT_NO_THROW(ImageLimits::require(width, height, "PNG")) << width << " x " << height;
    for (const auto& [width, height] : {Size{32769, 1}, {1, 32769}, {16384, 16385}, {0, 1}})
        EXPECT_THROW(ImageLimits::require(width, height, "PNG"), ImageCodecError) << width << " x " << height;
}

} // namespace
} // namespace ovik
