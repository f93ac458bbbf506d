#include "OvikModel/keys/RenderKey.h"

#include <algorithm>

#include "OvikModel/keys/RenderOptions.h"
#include "OvikPlatform/crypto/SHA256.h"

namespace ovik {
namespace {
constexpr std::size_t keyBytes = 16;
}

RenderKey RenderKey::digestOf(std::string_view bytes) {
    const SHA256::Digest digest = SHA256::hash(bytes);
    return RenderKey{hexString(std::span(digest).first(keyBytes))};
}

bool RenderKey::isValidText(std::string_view text) {
    return text.size() == keyBytes * 2 &&
           std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

std::string RenderKey::thumbnailFileName(std::int64_t maxPixel) {
    return "thumbnail-" + std::to_string(maxPixel) + ".png";
}

RenderKey RenderKey::adding(const RenderOptions& options) const {
    if (!options.watermark) return *this;
    return digestOf(rawValue + "|watermark:" + options.watermark->id());
}

RenderKey JSONCoding<RenderKey>::decode(JSONNode node, const CodingPath& path) {
    std::string text = JSONCoding<std::string>::decode(node, path);
    if (!RenderKey::isValidText(text))
        throw DecodingError::dataCorrupted(path, "Cannot initialize RenderKey from invalid String value " + text);
    return RenderKey{std::move(text)};
}

} // namespace ovik
