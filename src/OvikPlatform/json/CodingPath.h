#pragma once
// The place of a value inside a document while it is decoded: a chain of links that lives on
// the stack of the decoders, so that following it costs nothing until an error needs its text.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ovik {

/// One step of a coding path: an object key, or an array index when `key` is empty and
/// `index` is set.
struct CodingKey {
    std::string key;
    std::int64_t index = -1;

    bool isIndex() const { return index >= 0; }
    bool operator==(const CodingKey&) const = default;
};

class CodingPath {
public:
    CodingPath() = default;
    CodingPath(const CodingPath* parent, std::string_view key) : parent_(parent), key_(key) {}
    CodingPath(const CodingPath* parent, std::int64_t index) : parent_(parent), index_(index) {}

    CodingPath appending(std::string_view key) const { return CodingPath(this, key); }
    CodingPath appending(std::int64_t index) const { return CodingPath(this, index); }

    std::vector<CodingKey> keys() const;
    /// Dotted text: "sections[2].media.id"; empty at the top.
    std::string text() const;

private:
    const CodingPath* parent_ = nullptr;
    std::string_view key_;
    std::int64_t index_ = -1;
    bool isRoot() const { return parent_ == nullptr && key_.empty() && index_ < 0; }
};

std::string codingPathText(const std::vector<CodingKey>& keys);

} // namespace ovik
