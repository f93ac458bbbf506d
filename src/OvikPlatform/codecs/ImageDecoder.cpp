#include "OvikPlatform/codecs/ImageDecoder.h"

#include "OvikPlatform/codecs/GIFCodec.h"
#include "OvikPlatform/codecs/HEICCodec.h"
#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/JPEGCodec.h"
#include "OvikPlatform/codecs/PNGCodec.h"
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

Described describe(std::string_view bytes) {
    const ImageFormat format = formatOf(bytes);
    const ImageProperties found = properties(format, bytes);
    ImageLimits::require(found.width, found.height, "Picture");
    return {format, found};
}

} // namespace ovik::ImageDecoder
