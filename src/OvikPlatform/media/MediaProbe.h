#pragma once
// Facts about a movie or a picture file, read from its headers without decoding pixels.
// Synchronous: callers that must not block run it on a worker of their own.
#include <cstdint>
#include <filesystem>
#include <optional>

#include "OvikPlatform/media/MediaTime.h"

namespace ovik::MediaProbe {

struct Movie {
    /// The shown size: the stored one with width and height swapped by an odd number of turns.
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// The nominal frame rate: 30 when the file gives none above 0, at most 240.
    double frameRate = 30;
    MediaTime duration;
    /// Stream indexes in the file: the first video stream (not a cover picture) and the first
    /// audio stream.
    int videoTrackID = 0;
    std::optional<int> audioTrackID;
    /// When the audio starts, in the movie's time; 0 without audio.
    MediaTime audioOffset;
    /// Quarter turns clockwise that showing the video takes, 0 to 3, from its display matrix.
    int turns = 0;
};

struct Picture {
    /// The shown size, after any orientation the file asks for.
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// Pixels per point: the declared resolution over 72 dpi, rounded, from 1 to 3.
    int scale = 1;
    /// Whether the file is a PNG.
    bool png = false;
};

/// Throws `MediaError` unreadable (with the path) for a file that can't be read as a movie,
/// and empty for one without video.
Movie movie(const std::filesystem::path& path);

/// Throws `MediaError` unreadable (with the path) for a file that can't be read as a picture
/// of a known format within the size limits.
Picture picture(const std::filesystem::path& path);

} // namespace ovik::MediaProbe
