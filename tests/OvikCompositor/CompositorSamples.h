#pragma once
// Drafts and packages the compositor tests draw from, made by hand.
#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "OvikCompositor/RenderError.h"
#include "OvikModel/Draft.h"
#include "OvikPlatform/image/CGImage.h"

namespace ovik::testing {

/// A package folder of its own (with its "media" folder), removed when done.
struct Package {
    std::filesystem::path root;
    explicit Package(const std::string& name);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    void write(const std::string& path, const std::string& bytes) const;
    /// Every file and folder under the root, relative to it.
    std::set<std::string> listing() const;
};

/// A draft of one media in one still section of 5 seconds, with fixed ids.
Draft oneMedia(MediaSource source);
/// A 100 × 50 canvas of `colour`.
Draft canvasDraft(RGBA colour, bool transparent = false);
/// A draft of the screenshot `path` of `size`.
Draft screenshotDraft(PixelSize size, const char* path = "media/shot.png");
/// Two halves: red on the left, green on the right.
CGImage halves(std::int64_t width, std::int64_t height);
/// A source stretch kept at `rate`.
KeptStretch kept(std::int64_t start, std::int64_t end, double rate = 1);
/// A draft of `stretches` of the recording "media/movie.mp4", 64 × 48 at 30 frames a second and
/// `seconds` long, that ffmpeg writes into `package` from `input` (inputs, filters, options).
Draft keptRecording(const Package& package, const std::string& input, double seconds,
                    std::vector<KeptStretch> stretches);
/// A draft of the recording "media/movie.mp4" that it writes into `package`: 64 × 48 at 30
/// frames a second, one second of red, then one of blue, a key frame every 15 frames.
Draft recordingDraft(const Package& package);
/// A still of the draft in the package at `root`, by a renderer of its own.
CGImage still(const Draft& draft, const std::filesystem::path& root, std::optional<std::int64_t> at = std::nullopt,
              std::optional<std::int64_t> maxPixel = std::nullopt);
/// Matches a call that throws a `RenderFailure` of a source that can't be read.
inline auto throwsUnreadable() {
    return ::testing::Throws<RenderFailure>(::testing::ResultOf(
        [](const RenderFailure& failure) { return failure.error().is<RenderError::sourceUnreadable>(); }, true));
}

} // namespace ovik::testing
