#include <gtest/gtest.h>

#include "DecodingFailure.h"
#include "OvikModel/values/TimeRange.h"
#include "OvikModel/values/Timebase.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

using testing::DecodingFailure;
using testing::expectRefused;

SourceRange source(std::int64_t start, std::int64_t end) {
    return SourceRange{SourceTime{start}, SourceTime{end}};
}

TEST(TimeRange, HalfOpenMembershipAndEmptiness) {
    struct Case {
        SourceRange range;
        bool empty;
        std::vector<std::int64_t> inside;
        std::vector<std::int64_t> outside;
    };
    const Case cases[] = {
        {source(0, 5), false, {0, 4}, {-1, 5}},
        {source(5, 5), true, {}, {4, 5, 6}},
        {source(7, 5), true, {}, {5, 6, 7}}, // reversed: empty, and no one refuses it
        {source(-3, -1), false, {-3, -2}, {-1}},
    };
    for (const Case& c : cases) {
        const std::string name = c.range.description();
        EXPECT_EQ(c.range.isEmpty(), c.empty) << name;
        for (std::int64_t t : c.inside) EXPECT_TRUE(c.range.contains(SourceTime{t})) << name << " " << t;
        for (std::int64_t t : c.outside) EXPECT_FALSE(c.range.contains(SourceTime{t})) << name << " " << t;
    }
}

TEST(TimeRange, IntersectionIsNoneUnlessSomethingIsShared) {
    struct Case {
        SourceRange a, b;
        std::optional<SourceRange> common;
    };
    const Case cases[] = {
        {source(0, 5), source(5, 9), std::nullopt}, // touching
        {source(5, 9), source(0, 5), std::nullopt},
        {source(0, 5), source(3, 9), source(3, 5)},
        {source(0, 9), source(2, 3), source(2, 3)},
        {source(0, 9), source(4, 4), std::nullopt},
        {source(9, 0), source(2, 3), std::nullopt}, // reversed
        {source(0, 5), source(6, 9), std::nullopt},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.a.intersection(c.b), c.common) << c.a.description() << " " << c.b.description();
        EXPECT_EQ(c.b.intersection(c.a), c.common) << c.b.description() << " " << c.a.description();
    }
}

TEST(TimeRange, DurationStartAndDescription) {
    const OutputRange range = OutputRange::startingAt(OutputTime{-2}, MediaDuration{7});
    EXPECT_EQ(range.end, OutputTime{5});
    EXPECT_EQ(range.duration(), MediaDuration{7});
    EXPECT_EQ(source(7, 5).duration(), MediaDuration{-2});
    EXPECT_EQ(range.description(), "[-2, 5)");
}

TEST(TimeRange, JSONHasBothKeysRequired) {
    const std::string text = JSONWriter::write(encodeJSON(source(0, 1500000)));
    EXPECT_EQ(text, R"({"end":1500000,"start":0})");
    EXPECT_EQ(decodeJSON<SourceRange>(std::string_view(text)), source(0, 1500000));
    EXPECT_EQ(decodeJSON<OutputRange>(std::string_view(R"({"start":9,"end":3,"x":1})")),
              (OutputRange{OutputTime{9}, OutputTime{3}}));

    const DecodingFailure failures[] = {
        {R"({"start":0})", DecodingError::Kind::keyNotFound, "end", "No value associated with key \"end\"."},
        {R"({"end":0})", DecodingError::Kind::keyNotFound, "start", "No value associated with key \"start\"."},
        {R"({"start":0.5,"end":1})", DecodingError::Kind::dataCorrupted, "start",
         "Parsed JSON number <0.5> does not fit in Int."},
        {R"({"start":0,"end":null})", DecodingError::Kind::valueNotFound, "end",
         "Expected Int value but found null instead."},
        {"[0,1]", DecodingError::Kind::typeMismatch, "",
         "Expected to decode Dictionary<String, Any> but found an array instead."},
    };
    for (const DecodingFailure& failure : failures) expectRefused<SourceRange>(failure);
}

TEST(Timebase, DurationOfStillAndRecording) {
    EXPECT_EQ(Timebase::makeStill(MediaDuration{5000000}).duration(), MediaDuration{5000000});
    EXPECT_EQ(Timebase::makeRecording({}).duration(), MediaDuration::zero());
    // The last segment's end, even when an earlier one reaches further.
    EXPECT_EQ(Timebase::makeRecording({source(0, 90), source(10, 40)}).duration(), MediaDuration{40});
}

TEST(Timebase, TaggedJSONRoundTrips) {
    struct Case {
        Timebase timebase;
        const char* json;
    };
    const Case cases[] = {
        {Timebase::makeStill(MediaDuration{5000000}), R"({"still":5000000})"},
        {Timebase::makeRecording({}), R"({"recording":{"segments":[]}})"},
        {Timebase::makeRecording({source(0, 10), source(20, 30)}),
         R"({"recording":{"segments":[{"end":10,"start":0},{"end":30,"start":20}]}})"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(c.timebase)), c.json);
        EXPECT_EQ(decodeJSON<Timebase>(std::string_view(c.json)), c.timebase) << c.json;
    }
}

TEST(Timebase, MalformedJSONIsRefused) {
    const DecodingFailure failures[] = {
        {R"("still")", DecodingError::Kind::dataCorrupted, "", "Case still needs a value"},
        {R"({"still":1,"recording":{"segments":[]}})", DecodingError::Kind::dataCorrupted, "",
         "Expected a case name or an object with one key"},
        {R"({"film":1})", DecodingError::Kind::dataCorrupted, "", "Unknown case film"},
        {R"({"still":1.5})", DecodingError::Kind::dataCorrupted, "still", "Parsed JSON number <1.5> does not fit in Int."},
        {R"({"recording":{}})", DecodingError::Kind::keyNotFound, "recording.segments",
         "No value associated with key \"segments\"."},
        {R"({"recording":{"segments":[{"start":0}]}})", DecodingError::Kind::keyNotFound,
         "recording.segments[0].end", "No value associated with key \"end\"."},
    };
    for (const DecodingFailure& failure : failures) expectRefused<Timebase>(failure);
}

} // namespace
} // namespace ovik
