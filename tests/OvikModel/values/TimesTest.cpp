#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "DecodingFailure.h"
#include "OvikModel/values/Times.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

// Only the arithmetic that means something exists: no mixing of time lines, no sum of moments.
template <class A, class B>
concept Addable = requires(A a, B b) { a + b; };
template <class A, class B>
concept Subtractable = requires(A a, B b) { a - b; };
static_assert(Addable<SourceTime, MediaDuration> && Addable<OutputTime, MediaDuration> &&
              Addable<MediaDuration, MediaDuration>);
static_assert(!Addable<SourceTime, SourceTime> && !Addable<OutputTime, OutputTime>);
static_assert(!Addable<MediaDuration, SourceTime> && !Addable<SourceTime, OutputTime>);
static_assert(!Subtractable<SourceTime, OutputTime> && !Subtractable<MediaDuration, OutputTime>);
static_assert(std::is_same_v<decltype(SourceTime{} - SourceTime{}), MediaDuration>);
static_assert(std::is_same_v<decltype(OutputTime{} - OutputTime{}), MediaDuration>);
static_assert(std::is_same_v<decltype(OutputTime{} - MediaDuration{}), OutputTime>);
static_assert(std::is_same_v<decltype(MediaDuration{} - MediaDuration{}), MediaDuration>);
static_assert(!std::is_convertible_v<SourceTime, OutputTime> && !std::is_convertible_v<OutputTime, MediaDuration>);

TEST(Times, SecondsRoundHalvesAwayFromZero) {
    struct Case {
        double seconds;
        std::int64_t microseconds;
    };
    const Case cases[] = {
        {1.5, 1500000},
        {0.0000005, 1},
        {-0.0000005, -1},
        {0.0000004, 0},
        {-0.0000004, 0},
        {-2.25, -2250000},
        {0, 0},
        {9.2e12, 9200000000000000000},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(SourceTime::fromSeconds(c.seconds).microseconds, c.microseconds) << c.seconds;
        EXPECT_EQ(OutputTime::fromSeconds(c.seconds).microseconds, c.microseconds) << c.seconds;
        EXPECT_EQ(MediaDuration::fromSeconds(c.seconds).microseconds, c.microseconds) << c.seconds;
    }
}

TEST(Times, SecondsOutsideTheRangeSaturateAndNonFiniteGiveZero) {
    struct Case {
        double seconds;
        std::int64_t microseconds;
    };
    const Case cases[] = {
        {std::nan(""), 0},
        {std::numeric_limits<double>::infinity(), 0},
        {-std::numeric_limits<double>::infinity(), 0},
        {9.3e12, largest},
        {-9.3e12, smallest},
        {1e300, largest}, // the product itself overflows
        {-1e300, smallest},
        {-9223372036854.775808, smallest}, // exactly the lowest count
    };
    for (const Case& c : cases) EXPECT_EQ(MediaDuration::fromSeconds(c.seconds).microseconds, c.microseconds) << c.seconds;
}

TEST(Times, MillisecondsAndSecondsConvert) {
    EXPECT_EQ(OutputTime::fromMilliseconds(1500).microseconds, 1500000);
    EXPECT_EQ(OutputTime::fromMilliseconds(-2).microseconds, -2000);
    EXPECT_EQ(OutputTime::fromMilliseconds(largest / 10).microseconds, largest);
    EXPECT_EQ(OutputTime::fromMilliseconds(smallest / 10).microseconds, smallest);
    EXPECT_EQ(SourceTime{1500000}.seconds(), 1.5);
    EXPECT_EQ(MediaDuration{-250}.seconds(), -0.00025);
    EXPECT_EQ(MediaDuration::zero().microseconds, 0);
}

TEST(Times, DescriptionsNameTheirTimeLine) {
    EXPECT_EQ(SourceTime{1500000}.description(), "src:1500000µs");
    EXPECT_EQ(OutputTime{-5}.description(), "out:-5µs");
    EXPECT_EQ(MediaDuration{42}.description(), "42µs");
}

