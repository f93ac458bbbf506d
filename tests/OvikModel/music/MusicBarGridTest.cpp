#include <gtest/gtest.h>

#include "OvikModel/music/MusicBarGrid.h"

namespace ovik {
namespace {

MusicMeterMap changes(std::vector<MusicMeterMap::Change> list) { return MusicMeterMap(std::move(list)); }

TEST(MusicBarGrid, WithoutAMapEveryBarIsFourFour) {
    const MusicBarGrid grid;
    EXPECT_FALSE(grid.meters());
    const std::pair<double, int> bars[] = {{0, 0}, {7.999, 1}, {8, 2}, {-0.5, -1}};
    for (const auto& [beat, bar] : bars) EXPECT_EQ(grid.bar(beat), bar) << beat;
    EXPECT_EQ(grid.start(3), 12);
    EXPECT_EQ(grid.length(7), 4);
    EXPECT_EQ(grid.meter(2), (MusicMeter{4, 4}));
    const std::pair<double, int> covering[] = {{8.0000001, 2}, {8.00001, 3}, {8, 2}, {0, 1}, {-4, 1}};
    for (const auto& [beats, count] : covering) EXPECT_EQ(grid.bars(beats), count) << beats;
    EXPECT_FALSE(MusicBarGrid(MusicMeterMap()).meters()) << "an empty map is no map";
}

TEST(MusicBarGrid, MetersRunOnFromBarToBar) {
    // 4/4 for bars 0-1, 3/4 for bars 2-3, 6/8 from bar 4; given out of order.
    const MusicBarGrid grid(changes({{4, {6, 8}}, {0, {4, 4}}, {2, {3, 4}}}));
    EXPECT_EQ(grid.meters(), (std::vector<ScoreMeter>{{0, 0, 4, 4}, {2, 8, 3, 4}, {4, 14, 6, 8}}));
    const std::pair<double, int> bars[] = {{7.9, 1}, {8, 2}, {10.9, 2}, {11, 3}, {14, 4}, {16.9, 4}, {17, 5}, {-1, -1}};
    for (const auto& [beat, bar] : bars) EXPECT_EQ(grid.bar(beat), bar) << beat;
    EXPECT_EQ(grid.start(3), 11);
    EXPECT_EQ(grid.start(6), 20);
    EXPECT_EQ(grid.length(3), 3);
    EXPECT_EQ(grid.length(9), 3);
    EXPECT_EQ(grid.meter(3), (MusicMeter{3, 4}));
    EXPECT_EQ(grid.meter(-2), (MusicMeter{4, 4}));
    const std::pair<double, int> covering[] = {{14, 4}, {14.0000001, 4}, {14.5, 5}, {0, 1}};
    for (const auto& [beats, count] : covering) EXPECT_EQ(grid.bars(beats), count) << beats;
}

TEST(MusicBarGrid, BarsBeforeTheFirstChangeAreFourFour) {
    const MusicBarGrid grid(changes({{2, {3, 4}}}));
    EXPECT_EQ(grid.meters(), (std::vector<ScoreMeter>{{0, 0, 4, 4}, {2, 8, 3, 4}}));
    EXPECT_EQ(grid.bar(5), 1);
    EXPECT_EQ(grid.start(3), 11);
}

} // namespace
} // namespace ovik
