#pragma once
// Decoded package pictures by file and the long side they were decoded for (a thumbnail's
// pictures come reduced), shared between drafts so that a wallpaper or sticker is not decoded
// again: at most 16, the least recently used leaving first.
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

#include "OvikModel/values/ImageBox.h"

namespace ovik {

class PictureCache {
public:
    static constexpr std::size_t capacity = 16;

    /// A file and the long side its picture was decoded for.
    using Key = std::pair<std::filesystem::path, std::int64_t>;

    std::optional<ImageBox> value(const Key& key);
    void insert(const Key& key, ImageBox image);

private:
    struct Entry {
        ImageBox image;
        std::int64_t lastUse = 0;
    };
    std::mutex lock_;
    std::map<Key, Entry> entries_;
    std::int64_t clock_ = 0;
};

} // namespace ovik