TEST(Times, ArithmeticKeepsItsKindAndSaturates) {
    EXPECT_EQ(OutputTime{10} + MediaDuration{5}, OutputTime{15});
    EXPECT_EQ(OutputTime{10} - MediaDuration{15}, OutputTime{-5});
    EXPECT_EQ(OutputTime{10} - OutputTime{25}, MediaDuration{-15});
    EXPECT_EQ(SourceTime{10} + MediaDuration{5}, SourceTime{15});
    EXPECT_EQ(SourceTime{30} - SourceTime{5}, MediaDuration{25});
    EXPECT_EQ(MediaDuration{7} - MediaDuration{9}, MediaDuration{-2});
    EXPECT_EQ(MediaDuration{7} + MediaDuration{9}, MediaDuration{16});
    EXPECT_EQ(SourceTime{largest} + MediaDuration{1}, SourceTime{largest});
    EXPECT_EQ(SourceTime{smallest} - MediaDuration{1}, SourceTime{smallest});
    EXPECT_EQ(OutputTime{smallest} + MediaDuration{smallest}, OutputTime{smallest});
    EXPECT_EQ(OutputTime{largest} - OutputTime{-1}, MediaDuration{largest});
    EXPECT_EQ(MediaDuration{0} - MediaDuration{smallest}, MediaDuration{largest});
}

TEST(Times, SourceAndOutputReinterpretTheCount) {
    EXPECT_EQ(SourceTime{-77}.asOutput(), OutputTime{-77});
    EXPECT_EQ(SourceTime::fromOutput(OutputTime{123}), SourceTime{123});
    EXPECT_LT(SourceTime{-1}, SourceTime{0});
    EXPECT_GT(MediaDuration{2}, MediaDuration{1});
}

TEST(Times, FrameIndexLeansIntoTheFrameABoundaryOpens) {
    struct Case {
        double seconds;
        double fps;
        double index;
    };
    const Case cases[] = {
        {1.0 / 30.0, 30, 1},  // exactly on a boundary: not one short
        {0, 30, 0},
        {1.0 / 30.0 - 0.0001, 30, 0},
        {0.5, 24, 12},
        {10.0 / 3.0, 29.97, 99},
        {-0.5, 2, -1},
    };
    for (const Case& c : cases) EXPECT_EQ(frameIndex(c.seconds, c.fps), c.index) << c.seconds << " at " << c.fps;
}

TEST(Times, JSONIsTheBareMicrosecondCount) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(SourceTime{1500000})), "1500000");
    EXPECT_EQ(JSONWriter::write(encodeJSON(OutputTime{-3})), "-3");
    EXPECT_EQ(JSONWriter::write(encodeJSON(MediaDuration{largest})), "9223372036854775807");
    EXPECT_EQ(decodeJSON<MediaDuration>(std::string_view("-9223372036854775808")), MediaDuration{smallest});
    EXPECT_EQ(decodeJSON<SourceTime>(std::string_view("42")), SourceTime{42});
}

TEST(Times, JSONWithAFractionOrAnotherTypeIsRefused) {
    const DecodingFailure failures[] = {
        {"[1.5]", DecodingError::Kind::dataCorrupted, "[0]", "Parsed JSON number <1.5> does not fit in Int."},
        {"[2e3]", DecodingError::Kind::dataCorrupted, "[0]", "Parsed JSON number <2000> does not fit in Int."},
        {R"(["5"])", DecodingError::Kind::typeMismatch, "[0]", "Expected to decode Int but found a string instead."},
        {"[null]", DecodingError::Kind::valueNotFound, "[0]", "Expected Int value but found null instead."},
    };
    for (const DecodingFailure& failure : failures) expectRefused<std::vector<OutputTime>>(failure);
}

} // namespace
} // namespace ovik
