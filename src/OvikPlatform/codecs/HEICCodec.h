#pragma once
// HEIF pictures (HEIC and, where a decoder is installed, AVIF) to premultiplied RGBA bitmaps,
// through libheif. The primary picture is read, turned and mirrored as the file asks.
#include <string_view>

#include "OvikPlatform/codecs/ImageProperties.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::HEICCodec {

/// Whether the bytes begin with an ISO media `ftyp` box of a HEIF picture brand.
bool hasSignature(std::string_view bytes);
/// Throws `ImageCodecError` for anything that isn't a readable HEIF picture within the limits,
/// also when no decoder for its coding is installed.
CGImage decode(std::string_view bytes);
/// The shown size of the primary picture, without decoding it. HEIF keeps no resolution: 72.
ImageProperties properties(std::string_view bytes);

} // namespace ovik::HEICCodec
