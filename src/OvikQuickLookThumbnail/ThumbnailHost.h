#pragma once
// What a host does with a provider's answer, for our own hosts (`ovik thumbnail` and the
// freedesktop thumbnailer): wait for the one reply, then make the picture the host would
// show: a kept file read and fitted into the maximum size, or the drawing run into a bitmap
// of the context size times the screen scale.
#include <filesystem>
#include <optional>

#include "OvikPlatform/image/CGImage.h"
#include "OvikQuickLookThumbnail/ThumbnailRequest.h"

namespace ovik {

struct HostedThumbnail {
    /// The kept render that answered, or none for a composed picture.
    std::optional<std::filesystem::path> keptFile;
    CGImage image;
};

namespace ThumbnailHost {

/// Throws `QuickLookFailure` when the package can't be read, or the kept file isn't a PNG
/// that the box can show (one far larger is refused from its header, as `PNGCodec` decides).
HostedThumbnail answer(const ThumbnailRequest& request);

} // namespace ThumbnailHost
} // namespace ovik
