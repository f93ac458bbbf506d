#include "OvikModel/draft/SectionSpeed.h"

#include <algorithm>

namespace ovik {

SectionSpeed SectionSpeed::make(std::vector<Key> keys, std::vector<Hold> holds, bool reversed) {
    const auto byAt = [](const auto& a, const auto& b) { return a.at < b.at; };
    std::stable_sort(keys.begin(), keys.end(), byAt);
    std::stable_sort(holds.begin(), holds.end(), byAt);
    return SectionSpeed{std::move(keys), std::move(holds), reversed};
}

bool SectionSpeed::isIdentity() const {
    const auto plain = [](const Key& key) { return key.rate == 1.0; };
    return holds.empty() && !reversed && std::all_of(keys.begin(), keys.end(), plain);
}

std::optional<SectionSpeed> normalized(std::optional<SectionSpeed> speed) {
    if (!speed || speed->isIdentity()) return std::nullopt;
    return SectionSpeed::make(std::move(speed->keys), std::move(speed->holds), speed->reversed);
}

} // namespace ovik
