#pragma once
// Thumbnails and previews of a package, free of host types: a kept render when its key still
// matches the draft exactly, else a picture composed on the spot. Nothing is ever written into
// the package. Every failure is `QuickLookFailure` (unreadable).
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "OvikModel/Draft.h"
#include "OvikModel/keys/RenderKey.h"
#include "OvikModel/values/ImageBox.h"
#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/geometry/CGPoint.h"

namespace ovik::QuickLookDraft {

/// Long sides at which kept thumbnails exist, ascending.
constexpr std::array<std::int64_t, 3> keptThumbnailPixels = {320, 520, 1400};
constexpr std::int64_t previewMaxPixel = 2560;
/// A thumbnail is never composed larger than the largest kept size.
constexpr std::int64_t renderingLimit = 1400;

struct Thumbnail : Enumeration<Thumbnail> {
    struct file {
        static constexpr std::string_view name = "file";
        std::filesystem::path value;
        bool operator==(const file&) const = default;
    };
    struct picture {
        static constexpr std::string_view name = "picture";
        ImageBox value;
        bool operator==(const picture&) const = default;
    };
    std::variant<file, picture> cases;
};

struct Preview : Enumeration<Preview> {
    struct file {
        static constexpr std::string_view name = "file";
        std::filesystem::path value;
    };
    struct picture {
        static constexpr std::string_view name = "picture";
        ImageBox image;
        CGSize points;
    };
    std::variant<file, picture> cases;
};

Thumbnail thumbnail(const std::filesystem::path& url, std::int64_t maxPixel);
Preview preview(const std::filesystem::path& url, std::int64_t maxPixel);
/// The decoded draft of a package, or nothing on any failure.
std::optional<Draft> draft(const std::filesystem::path& url);
RenderKey thumbnailKey(const Draft& draft, std::int64_t maxPixel);
std::string thumbnailFileName(std::int64_t maxPixel);
/// PNG bytes of the picture.
std::string pngData(const ImageBox& image);

} // namespace ovik::QuickLookDraft
