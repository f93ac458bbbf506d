#pragma once
// Caches of encoded JSON parts, keyed by value. The lock is held only while a table is read
// or changed, never while a value is compared at length or encoded, so two threads may encode
// the same value; the later store wins, and both bytes are equal.
//
// `EncodedPartTable`: parts found by an id and reused only when the stored value equals the
// one asked for; emptied whole when new entries would take it past its capacity.
// `RecentEncodedParts`: a short list of whole values, the oldest dropped past its capacity.
#include <algorithm>
#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace ovik {

template <class Key, class Value>
class EncodedPartTable {
public:
    explicit EncodedPartTable(std::size_t capacity) : capacity_(capacity) {}

    /// The bytes of each value in order. `keyOf(value)` gives its id, `encode(value)` its bytes.
    template <class Values, class KeyOf, class Encode>
    std::vector<std::string> parts(const Values& values, KeyOf keyOf, Encode encode) {
        const std::vector<std::shared_ptr<const Entry>> known = lookUp(values, keyOf);
        std::vector<std::string> out;
        std::vector<std::pair<Key, std::shared_ptr<const Entry>>> fresh;
        std::size_t index = 0;
        for (const auto& value : values) {
            const std::shared_ptr<const Entry>& entry = known[index++];
            if (entry && entry->value == value) {
                out.push_back(entry->bytes);
                continue;
            }
            out.push_back(encode(value));
            fresh.emplace_back(keyOf(value), std::make_shared<const Entry>(Entry{value, out.back()}));
        }
        if (!fresh.empty()) store(std::move(fresh));
        return out;
    }

    std::size_t count() const {
        std::lock_guard guard(lock_);
        return table_.size();
    }

private:
    struct Entry {
        Value value;
        std::string bytes;
    };

    template <class Values, class KeyOf>
    std::vector<std::shared_ptr<const Entry>> lookUp(const Values& values, KeyOf keyOf) const {
        std::vector<std::shared_ptr<const Entry>> known;
        std::lock_guard guard(lock_);
        for (const auto& value : values) {
            const auto found = table_.find(keyOf(value));
            known.push_back(found == table_.end() ? nullptr : found->second);
        }
        return known;
    }

    void store(std::vector<std::pair<Key, std::shared_ptr<const Entry>>> fresh) {
        std::lock_guard guard(lock_);
        if (table_.size() + fresh.size() > capacity_) table_.clear();
        for (auto& [key, entry] : fresh) table_.insert_or_assign(std::move(key), std::move(entry));
    }

    const std::size_t capacity_;
    mutable std::mutex lock_;
    std::map<Key, std::shared_ptr<const Entry>> table_;
};

template <class Value>
class RecentEncodedParts {
public:
    explicit RecentEncodedParts(std::size_t capacity) : capacity_(capacity) {}

    template <class Encode>
    std::string bytes(const Value& value, Encode encode) {
        {
            std::lock_guard guard(lock_);
            const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const auto& e) { return e.first == value; });
            if (found != entries_.end()) return found->second;
        }
        std::string encoded = encode(value);
        std::lock_guard guard(lock_);
        entries_.emplace_back(value, encoded);
        if (entries_.size() > capacity_) entries_.pop_front();
        return encoded;
    }

    std::size_t count() const {
        std::lock_guard guard(lock_);
        return entries_.size();
    }

private:
    const std::size_t capacity_;
    mutable std::mutex lock_;
    std::deque<std::pair<Value, std::string>> entries_;
};

} // namespace ovik
