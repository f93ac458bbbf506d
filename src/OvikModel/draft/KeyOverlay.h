#pragma once
// Whether pressed keys are shown over a recording.
#include "OvikModel/draft/WrittenAlways.h"

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
