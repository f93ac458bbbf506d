#include <gtest/gtest.h>

#include "OvikModel/time/ClockReading.h"
#include "RoundingDraft.h"

namespace ovik {
namespace {

using namespace ovik::testing;

enum class Clock { output, played, source };

struct Case {
    Clock given;
    std::uint8_t section; // of the source: given, or expected
    std::int64_t at;
    std::optional<std::int64_t> output, played, source;
};

ClockReading read(const Draft& draft, const Case& c) {
    switch (c.given) {
    case Clock::output: return ClockReading::atOutput(draft, OutputTime{c.at});
    case Clock::played: return ClockReading::atPlayed(draft, OutputTime{c.at});
    case Clock::source: break;
    }
    return ClockReading::atSource(draft, AnchoredTime{sectionID(c.section), SourceTime{c.at}});
}

// Each clock is read straight from the one given: going by way of the third would round twice
// (source 1 of section 1 would be played 2, played 1 would show source 2).
TEST(ClockReading, EachClockIsRoundedOnce) {
    const Case cases[] = {
        // Section 1: source 1 is 1 / 2 = 0.5 µs of film, rounded away from zero.
        {Clock::source, 1, 1, 1, 1, 1}, {Clock::source, 1, 3, 2, 3, 3}, {Clock::played, 1, 1, 1, 1, 1},
        {Clock::played, 1, 3, 2, 3, 3}, {Clock::output, 1, 1, 1, 2, 2},
        // Section 2: source 1 is 1.5 played µs at 2/3; source 201 is played 301.5 and the
        // frame the hold shows.
        {Clock::source, 2, 1, 524'289, 1'048'578, 1}, {Clock::source, 2, 201, 524'589, 1'048'878, 201},
        {Clock::played, 2, 1'048'877, 524'589, 1'048'877, 201}, // the hold's first moment
        {Clock::played, 2, 1'048'878, 574'590, 1'048'878, 201},
        {Clock::played, 2, 1'048'576, 524'288, 1'048'576, 0}, // a join belongs to the later section
        {Clock::output, 2, 544'288, 544'288, 1'048'877, 201}, // inside the hold
        {Clock::output, 2, 574'590, 574'590, 1'048'878, 202},
        // The end of a section's last stretch is its own; past it the moment was cut.
        {Clock::source, 2, 1001, 575'790, 1'050'078, 1001}, {Clock::source, 2, 5000, std::nullopt, std::nullopt, 5000},
        // Section 3: at 3 the film rounds 2 / 3 µs to 1.
        {Clock::source, 3, 2, 575'791, 1'050'080, 2}, {Clock::played, 3, 1'050'080, 575'791, 1'050'080, 2},
    };
    const Draft draft = roundingDraft();
    for (const Case& c : cases) {
        const ClockReading reading = read(draft, c);
        const std::string what = std::to_string(int(c.given)) + " at " + std::to_string(c.at);
        EXPECT_EQ(reading.output, c.output ? std::optional(OutputTime{*c.output}) : std::nullopt) << what;
        EXPECT_EQ(reading.played, c.played ? std::optional(OutputTime{*c.played}) : std::nullopt) << what;
        EXPECT_EQ(reading.source, (AnchoredTime{sectionID(c.section), SourceTime{*c.source}})) << what;
    }
}

TEST(ClockReading, WithoutSpeedCurvesPlayedIsTheFilm) {
    const Draft draft = draftOf({keptSection(1, {playing(0, 1000, 2.0 / 3.0)})});
    EXPECT_EQ(ClockReading::atOutput(draft, OutputTime{3}).played, OutputTime{3});
    EXPECT_EQ(ClockReading::atPlayed(draft, OutputTime{3}),
              (ClockReading{OutputTime{3}, OutputTime{3}, AnchoredTime{sectionID(1), SourceTime{2}}}));
    EXPECT_EQ(ClockReading::atSource(draft, {sectionID(1), SourceTime{1}}).played, OutputTime{2});
    // A draft whose map can't be built reads nothing.
    EXPECT_EQ(ClockReading::atOutput(draftOf({keptSection(1, {playing(5, 5)})}), OutputTime{0}), ClockReading{});
}

} // namespace
} // namespace ovik
