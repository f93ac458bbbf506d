#include "OvikModel/music/MusicMeterMap.h"

#include <algorithm>

namespace ovik {

MusicMeterMap::MusicMeterMap(std::vector<Change> changes) : changes_(std::move(changes)) {
    std::stable_sort(changes_.begin(), changes_.end(), [](const Change& a, const Change& b) { return a.bar < b.bar; });
}

} // namespace ovik
