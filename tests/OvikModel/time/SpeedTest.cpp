#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "OvikModel/time/Freeze.h"
#include "OvikModel/time/Speed.h"

namespace ovik {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Speed, ClampedKeepsTheRangeAndRoundsToHundredths) {
    const std::pair<double, double> speeds[] = {{nan, 1},    {0.2, 0.5},    {0.5, 0.5}, {1.234, 1.23},
                                                {1.125, 1.13}, {1.375, 1.38}, {20, 8},    {-3, 0.5}};
    for (const auto& [in, out] : speeds) EXPECT_EQ(Speed::clamped(in), out) << in;
    const std::pair<double, const char*> texts[] = {{1, "1×"}, {1.5, "1.5×"}, {0.75, "0.75×"}, {2.10, "2.1×"}};
    for (const auto& [rate, text] : texts) EXPECT_EQ(Speed::text(rate), text);
}

TEST(Freeze, ClampedKeepsATenthToThirtySeconds) {
    const std::pair<double, std::int64_t> freezes[] = {
        {nan, 2'000'000}, {0.05, 100'000}, {0.1, 100'000}, {1.5, 1'500'000}, {90, 30'000'000}};
    for (const auto& [seconds, length] : freezes) EXPECT_EQ(Freeze::clamped(seconds).microseconds, length) << seconds;
}

} // namespace
} // namespace ovik
