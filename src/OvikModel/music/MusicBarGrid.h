#pragma once
// Where bars fall, in quarter notes from the start of a piece, under its meters. Without a
// meter map every bar is 4/4; bars before a map's first change are 4/4 too. Bars are counted
// from 0.
#include <optional>
#include <vector>

#include "OvikModel/music/MusicMeterMap.h"
#include "OvikModel/music/ScoreMeter.h"

namespace ovik {

class MusicBarGrid {
public:
    explicit MusicBarGrid(const std::optional<MusicMeterMap>& map = std::nullopt);

    /// Each meter with the beat its first bar begins on; none for 4/4 throughout.
    const std::optional<std::vector<ScoreMeter>>& meters() const { return meters_; }

    /// The bar that holds `beat`.
    int bar(double beat) const;
    MusicMeter meter(int bar) const;
    /// The beat `bar` begins on.
    double start(int bar) const;
    /// The length of `bar` in quarter notes.
    double length(int bar) const;
    /// The fewest bars, at least one, that reach `beats` (a millionth of a beat short counts).
    int bars(double beats) const;

    bool operator==(const MusicBarGrid&) const = default;

private:
    const ScoreMeter& placedAtBeat(double beat) const;
    const ScoreMeter& placedForBar(int bar) const;

    std::optional<std::vector<ScoreMeter>> meters_;
};

} // namespace ovik
