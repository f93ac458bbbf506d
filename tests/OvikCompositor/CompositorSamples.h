#pragma once
// Drafts and packages the compositor tests draw from, made by hand.
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>

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
/// A draft of the screenshot "media/shot.png" of `size`.
Draft screenshotDraft(PixelSize size);
/// Two halves: red on the left, green on the right.
CGImage halves(std::int64_t width, std::int64_t height);

} // namespace ovik::testing
