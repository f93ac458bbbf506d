#pragma once
// Why a recording stopped. JSON form: tagged, "user" or {"failed": "text"}.
#include <string>
#include <variant>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RecordingEndReason : Enumeration<RecordingEndReason> {
    /// A reason without a payload: the bare string of its name.
    template <const std::string_view& Name>
    struct Plain {
        static constexpr std::string_view name = Name;
        bool operator==(const Plain&) const = default;
    };
    static constexpr std::string_view userName = "user", diskLowName = "diskLow", targetGoneName = "targetGone",
                                      deviceLostName = "deviceLost", phoneLostName = "phoneLost",
                                      cameraLostName = "cameraLost", systemSleepName = "systemSleep";
    using user = Plain<userName>;
    using diskLow = Plain<diskLowName>;
    using targetGone = Plain<targetGoneName>;
    using deviceLost = Plain<deviceLostName>;
    using phoneLost = Plain<phoneLostName>;
    using cameraLost = Plain<cameraLostName>;
    using systemSleep = Plain<systemSleepName>;
    struct failed {
        static constexpr std::string_view name = "failed";
        std::string value;
        bool operator==(const failed&) const = default;
    };
    std::variant<user, diskLow, targetGone, deviceLost, phoneLost, cameraLost, systemSleep, failed> cases;

    bool operator==(const RecordingEndReason&) const = default;
};

} // namespace ovik
