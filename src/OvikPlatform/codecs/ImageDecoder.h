#pragma once
// The front door for still pictures: PNG, JPEG, HEIC and GIF, chosen by the file's signature,
// decoded to an upright premultiplied RGBA bitmap within the limits of `ImageLimits`.
//
// Decoding is synchronous and may take a while for a large HEIC; callers that must stay
// responsive run it on a worker of their own.
#include <filesystem>
#include <string_view>

#include "OvikPlatform/codecs/ImageFormat.h"
#include "OvikPlatform/codecs/ImageProperties.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::ImageDecoder {

/// Throws `ImageCodecError` for bytes of no known format, damaged data, or a size beyond the
/// limits.
CGImage decode(std::string_view bytes);
/// `decode` of a file's bytes; throws `PosixError` when the file can't be read.
CGImage read(const std::filesystem::path& path);

/// The picture reduced by a whole factor to what shows `longSide` pixels on its long side: its
/// long side at least that (unless the picture is smaller) and less than twice that. PNG and
/// JPEG pictures are reduced as they are decoded. Throws as `decode` does, and from the header
/// alone for a picture beyond `ImageLimits::pixelsFor(longSide)`.
CGImage decode(std::string_view bytes, std::int64_t longSide);
CGImage read(const std::filesystem::path& path, std::int64_t longSide);

/// The format, the shown size and the declared resolution, without decoding the pixels. Throws
/// `ImageCodecError` as `decode` does for the header: unknown, damaged, or beyond the limits.
struct Described {
    ImageFormat format;
    ImageProperties properties;
};
Described describe(std::string_view bytes);

} // namespace ovik::ImageDecoder
