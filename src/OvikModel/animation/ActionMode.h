#pragma once
// How an action's value moves. JSON: tagged, {"to": {"from": …, "to": …}},
// {"oscillate": {"amplitude": …, "frequency": 2, "decay": 0}}, {"noise": {…, "seed": 7}},
// {"continuous": …} (its rate), {"alongPath": …} (its path).
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/animation/ActionValue.h"

namespace ovik {

struct ActionMode : Enumeration<ActionMode> {
    /// The kinds, in the order that sorting counts them.
    enum class Kind { to, oscillate, noise, continuous, alongPath };

    struct to {
        static constexpr std::string_view name = "to";
        /// None moves from the property's rest value.
        std::optional<ActionValue> from;
        ActionValue to;
        bool operator==(const struct to&) const = default;
        static constexpr auto jsonFields() { return std::tuple{optional("from", &to::from), required("to", &to::to)}; }
    };
    struct oscillate {
        static constexpr std::string_view name = "oscillate";
        ActionValue amplitude;
        /// Cycles per second.
        double frequency = 1;
        double decay = 0;
        bool operator==(const oscillate&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("amplitude", &oscillate::amplitude), required("frequency", &oscillate::frequency),
                              required("decay", &oscillate::decay)};
        }
    };
    struct noise {
        static constexpr std::string_view name = "noise";
        ActionValue amplitude;
        double frequency = 1;
        std::uint64_t seed = 0;
        std::optional<double> decay;
        bool operator==(const noise&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("amplitude", &noise::amplitude), required("frequency", &noise::frequency),
                              required("seed", &noise::seed), optional("decay", &noise::decay)};
        }
    };
    struct continuous {
        static constexpr std::string_view name = "continuous";
        /// Per second.
        ActionValue rate;
        bool operator==(const continuous&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("rate", &continuous::rate)}; }
    };
    struct alongPath {
        static constexpr std::string_view name = "alongPath";
        BezierPath path;
        bool operator==(const alongPath&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("path", &alongPath::path)}; }
    };
    std::variant<to, oscillate, noise, continuous, alongPath> cases;

    Kind kind() const { return Kind(cases.index()); }
    /// The values the mode holds, in order: `from` if present and `to`; the amplitude; the rate.
    std::vector<ActionValue> values() const;
    /// The display name of a kind, in the language in force.
    static std::string title(Kind kind);

    bool operator==(const ActionMode&) const = default;
};

} // namespace ovik
