#pragma once
// Whether pressed keys are shown over a recording.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct KeyOverlay {
    bool isShown = true;
    bool showsTyping = true;

    bool operator==(const KeyOverlay&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("isShown", &KeyOverlay::isShown),
                          defaulted("showsTyping", &KeyOverlay::showsTyping)};
    }
};

} // namespace ovik
