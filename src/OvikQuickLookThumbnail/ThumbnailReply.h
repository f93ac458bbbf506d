#pragma once
// What a host is answered: the URL of an image file it reads by itself, or a drawing that it
// runs into a bitmap context of the given size (in its points).
#include <filesystem>
#include <functional>
#include <optional>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikPlatform/paint/CGContext.h"

namespace ovik {

class ThumbnailReply {
public:
    using Drawing = std::function<bool(CGContext&)>;

    static ThumbnailReply imageFile(std::filesystem::path url);
    static ThumbnailReply drawing(CGSize contextSize, Drawing draw);

    /// The kept file, for a file answer.
    const std::optional<std::filesystem::path>& imageFileURL() const { return imageFileURL_; }
    /// The context a drawing wants; zero for a file answer.
    CGSize contextSize() const { return contextSize_; }
    /// Runs the drawing; false for a file answer or a drawing that failed.
    bool draw(CGContext& context) const { return draw_ && draw_(context); }

private:
    std::optional<std::filesystem::path> imageFileURL_;
    CGSize contextSize_;
    Drawing draw_;
};

} // namespace ovik
