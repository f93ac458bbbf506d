#pragma once
// The drawn device that a style can wrap round the picture; stored as its bare case name.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class DeviceFrame { none, macBook, iPhone, browser };

constexpr auto enumCases(DeviceFrame*) {
    return EnumCases<DeviceFrame, 4>{"DeviceFrame",
                                     {{DeviceFrame::none, "none"},
                                      {DeviceFrame::macBook, "macBook"},
                                      {DeviceFrame::iPhone, "iPhone"},
                                      {DeviceFrame::browser, "browser"}}};
}

} // namespace ovik
