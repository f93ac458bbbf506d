#pragma once
// A moment in time as seconds since 2001-01-01T00:00:00Z, with fraction. JSON form: that bare
// number. Calendar fields come from a fixed offset from GMT, so that a name made from a date
// depends only on its inputs; `TimeZone::current` asks the machine once, at the edge.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct Date;

struct TimeZone {
    std::int64_t secondsFromGMT = 0;

    /// The machine's zone at that moment (daylight saving included).
    static TimeZone current(const Date& at);

    bool operator==(const TimeZone&) const = default;
};

/// Gregorian calendar fields of a moment in one zone.
struct CalendarFields {
    std::int64_t year = 2001;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const CalendarFields&) const = default;
};

struct Date {
    /// Seconds between 1970-01-01 and 2001-01-01, both at midnight GMT.
    static constexpr double referenceFrom1970 = 978307200;

    double timeIntervalSinceReferenceDate = 0;

    static Date fromSecondsSince1970(double seconds) { return Date{seconds - referenceFrom1970}; }
    double secondsSince1970() const { return timeIntervalSinceReferenceDate + referenceFrom1970; }

    /// The calendar fields in `zone`; a fraction of a second is dropped toward the past.
    CalendarFields fields(TimeZone zone) const;

    auto operator<=>(const Date&) const = default;
};

template <>
struct JSONCoding<Date> {
    static JSONValue encode(Date date) { return JSONValue(date.timeIntervalSinceReferenceDate); }
    static Date decode(JSONNode node, const CodingPath& path) { return Date{JSONCoding<double>::decode(node, path)}; }
};

} // namespace ovik
