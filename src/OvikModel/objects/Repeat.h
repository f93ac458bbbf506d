#pragma once
// Copies of an object, each one step further than the last.
#include <cstdint>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikModel/values/Times.h"

namespace ovik {

/// The change from one copy to the next; every key is left out at its default.
struct RepeatStep {
    CGVector offset;
    double rotation = 0;
    double scale = 1;
    double opacity = 1;
    MediaDuration delay;

    bool operator==(const RepeatStep&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{defaulted("offset", &RepeatStep::offset), defaulted("rotation", &RepeatStep::rotation),
                          defaulted("scale", &RepeatStep::scale), defaulted("opacity", &RepeatStep::opacity),
                          defaulted("delay", &RepeatStep::delay)};
    }
};

struct Repeat {
    using Step = RepeatStep;

    std::int64_t count = 0;
    Step step;

    bool operator==(const Repeat&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("count", &Repeat::count), defaulted("step", &Repeat::step)};
    }
};

} // namespace ovik
