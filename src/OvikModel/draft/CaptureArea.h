#pragma once
// The part of a display that a recording captured, in global screen points.
#include <cstdint>
#include <optional>

#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

struct CaptureArea {
    std::uint32_t displayID = 0;
    CGRect rect;
    /// Pixels per point of the display.
    double scale = 1;
    /// Set when one window was recorded.
    std::optional<std::uint32_t> windowID;

    bool operator==(const CaptureArea&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("displayID", &CaptureArea::displayID), required("rect", &CaptureArea::rect),
                          required("scale", &CaptureArea::scale), optional("windowID", &CaptureArea::windowID)};
    }
};

} // namespace ovik
