#pragma once
// What a draft's source time runs on: a still of a given length, or a recording made of
// segments. JSON form: tagged, {"still": 5000000} or {"recording": [...]}.
#include <variant>
#include <vector>

#include "OvikModel/values/TimeRange.h"

namespace ovik {

struct Timebase : Enumeration<Timebase> {
    struct still {
        static constexpr std::string_view name = "still";
        MediaDuration value;
        bool operator==(const still&) const = default;
    };
    struct recording {
        static constexpr std::string_view name = "recording";
        std::vector<SourceRange> segments;
        bool operator==(const recording&) const = default;
        static constexpr auto jsonFields() { return std::tuple{required("segments", &recording::segments)}; }
    };
    std::variant<still, recording> cases;

    static Timebase makeStill(MediaDuration duration) { return Timebase{{}, still{duration}}; }
    static Timebase makeRecording(std::vector<SourceRange> segments) {
        return Timebase{{}, recording{std::move(segments)}};
    }

    /// A still's own length; a recording runs to the end of its last segment, or zero with none.
    MediaDuration duration() const;

    bool operator==(const Timebase&) const = default;
};

} // namespace ovik
