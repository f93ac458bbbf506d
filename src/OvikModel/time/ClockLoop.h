#pragma once
// How often a clocked thing plays: a count of passes, or forever. JSON form: the bare count,
// or the string "forever".
#include <cstdint>
#include <variant>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct ClockLoop : Enumeration<ClockLoop> {
    struct count {
        static constexpr std::string_view name = "count";
        std::int64_t value;
        bool operator==(const count&) const = default;
    };
    struct forever {
        static constexpr std::string_view name = "forever";
        bool operator==(const forever&) const = default;
    };
    std::variant<count, forever> cases;

    static ClockLoop makeCount(std::int64_t passes) { return ClockLoop{{}, count{passes}}; }
    static ClockLoop makeForever() { return ClockLoop{{}, forever{}}; }

    bool operator==(const ClockLoop&) const = default;
};

template <>
struct JSONCoding<ClockLoop> {
    static JSONValue encode(const ClockLoop& loop);
    static ClockLoop decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
