#pragma once
// The three kinds of time: a moment of source media as recorded (`SourceTime`), a moment of the
// edited timeline (`OutputTime`) and a length (`MediaDuration`). All are a signed count of
// microseconds, kept apart as types because they mean different things; only the arithmetic
// that makes sense between them exists. JSON form: the bare integer count.
//
// Arithmetic saturates at the 64-bit range instead of overflowing; no stored draft comes near it.
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

// Each kind names the prefix of its description.
struct SourceTimeKind {
    static constexpr std::string_view prefix = "src:";
};
struct OutputTimeKind {
    static constexpr std::string_view prefix = "out:";
};
struct MediaDurationKind {
    static constexpr std::string_view prefix = "";
};

template <class Kind>
struct TimeCount;

using SourceTime = TimeCount<SourceTimeKind>;
using OutputTime = TimeCount<OutputTimeKind>;
using MediaDuration = TimeCount<MediaDurationKind>;

namespace time_detail {
/// The nearest count, halves away from zero; non-finite gives zero and values beyond the
/// 64-bit range saturate.
std::int64_t roundedCount(double count);
/// Microseconds for a count of seconds, rounded as `roundedCount`.
inline std::int64_t microsecondsFromSeconds(double seconds) { return roundedCount(seconds * 1e6); }
std::string description(std::string_view prefix, std::int64_t microseconds);

constexpr std::int64_t saturated(bool positive) {
    return positive ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
}
constexpr std::int64_t saturatingAdd(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    return __builtin_add_overflow(a, b, &sum) ? saturated(b > 0) : sum;
}
constexpr std::int64_t saturatingSubtract(std::int64_t a, std::int64_t b) {
    std::int64_t difference = 0;
    return __builtin_sub_overflow(a, b, &difference) ? saturated(b < 0) : difference;
}
constexpr std::int64_t saturatingMultiply(std::int64_t a, std::int64_t b) {
    std::int64_t product = 0;
    return __builtin_mul_overflow(a, b, &product) ? saturated((a < 0) == (b < 0)) : product;
}
} // namespace time_detail

template <class Kind>
struct TimeCount {
    std::int64_t microseconds = 0;

    static constexpr TimeCount zero() { return TimeCount{}; }
    static TimeCount fromSeconds(double seconds) { return TimeCount{time_detail::microsecondsFromSeconds(seconds)}; }
    /// The nearest whole count of microseconds to a real count.
    static TimeCount rounded(double microseconds) { return TimeCount{time_detail::roundedCount(microseconds)}; }
    static constexpr TimeCount fromMilliseconds(std::int64_t milliseconds) {
        return TimeCount{time_detail::saturatingMultiply(milliseconds, 1000)};
    }

    double seconds() const { return double(microseconds) / 1e6; }
    /// The count in µs, after the prefix of its kind: "src:1500000µs".
    std::string description() const { return time_detail::description(Kind::prefix, microseconds); }

    /// The same count on the other time line: for a draft whose source and output coincide.
    OutputTime asOutput() const
        requires std::same_as<Kind, SourceTimeKind>
    {
        return OutputTime{microseconds};
    }
    static SourceTime fromOutput(OutputTime output)
        requires std::same_as<Kind, SourceTimeKind>
    {
        return SourceTime{output.microseconds};
    }

    auto operator<=>(const TimeCount&) const = default;
};

// A moment moved by a length stays a moment of its line; a length plus a length is a length.
template <class Kind>
constexpr TimeCount<Kind> operator+(TimeCount<Kind> time, MediaDuration duration) {
    return TimeCount<Kind>{time_detail::saturatingAdd(time.microseconds, duration.microseconds)};
}
template <class Kind>
constexpr TimeCount<Kind> operator-(TimeCount<Kind> time, MediaDuration duration) {
    return TimeCount<Kind>{time_detail::saturatingSubtract(time.microseconds, duration.microseconds)};
}
/// The length between two moments of the same line.
template <class Kind>
    requires(!std::same_as<Kind, MediaDurationKind>)
constexpr MediaDuration operator-(TimeCount<Kind> later, TimeCount<Kind> earlier) {
    return MediaDuration{time_detail::saturatingSubtract(later.microseconds, earlier.microseconds)};
}

/// The index of the video frame that shows the moment `seconds` at `fps`. The small term keeps
/// a moment standing exactly on a frame boundary from rounding into the frame before.
double frameIndex(double seconds, double fps);

template <class Kind>
struct JSONCoding<TimeCount<Kind>> {
    static JSONValue encode(TimeCount<Kind> time) { return JSONValue(time.microseconds); }
    static TimeCount<Kind> decode(JSONNode node, const CodingPath& path) {
        return TimeCount<Kind>{JSONCoding<std::int64_t>::decode(node, path)};
    }
};

} // namespace ovik
