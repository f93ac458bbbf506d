#pragma once
// The levels of the two recorded sound tracks. Every key may be absent on reading; all are
// written.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct TrackLevel {
    double volume = 1;
    bool isMuted = false;

    bool operator==(const TrackLevel&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("volume", &TrackLevel::volume), writtenAlways("isMuted", &TrackLevel::isMuted)};
    }
};

struct AudioSettings {
    TrackLevel microphone;
    TrackLevel system;

    bool operator==(const AudioSettings&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("microphone", &AudioSettings::microphone),
                          writtenAlways("system", &AudioSettings::system)};
    }
};

} // namespace ovik
