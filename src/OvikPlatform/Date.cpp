#include "OvikPlatform/Date.h"

#include <cmath>
#include <ctime>

namespace ovik {
namespace {

constexpr std::int64_t secondsPerDay = 86400;

std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    const std::int64_t q = a / b;
    return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
}

// Days since 1970-01-01 to a proleptic Gregorian date, counted in 400-year eras.
void civilFromDays(std::int64_t days, CalendarFields& out) {
    const std::int64_t z = days + 719468;
    const std::int64_t era = floorDivide(z, 146097);
    const std::int64_t dayOfEra = z - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    out.day = int(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    out.month = int(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    out.year = yearOfEra + era * 400 + (out.month <= 2 ? 1 : 0);
}

} // namespace

TimeZone TimeZone::current(const Date& at) {
    const double since1970 = at.secondsSince1970();
    const std::time_t when = std::isfinite(since1970) && std::fabs(since1970) < 1e17 ? std::time_t(since1970) : 0;
    std::tm local{};
    if (localtime_r(&when, &local) == nullptr) return TimeZone{};
    return TimeZone{local.tm_gmtoff};
}

CalendarFields Date::fields(TimeZone zone) const {
    const double local = std::floor(secondsSince1970()) + double(zone.secondsFromGMT);
    // Beyond this a calendar year means nothing; the epoch stands in for a non-finite moment.
    const std::int64_t seconds = std::isfinite(local) && std::fabs(local) < 1e17 ? std::int64_t(local) : 0;
    CalendarFields out;
    civilFromDays(floorDivide(seconds, secondsPerDay), out);
    const std::int64_t ofDay = seconds - floorDivide(seconds, secondsPerDay) * secondsPerDay;
    out.hour = int(ofDay / 3600);
    out.minute = int(ofDay / 60 % 60);
    out.second = int(ofDay % 60);
    return out;
}

} // namespace ovik
