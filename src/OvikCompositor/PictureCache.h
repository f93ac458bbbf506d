#pragma once
// Decoded package pictures by file, shared between drafts so that a wallpaper or sticker is
// not decoded again: at most 16, the least recently used leaving first.
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

#include "OvikModel/values/ImageBox.h"

namespace ovik {

class PictureCache {
public:
    static constexpr std::size_t capacity = 16;

    std::optional<ImageBox> value(const std::filesystem::path& url);
    void insert(const std::filesystem::path& url, ImageBox image);

private:
    struct Entry {
        ImageBox image;
        std::int64_t lastUse = 0;
    };
    std::mutex lock_;
    std::map<std::filesystem::path, Entry> entries_;
    std::int64_t clock_ = 0;
};

} // namespace ovik
