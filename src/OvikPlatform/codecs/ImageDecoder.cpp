#include "OvikPlatform/codecs/ImageDecoder.h"

#include "OvikPlatform/codecs/GIFCodec.h"
#include "OvikPlatform/codecs/HEICCodec.h"
#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/JPEGCodec.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/codecs/RowReducer.h"
#include "OvikPlatform/files/ReadFile.h"

namespace ovik::ImageDecoder {
namespace {

[[noreturn]] void unknownFormat() { throw ImageCodecError("Not a picture file of a known format"); }

ImageFormat formatOf(std::string_view bytes) {
    const std::optional<ImageFormat> format = imageFormat(bytes);
    if (!format) unknownFormat();
    return *format;
}

ImageProperties properties(ImageFormat format, std::string_view bytes) {
    switch (format) {
    case ImageFormat::png: return PNGCodec::properties(bytes);
    case ImageFormat::jpeg: return JPEGCodec::properties(bytes);
    case ImageFormat::heic: return HEICCodec::properties(bytes);
    case ImageFormat::gif: return GIFCodec::properties(bytes);
    }
    unknownFormat();
}

// A picture decoded whole, reduced afterwards: for formats whose decoders give no rows.
CGImage reduced(const CGImage& image, std::int64_t longSide) {
    const std::int64_t factor = RowReducer::factor(image.width(), image.height(), longSide);
    if (factor == 1) return image;
    RowReducer reducer(image.width(), image.height(), factor, factor);
    const std::span<const std::uint8_t> pixels = image.pixels();
    for (std::int64_t y = 0; y < image.height(); ++y)
        reducer.add(pixels.subspan(std::size_t(y * image.bytesPerRow()), std::size_t(image.width()) * 4));
    return reducer.finish();
}

} // namespace

CGImage decode(std::string_view bytes) {
    switch (formatOf(bytes)) {
    case ImageFormat::png: return PNGCodec::decode(bytes);
    case ImageFormat::jpeg: return JPEGCodec::decode(bytes);
    case ImageFormat::heic: return HEICCodec::decode(bytes);
    case ImageFormat::gif: return GIFCodec::decode(bytes);
    }
    unknownFormat();
}

CGImage read(const std::filesystem::path& path) { return decode(readFile(path)); }

CGImage decode(std::string_view bytes, std::int64_t longSide) {
    const ImageFormat format = formatOf(bytes);
    switch (format) {
    case ImageFormat::png: return PNGCodec::decode(bytes, longSide);
    case ImageFormat::jpeg: return JPEGCodec::decode(bytes, longSide);
    case ImageFormat::heic:
    case ImageFormat::gif: break;
    }
    const ImageProperties found = properties(format, bytes);
    ImageLimits::require(found.width, found.height, longSide, "Picture");
    return reduced(decode(bytes), longSide);
}

CGImage read(const std::filesystem::path& path, std::int64_t longSide) { return decode(readFile(path), longSide); }

Described describe(std::string_view bytes) {
    const ImageFormat format = formatOf(bytes);
    const ImageProperties found = properties(format, bytes);
    ImageLimits::require(found.width, found.height, "Picture");
    return {format, found};
}

} // namespace ovik::ImageDecoder
