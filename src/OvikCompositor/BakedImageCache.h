#pragma once
// Pictures rendered once into bitmaps and kept within a budget of bytes, the least recently
// used leaving first. The lock is never held while a picture is made, so two threads may make
// the same one; the later replaces the earlier. The newest entry stays even when it alone is
// over the budget.
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>

#include "OvikPlatform/image/Image.h"

namespace ovik {

template <class Key>
class BakedImageCache {
public:
    /// What a bake gives: the picture and the bytes its pixels take.
    struct Baked {
        Image image;
        std::int64_t bytes = 0;
    };

    explicit BakedImageCache(std::int64_t budgetBytes) : budgetBytes_(budgetBytes) {}

    /// The picture of `key`, baked by `make` on a miss; none when `make` gives none.
    std::optional<Image> value(const Key& key, const std::function<std::optional<Baked>()>& make) {
        {
            const std::lock_guard guard(lock_);
            ++clock_;
            if (const auto found = entries_.find(key); found != entries_.end()) {
                found->second.lastUse = clock_;
                return found->second.image;
            }
        }
        std::optional<Baked> baked = make();
        if (!baked) return std::nullopt;
        const std::lock_guard guard(lock_);
        ++clock_;
        ++bakes_;
        if (const auto replaced = entries_.find(key); replaced != entries_.end()) bytes_ -= replaced->second.bytes;
        entries_.insert_or_assign(key, Entry{baked->image, baked->bytes, clock_});
        bytes_ += baked->bytes;
        evict();
        return baked->image;
    }

    std::int64_t bytes() const {
        const std::lock_guard guard(lock_);
        return bytes_;
    }
    std::int64_t bakes() const {
        const std::lock_guard guard(lock_);
        return bakes_;
    }
    std::size_t count() const {
        const std::lock_guard guard(lock_);
        return entries_.size();
    }

private:
    struct Entry {
        Image image;
        std::int64_t bytes = 0;
        std::int64_t lastUse = 0;
    };

    void evict() {
        while (bytes_ > budgetBytes_ && entries_.size() >= 2) {
            auto oldest = entries_.begin();
            for (auto it = entries_.begin(); it != entries_.end(); ++it)
                if (it->second.lastUse < oldest->second.lastUse) oldest = it;
            bytes_ -= oldest->second.bytes;
            entries_.erase(oldest);
        }
    }

    std::int64_t budgetBytes_;
    mutable std::mutex lock_;
    std::map<Key, Entry> entries_;
    std::int64_t clock_ = 0;
    std::int64_t bytes_ = 0;
    std::int64_t bakes_ = 0;
};

} // namespace ovik
