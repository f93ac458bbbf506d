#pragma once
// A device (a phone, a camera) whose screen or picture a recording holds.
#include <optional>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RecordedDevice {
    std::string name;
    std::optional<std::string> model;

    bool operator==(const RecordedDevice&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("name", &RecordedDevice::name), optional("model", &RecordedDevice::model)};
    }
};

} // namespace ovik
