#include "OvikCompositor/PictureCache.h"

#include <algorithm>

namespace ovik {

std::optional<ImageBox> PictureCache::value(const Key& key) {
    const std::lock_guard guard(lock_);
    const auto found = entries_.find(key);
    if (found == entries_.end()) return std::nullopt;
    found->second.lastUse = ++clock_;
    return found->second.image;
}

void PictureCache::insert(const Key& key, ImageBox image) {
    const std::lock_guard guard(lock_);
    entries_.insert_or_assign(key, Entry{std::move(image), ++clock_});
    if (entries_.size() <= capacity) return;
    const auto oldest = std::min_element(entries_.begin(), entries_.end(), [](const auto& a, const auto& b) {
        return a.second.lastUse < b.second.lastUse;
    });
    entries_.erase(oldest);
}

} // namespace ovik
