#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "DecodingFailure.h"
#include "OvikModel/values/Times.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::expectRefused;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(Times, SecondsRoundHalvesAwayFromZeroAndSaturate) {
    const std::pair<double, std::int64_t> cases[] = {
        {0.0000005, 1},
        {-0.0000005, -1},
        {0.0000004, 0},
        {9.2e12, 9200000000000000000},
        {std::nan(""), 0},
        {-std::numeric_limits<double>::infinity(), 0},
        {9.3e12, largest},
        {-1e300, smallest}, // the product itself overflows
        {-9223372036854.775808, smallest}, // exactly the lowest count
    };
    for (const auto& [seconds, microseconds] : cases) {
        EXPECT_EQ(SourceTime::fromSeconds(seconds).microseconds, microseconds) << seconds;
        EXPECT_EQ(MediaDuration::fromSeconds(seconds).microseconds, microseconds) << seconds;
    }
}

TEST(Times, MillisecondsDescriptionsAndArithmeticSaturate) {
    EXPECT_EQ(OutputTime::fromMilliseconds(largest / 10).microseconds, largest);
    EXPECT_EQ(OutputTime::fromMilliseconds(smallest / 10).microseconds, smallest);
    EXPECT_EQ(SourceTime{1500000}.description(), "src:1500000µs");
    EXPECT_EQ(OutputTime{-5}.description(), "out:-5µs");
    EXPECT_EQ(MediaDuration{42}.description(), "42µs");
    EXPECT_EQ(OutputTime{10} - OutputTime{25}, MediaDuration{-15});
    EXPECT_EQ(SourceTime{largest} + MediaDuration{1}, SourceTime{largest});
    EXPECT_EQ(SourceTime{smallest} - MediaDuration{1}, SourceTime{smallest});
    EXPECT_EQ(OutputTime{largest} - OutputTime{-1}, MediaDuration{largest});
    EXPECT_EQ(MediaDuration{0} - MediaDuration{smallest}, MediaDuration{largest});
}

TEST(Times, FrameIndexLeansIntoTheFrameABoundaryOpens) {
    const std::tuple<double, double, double> cases[] = {
        {1.0 / 30.0, 30, 1}, // exactly on a boundary: not one short
        {1.0 / 30.0 - 0.0001, 30, 0},
        {10.0 / 3.0, 29.97, 99},
        {-0.5, 2, -1},
    };
    for (const auto& [seconds, fps, index] : cases) EXPECT_EQ(frameIndex(seconds, fps), index) << seconds << " at " << fps;
}

TEST(Times, JSONIsTheBareMicrosecondCountWithoutAFraction) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(MediaDuration{largest})), "9223372036854775807");
    EXPECT_EQ(decodeJSON<MediaDuration>(std::string_view("-9223372036854775808")), MediaDuration{smallest});
    expectRefused<std::vector<OutputTime>>({"[1.5]", DecodingError::Kind::dataCorrupted, "[0]"});
}

} // namespace
} // namespace ovik
