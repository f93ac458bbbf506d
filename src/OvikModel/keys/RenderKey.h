#pragma once
// The name of a kept render: 32 lower-case hexadecimal digits, the first half of a SHA-256 of
// everything the output depends on. Kept output lives under "renders/" + key. JSON form: the
// bare string; reading refuses anything else, since the text becomes a folder name.
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct RenderOptions;

struct RenderKey {
    std::string rawValue;

    /// The key of some bytes: their SHA-256 cut to 16 bytes, in lower-case hexadecimal.
    static RenderKey digestOf(std::string_view bytes);
    static bool isValidText(std::string_view text);

    /// "thumbnail-" + n + ".png": the file of a kept thumbnail inside its key folder.
    static std::string thumbnailFileName(std::int64_t maxPixel);

    /// The key of the same output with the options' watermark drawn on it.
    RenderKey adding(const RenderOptions& options) const;

    auto operator<=>(const RenderKey&) const = default;
};

template <>
struct JSONCoding<RenderKey> {
    static JSONValue encode(const RenderKey& key) { return JSONValue(key.rawValue); }
    static RenderKey decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
