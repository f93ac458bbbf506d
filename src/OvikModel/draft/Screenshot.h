#pragma once
// A still picture kept in the package: taken from the screen, or imported.
#include <optional>
#include <string>

#include "OvikModel/PackagePath.h"
#include "OvikModel/draft/ImportedFile.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct Screenshot {
    /// The length a still gets when it becomes an animation and no usable length was given.
    static constexpr MediaDuration defaultAnimationLength{5'000'000};

    PackagePath image;
    PixelSize pixelSize;
    /// Pixels per point.
    double scale = 1;
    std::string colorSpaceName;
    std::optional<ImportedFile> imported;
    std::optional<std::string> contentSHA;

    bool operator==(const Screenshot&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("image", &Screenshot::image),
                          required("pixelSize", &Screenshot::pixelSize),
                          required("scale", &Screenshot::scale),
                          required("colorSpaceName", &Screenshot::colorSpaceName),
                          optional("imported", &Screenshot::imported),
                          optional("contentSHA", &Screenshot::contentSHA)};
    }
};

} // namespace ovik
