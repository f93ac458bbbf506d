#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "OvikModel/Draft.h"

namespace ovik {
namespace {

// 2024-03-05 14:07:59.9 UTC.
constexpr double march5 = 731340479.9;

TEST(DraftNames, DateAndTimeInTheGivenZone) {
    struct Case {
        Date date;
        std::int64_t offset;
        OutputKind kind;
        const char* name;
        const char* month;
    };
    const Case cases[] = {
        {Date{march5}, 0, OutputKind::screenshot, "2024-03-05 截图 14.07", "2024-03"},
        {Date{march5}, 9 * 3600 + 1800, OutputKind::recording, "2024-03-05 录屏 23.37", "2024-03"},
        {Date{march5}, 10 * 3600, OutputKind::animation, "2024-03-06 动画 00.07", "2024-03"},
        {Date{0}, -3600, OutputKind::screenshot, "2000-12-31 截图 23.00", "2000-12"},
        {Date{-0.5}, 0, OutputKind::screenshot, "2000-12-31 截图 23.59", "2000-12"},
        {Date::fromSecondsSince1970(951782400), 0, OutputKind::screenshot, "2000-02-29 截图 00.00", "2000-02"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Draft::baseName(c.kind, c.date, TimeZone{c.offset}), c.name) << c.name;
        EXPECT_EQ(Draft::monthFolderName(c.date, TimeZone{c.offset}), c.month) << c.name;
    }
    EXPECT_EQ(Draft::baseName("Take", Date{march5}, TimeZone{}), "2024-03-05 Take 14.07");
}

TEST(DraftNames, UniqueNameCountsUpFromTwo) {
    const std::set<std::string> taken{"a", "a 2", "b 2"};
    const auto isTaken = [&](const std::string& name) { return taken.count(name) > 0; };
    EXPECT_EQ(Draft::uniqueName("a", isTaken), "a 3");
    EXPECT_EQ(Draft::uniqueName("b", isTaken), "b");
}

TEST(DraftNames, StillsLastOneToThirtySeconds) {
    const std::pair<double, std::int64_t> cases[] = {{0.2, 1'000'000}, {90, 30'000'000}, {2.5, 2'500'000},
                                                     {-4, 1'000'000},  {NAN, 5'000'000}, {INFINITY, 5'000'000}};
    for (const auto& [seconds, microseconds] : cases)
        EXPECT_EQ(Draft::clampedStill(seconds), MediaDuration{microseconds}) << seconds;
}

TEST(Draft, ANewAnimationIsOneCanvasStill) {
    Canvas canvas;
    canvas.pixelSize = {1280, 720};
    canvas.scale = -2;
    const DraftID id{UUID::random()};
    const Draft draft = Draft::newAnimation(canvas, MediaDuration{90'000'000}, Date{march5}, id, TimeZone{});
    EXPECT_EQ(draft.id, id);
    EXPECT_EQ(draft.name, "2024-03-05 动画 14.07");
    EXPECT_EQ(draft.outputKind(), OutputKind::animation);
    EXPECT_EQ(draft.source().as<MediaSource::canvas>().value.scale, 1);
    EXPECT_EQ(draft.sections[0].length, Section::Length::makeStill(MediaDuration{30'000'000}));
    EXPECT_FALSE(draft.structureProblem().has_value());
    EXPECT_TRUE(draft.isCaptureAsIs());
    EXPECT_EQ(decodeJSON<Draft>(encodeJSON(draft)), draft);
}

} // namespace
} // namespace ovik
