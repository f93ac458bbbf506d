#include "OvikModel/time/MusicClock.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ovik {
namespace {

constexpr double edge = 1e-9;

// Seconds from `point` to `beat` under its tempo and slope.
double span(const MusicClock::Point& point, double beat) {
    const double d = beat - point.beat;
    if (point.slope == 0) return d * 60 / point.bpm;
    return (60 / point.slope) * std::log((point.bpm + d * point.slope) / point.bpm);
}

std::vector<MusicClock::Point> placed(std::vector<ScoreTempo> tempos) {
    std::erase_if(tempos, [](const ScoreTempo& tempo) { return !(tempo.bpm > 0); });
    std::stable_sort(tempos.begin(), tempos.end(),
                     [](const ScoreTempo& a, const ScoreTempo& b) { return a.beat < b.beat; });
    std::vector<MusicClock::Point> points;
    points.reserve(tempos.size());
    for (std::size_t i = 0; i < tempos.size(); ++i) {
        const ScoreTempo& tempo = tempos[i];
        const ScoreTempo& next = i + 1 < tempos.size() ? tempos[i + 1] : tempo;
        const double slope =
            tempo.glides && next.beat > tempo.beat ? (next.bpm - tempo.bpm) / (next.beat - tempo.beat) : 0;
        const double seconds = points.empty() ? 0 : points.back().seconds + span(points.back(), tempo.beat);
        points.push_back(MusicClock::Point{tempo.beat, seconds, tempo.bpm, slope});
    }
    return points;
}

// The last point whose `key` is at or before `value`; the first when none is.
template <class Key>
const MusicClock::Point& lastAtOrBefore(const std::vector<MusicClock::Point>& points, double value, Key key) {
    const auto after = std::upper_bound(points.begin(), points.end(), value,
                                        [&](double v, const MusicClock::Point& point) { return v < point.*key; });
    return after == points.begin() ? points.front() : *std::prev(after);
}

} // namespace

MusicClock::MusicClock(double tempo, const std::vector<ScoreTempo>& tempos, MusicBarGrid grid)
    : tempo_(tempo), grid_(std::move(grid)), secondsPerBeat_(60 / tempo), points_(placed(tempos)) {}

const MusicClock::Point& MusicClock::pointAtBeat(double beat) const {
    return lastAtOrBefore(points_, beat, &Point::beat);
}

const MusicClock::Point& MusicClock::pointAtSecond(double seconds) const {
    return lastAtOrBefore(points_, seconds, &Point::seconds);
}

double MusicClock::secondsAtBeat(double beat) const {
    if (points_.empty()) return beat * secondsPerBeat_;
    const Point& point = pointAtBeat(beat);
    return point.seconds + span(point, beat);
}

double MusicClock::beatAtSecond(double seconds) const {
    if (points_.empty()) return seconds / secondsPerBeat_;
    const Point& point = pointAtSecond(seconds);
    const double e = seconds - point.seconds;
    if (point.slope == 0) return point.beat + e * point.bpm / 60;
    return point.beat + point.bpm * (std::exp(e * point.slope / 60) - 1) / point.slope;
}

double MusicClock::bpmAtBeat(double beat) const {
    if (points_.empty()) return tempo_;
    const Point& point = pointAtBeat(beat);
    return point.bpm + (beat - point.beat) * point.slope;
}

double MusicClock::secondsAtBar(int bar) const { return secondsAtBeat(grid_.start(bar)); }

int MusicClock::nearestBar(double seconds) const {
    const int bar = grid_.bar(beatAtSecond(seconds));
    return secondsAtBar(bar + 1) - seconds < seconds - secondsAtBar(bar) ? bar + 1 : bar;
}

std::vector<MusicClock::Beat> MusicClock::beats(double offset, double until) const {
    std::vector<Beat> out;
    const double limit = until + edge;
    for (int bar = grid_.bar(beatAtSecond(offset));; ++bar) {
        const MusicMeter meter = grid_.meter(bar);
        const double barStart = grid_.start(bar);
        for (int j = 0; j < meter.numerator; ++j) {
            const double time = secondsAtBeat(barStart + 4.0 / meter.denominator * j) - offset;
            // Written so that a time that isn't a number ends the grid too.
            if (!(time <= limit)) return out;
            if (time >= -edge) out.push_back(Beat{std::max(time, 0.0), j == 0});
        }
    }
}

} // namespace ovik
