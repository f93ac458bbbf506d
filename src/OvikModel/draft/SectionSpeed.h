#pragma once
// The section-wide speed curve, on top of the per-stretch rates: keys of rate along the
// section's played time, holds that stop it, and a reversal. Both lists are kept ascending by
// `at`. Every key may be absent on reading; all three are written.
#include <optional>
#include <vector>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct SectionSpeed {
    struct Key {
        /// Position on the section's played time.
        MediaDuration at;
        double rate = 1;
        /// Governs the segment from this key to the next; smooth when absent.
        std::optional<JSONValue> curve; // pending: ActionCurve

        bool operator==(const Key&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("at", &Key::at), required("rate", &Key::rate), optional("curve", &Key::curve)};
        }
    };
    struct Hold {
        MediaDuration at;
        MediaDuration duration;

        bool operator==(const Hold&) const = default;
        static constexpr auto jsonFields() {
            return std::tuple{required("at", &Hold::at), required("duration", &Hold::duration)};
        }
    };

    std::vector<Key> keys;
    std::vector<Hold> holds;
    bool reversed = false;

    /// The speed with both lists sorted stably by `at`.
    static SectionSpeed make(std::vector<Key> keys, std::vector<Hold> holds, bool reversed);

    /// No holds, not reversed, and every key at rate 1 exactly: the speed changes nothing.
    bool isIdentity() const;

    bool operator==(const SectionSpeed&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("keys", &SectionSpeed::keys), writtenAlways("holds", &SectionSpeed::holds),
                          writtenAlways("reversed", &SectionSpeed::reversed)};
    }
};

/// A speed that says something, sorted; none for one that changes nothing.
std::optional<SectionSpeed> normalized(std::optional<SectionSpeed> speed);

} // namespace ovik
