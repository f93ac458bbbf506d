#pragma once
// How zooming behaves in a recording. Every key may be absent on reading; all are written.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class ZoomSpeed { slow, medium, fast };

constexpr auto enumCases(ZoomSpeed*) {
    return EnumCases<ZoomSpeed, 3>{
        "ZoomSpeed", {{ZoomSpeed::slow, "slow"}, {ZoomSpeed::medium, "medium"}, {ZoomSpeed::fast, "fast"}}};
}

struct ZoomSettings {
    bool isAuto = false;
    double defaultFactor = 2;
    ZoomSpeed speed = ZoomSpeed::medium;

    bool operator==(const ZoomSettings&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("isAuto", &ZoomSettings::isAuto),
                          writtenAlways("defaultFactor", &ZoomSettings::defaultFactor),
                          writtenAlways("speed", &ZoomSettings::speed)};
    }
};

} // namespace ovik
