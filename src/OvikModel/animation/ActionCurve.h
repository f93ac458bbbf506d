#pragma once
// How an action eases from its start to its end. Cases without payload are bare strings in
// JSON ("smooth"); the others are one-key objects: {"spring":{"stiffness":200,"damping":10}},
// {"steps":4}, {"bezier":{"x1":…,"y1":…,"x2":…,"y2":…}}.
#include <cstdint>

#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ActionCurve : Enumeration<ActionCurve> {
    struct smooth {
        static constexpr std::string_view name = "smooth";
        bool operator==(const smooth&) const = default;
    };
    struct overshoot {
        static constexpr std::string_view name = "overshoot";
        bool operator==(const overshoot&) const = default;
    };
    struct spring {
        static constexpr std::string_view name = "spring";
        double stiffness = 200;
        double damping = 10;
        bool operator==(const spring&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{writtenAlways("stiffness", &spring::stiffness), writtenAlways("damping", &spring::damping)};
        }
    };
    struct linear {
        static constexpr std::string_view name = "linear";
        bool operator==(const linear&) const = default;
    };
    struct steps {
        static constexpr std::string_view name = "steps";
        std::int64_t count = 1;
        bool operator==(const steps&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("count", &steps::count)}; }
    };
    struct bezier {
        static constexpr std::string_view name = "bezier";
        double x1 = 0, y1 = 0, x2 = 1, y2 = 1;
        bool operator==(const bezier&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("x1", &bezier::x1), required("y1", &bezier::y1), required("x2", &bezier::x2),
                              required("y2", &bezier::y2)};
        }
    };
    struct continuous {
        static constexpr std::string_view name = "continuous";
        bool operator==(const continuous&) const = default;
    };
    std::variant<smooth, overshoot, spring, linear, steps, bezier, continuous> cases;

    /// The position of the case in the list of kinds, for sorting.
    std::size_t kindIndex() const { return cases.index(); }

    bool operator==(const ActionCurve&) const = default;
};

} // namespace ovik
