#pragma once
// A table of values worked out once and asked for often, shared between threads. It holds at
// most `capacity` entries; when it is full it is emptied whole rather than kept in order of
// use, which costs nothing on the common path of a hit.
#include <cstddef>
#include <map>
#include <mutex>
#include <optional>

namespace ovik {

template <class Key, class Value>
class MemoTable {
public:
    explicit MemoTable(std::size_t capacity) : capacity_(capacity) {}

    std::optional<Value> value(const Key& key) const {
        const std::lock_guard guard(lock_);
        const auto found = entries_.find(key);
        if (found == entries_.end()) return std::nullopt;
        return found->second;
    }

    /// The value of `key`, made by `make` outside the lock on a miss.
    template <class Make>
    Value value(const Key& key, Make&& make) {
        if (auto found = value(key)) return *found;
        Value made = make();
        const std::lock_guard guard(lock_);
        if (entries_.size() >= capacity_) entries_.clear();
        entries_.insert_or_assign(key, made);
        return made;
    }

    std::size_t count() const {
        const std::lock_guard guard(lock_);
        return entries_.size();
    }

private:
    std::size_t capacity_;
    mutable std::mutex lock_;
    std::map<Key, Value> entries_;
};

} // namespace ovik
