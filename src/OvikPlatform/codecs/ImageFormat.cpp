#include "OvikPlatform/codecs/ImageFormat.h"

#include "OvikPlatform/codecs/GIFCodec.h"
#include "OvikPlatform/codecs/HEICCodec.h"
#include "OvikPlatform/codecs/JPEGCodec.h"
#include "OvikPlatform/codecs/PNGCodec.h"

namespace ovik {

std::optional<ImageFormat> imageFormat(std::string_view bytes) {
    if (PNGCodec::hasSignature(bytes)) return ImageFormat::png;
    if (JPEGCodec::hasSignature(bytes)) return ImageFormat::jpeg;
    if (HEICCodec::hasSignature(bytes)) return ImageFormat::heic;
    if (GIFCodec::hasSignature(bytes)) return ImageFormat::gif;
    return std::nullopt;
}

} // namespace ovik
