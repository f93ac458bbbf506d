#pragma once
// One key of a clock's explicit time curve: at `at` seconds since the thing began, it shows
// `own` seconds of itself.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ClockKey {
    double at = 0;
    double own = 0;

    bool operator==(const ClockKey&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("at", &ClockKey::at), required("own", &ClockKey::own)};
    }
};

} // namespace ovik
