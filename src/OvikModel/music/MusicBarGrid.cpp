#include "OvikModel/music/MusicBarGrid.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>

namespace ovik {
namespace {

constexpr double shortfall = 1e-6;

// A whole number of bars, saturating at the range of `int`.
int wholeBars(double bars) {
    if (std::isnan(bars)) return 0;
    return int(std::clamp(std::floor(bars), double(INT_MIN), double(INT_MAX)));
}

MusicMeter meterOf(const ScoreMeter& placed) { return MusicMeter{placed.numerator, placed.denominator}; }

// The last entry whose key is at or before `value`, or the first when all lie after it.
template <class Key>
const ScoreMeter& lastAtOrBefore(const std::vector<ScoreMeter>& meters, double value, Key key) {
    const auto after = std::upper_bound(meters.begin(), meters.end(), value,
                                        [&](double v, const ScoreMeter& m) { return v < key(m); });
    return after == meters.begin() ? meters.front() : *std::prev(after);
}

} // namespace

MusicBarGrid::MusicBarGrid(const std::optional<MusicMeterMap>& map) {
    if (!map || map->changes().empty()) return;
    std::vector<ScoreMeter> placed;
    if (map->changes().front().bar > 0) placed.push_back(ScoreMeter{});
    for (const MusicMeterMap::Change& change : map->changes()) {
        const double beat =
            placed.empty() ? 0
                           : placed.back().beat + meterOf(placed.back()).barLength() * (change.bar - placed.back().bar);
        placed.push_back(ScoreMeter{change.bar, beat, change.meter.numerator, change.meter.denominator});
    }
    meters_ = std::move(placed);
}

const ScoreMeter& MusicBarGrid::placedAtBeat(double beat) const {
    return lastAtOrBefore(*meters_, beat, [](const ScoreMeter& m) { return m.beat; });
}

const ScoreMeter& MusicBarGrid::placedForBar(int bar) const {
    return lastAtOrBefore(*meters_, bar, [](const ScoreMeter& m) { return double(m.bar); });
}

int MusicBarGrid::bar(double beat) const {
    if (!meters_) return wholeBars(beat / 4);
    const ScoreMeter& placed = placedAtBeat(beat);
    return wholeBars(placed.bar + std::floor((beat - placed.beat) / meterOf(placed).barLength()));
}

MusicMeter MusicBarGrid::meter(int bar) const { return meters_ ? meterOf(placedForBar(bar)) : MusicMeter{}; }

double MusicBarGrid::start(int bar) const {
    if (!meters_) return 4.0 * bar;
    const ScoreMeter& placed = placedForBar(bar);
    return placed.beat + meterOf(placed).barLength() * (double(bar) - placed.bar);
}

double MusicBarGrid::length(int bar) const { return meter(bar).barLength(); }

int MusicBarGrid::bars(double beats) const {
    if (!meters_) return std::max(1, wholeBars(std::ceil(beats * 0.25 - shortfall)));
    const double reach = beats - shortfall;
    const int last = bar(reach);
    return std::max(1, start(last) >= reach ? last : last + 1);
}

} // namespace ovik
