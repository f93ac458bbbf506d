#include <gtest/gtest.h>

#include <tuple>

#include "DecodingFailure.h"
#include "OvikModel/values/TimeRange.h"
#include "OvikModel/values/Timebase.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::expectRefused;

SourceRange source(std::int64_t start, std::int64_t end) {
    return SourceRange{SourceTime{start}, SourceTime{end}};
}

TEST(TimeRange, HalfOpenMembershipEmptinessAndDuration) {
    EXPECT_TRUE(source(-3, -1).contains(SourceTime{-3}));
    EXPECT_FALSE(source(-3, -1).contains(SourceTime{-1}));
    EXPECT_FALSE(source(-3, -1).isEmpty());
    // Empty and reversed ranges hold nothing, and no one refuses them.
    for (const SourceRange& range : {source(5, 5), source(7, 5)}) {
        EXPECT_TRUE(range.isEmpty()) << range.description();
        for (std::int64_t t : {5, 6, 7}) EXPECT_FALSE(range.contains(SourceTime{t})) << range.description() << " " << t;
    }
    EXPECT_EQ(source(7, 5).duration(), MediaDuration{-2});
    const OutputRange range = OutputRange::startingAt(OutputTime{-2}, MediaDuration{7});
    EXPECT_EQ(range.end, OutputTime{5});
    EXPECT_EQ(range.description(), "[-2, 5)");
}

TEST(TimeRange, IntersectionIsNoneUnlessSomethingIsShared) {
    const std::tuple<SourceRange, SourceRange, std::optional<SourceRange>> cases[] = {
        {source(0, 5), source(5, 9), std::nullopt}, // touching
        {source(0, 5), source(3, 9), source(3, 5)}, {source(0, 9), source(2, 3), source(2, 3)},
        {source(0, 9), source(4, 4), std::nullopt},
        {source(9, 0), source(2, 3), std::nullopt}, // reversed
    };
    for (const auto& [a, b, common] : cases) {
        EXPECT_EQ(a.intersection(b), common) << a.description() << " " << b.description();
        EXPECT_EQ(b.intersection(a), common) << b.description() << " " << a.description();
    }
}

TEST(TimeRange, JSONHasBothKeysRequired) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(source(0, 1500000))), R"({"end":1500000,"start":0})");
    EXPECT_EQ(decodeJSON<OutputRange>(std::string_view(R"({"start":9,"end":3,"x":1})")),
              (OutputRange{OutputTime{9}, OutputTime{3}}));

    expectRefused<SourceRange>({R"({"start":0})", DecodingError::Kind::keyNotFound, "end"});
}

TEST(Timebase, DurationOfARecording) {
    EXPECT_EQ(Timebase::makeRecording({}).duration(), MediaDuration::zero());
    // The last segment's end, even when an earlier one reaches further.
    EXPECT_EQ(Timebase::makeRecording({source(0, 90), source(10, 40)}).duration(), MediaDuration{40});
}

TEST(Timebase, TaggedJSONRoundTrips) {
    const std::pair<Timebase, const char*> cases[] = {
        {Timebase::makeStill(MediaDuration{5000000}), R"({"still":5000000})"},
        {Timebase::makeRecording({source(0, 10), source(20, 30)}),
         R"({"recording":[{"end":10,"start":0},{"end":30,"start":20}]})"},
    };
    for (const auto& [timebase, json] : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(timebase)), json);
        EXPECT_EQ(decodeJSON<Timebase>(std::string_view(json)), timebase) << json;
    }
}

} // namespace
} // namespace ovik
