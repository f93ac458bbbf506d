#pragma once
// The arithmetic of the drawn devices a style can wrap a picture in: a laptop, a phone or a
// browser window, all from the content's size alone. The content lies at (0, 0, width,
// height), y up; a device reaches past it by its bounds.
#include <optional>
#include <vector>

#include "OvikModel/style/DeviceFrame.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

/// A rectangle with round corners of one radius: an outline that casts a shadow.
struct RoundedOutline {
    CGRect rect;
    double radius = 0;
    bool operator==(const RoundedOutline&) const = default;
};

struct DeviceGeometry {
    DeviceFrame kind = DeviceFrame::none;
    double width = 0;
    double height = 0;
    double pixelsPerPoint = 1;
    double windowRadius = 0;

    /// A phone's body round a screen of the content's size.
    struct Phone {
        double band = 0;
        double bezel = 0;
        CGRect outer;
        double screenRadius = 0;
        double outerRadius = 0;
        CGRect island;
        double islandRadius = 0;
        /// Only an upright phone shows its island over the picture.
        bool hasIsland = false;
        std::vector<RoundedOutline> buttons;

        Phone(double width, double height);
    };

    /// A browser window whose bar sits above the content.
    struct Browser {
        CGRect window;
        CGRect bar;
        double radius = 0;
        std::vector<CGPoint> lights;
        double lightRadius = 0;
        /// The address field, left out when the bar is too narrow for one.
        std::optional<CGRect> field;
        double separator = 0;

        Browser(double width, double height, double pixelsPerPoint, double windowRadius);
    };

    /// A laptop's lid round the screen and its base below.
    struct MacBook {
        CGRect lid;
        double lidTopRadius = 0;
        double lidBottomRadius = 0;
        double rim = 0;
        CGRect base;
        double baseTopRadius = 0;
        double baseBottomRadius = 0;
        CGRect notch;
        CGPoint camera;
        double cameraRadius = 0;

        MacBook(double width, double height);
    };

    bool hasScreen() const { return kind != DeviceFrame::none; }
    /// Everything the drawing covers; the content alone without a device.
    CGRect bounds() const;
    /// The outlines that cast the device's shadow; none without a device.
    std::vector<RoundedOutline> silhouette() const;

    bool operator==(const DeviceGeometry&) const = default;
};

} // namespace ovik
