#pragma once
// Beats and seconds across tempo changes. A beat is a quarter note. Within a gliding tempo the
// bpm changes linearly in beats, and seconds are its exact integral, so the two directions
// are inverses. Lookups are binary searches: beat grids and cues ask many per frame.
#include <vector>

#include "OvikModel/music/MusicBarGrid.h"
#include "OvikModel/music/ScoreTempo.h"

namespace ovik {

class MusicClock {
public:
    /// A tempo in place: from `beat` (at `seconds`) the tempo is `bpm`, changing by `slope`
    /// bpm a beat.
    struct Point {
        double beat = 0;
        double seconds = 0;
        double bpm = 0;
        double slope = 0;

        bool operator==(const Point&) const = default;
    };

    /// One mark of the beat grid, `time` seconds after the offset asked from.
    struct Beat {
        double time = 0;
        bool isBar = false;

        bool operator==(const Beat&) const = default;
    };

    /// `tempo` holds where `tempos` has none above 0 bpm.
    MusicClock(double tempo, const std::vector<ScoreTempo>& tempos, MusicBarGrid grid);

    double tempo() const { return tempo_; }
    const MusicBarGrid& grid() const { return grid_; }
    double secondsPerBeat() const { return secondsPerBeat_; }
    /// Empty when the tempo never changes.
    const std::vector<Point>& points() const { return points_; }

    double secondsAtBeat(double beat) const;
    double beatAtSecond(double seconds) const;
    double bpmAtBeat(double beat) const;
    double secondsAtBar(int bar) const;
    /// The bar whose start lies nearest; a tie stays on the earlier bar.
    int nearestBar(double seconds) const;
    /// The beats from the second `offset` on, as seconds since it, up to `until` seconds after
    /// it; each says whether it begins its bar.
    std::vector<Beat> beats(double offset, double until) const;

private:
    const Point& pointAtBeat(double beat) const;
    const Point& pointAtSecond(double seconds) const;

    double tempo_;
    MusicBarGrid grid_;
    double secondsPerBeat_;
    std::vector<Point> points_;
};

} // namespace ovik
