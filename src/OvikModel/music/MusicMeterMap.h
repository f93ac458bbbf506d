#pragma once
// The meters of a piece: each change sets the meter from its bar (counted from 0) on. The
// changes are kept sorted by bar.
#include <vector>

#include "OvikModel/music/MusicMeter.h"

namespace ovik {

class MusicMeterMap {
public:
    struct Change {
        int bar = 0;
        MusicMeter meter;

        bool operator==(const Change&) const = default;
    };

    MusicMeterMap() = default;
    /// The changes in order of their bars; changes of the same bar keep their given order.
    explicit MusicMeterMap(std::vector<Change> changes);

    const std::vector<Change>& changes() const { return changes_; }

    bool operator==(const MusicMeterMap&) const = default;

private:
    std::vector<Change> changes_;
};

} // namespace ovik
