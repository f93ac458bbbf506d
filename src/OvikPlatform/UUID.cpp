#include "OvikPlatform/UUID.h"

#include <random>

namespace ovik {
namespace {

constexpr char hexDigits[] = "0123456789ABCDEF";
// Where the hyphens of the canonical text stand.
constexpr bool isHyphenPosition(std::size_t i) { return i == 8 || i == 13 || i == 18 || i == 23; }
constexpr std::size_t canonicalLength = 36;

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

} // namespace

UUID UUID::random() {
    std::random_device source;
    Bytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
        const std::uint32_t word = source();
        for (std::size_t k = 0; k < 4; ++k) bytes[i + k] = std::uint8_t(word >> (8 * k));
    }
    bytes[6] = std::uint8_t((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = std::uint8_t((bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return UUID(bytes);
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != canonicalLength) return std::nullopt;
    Bytes bytes{};
    std::size_t nibble = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHyphenPosition(i)) {
            if (text[i] != '-') return std::nullopt;
            continue;
        }
        const int value = hexValue(text[i]);
        if (value < 0) return std::nullopt;
        bytes[nibble / 2] = std::uint8_t(bytes[nibble / 2] | (nibble % 2 == 0 ? value << 4 : value));
        ++nibble;
    }
    return UUID(bytes);
}

std::string UUID::uuidString() const {
    std::string text;
    text.reserve(canonicalLength);
    for (std::uint8_t byte : bytes_) {
        if (isHyphenPosition(text.size())) text.push_back('-');
        text.push_back(hexDigits[byte >> 4]);
        text.push_back(hexDigits[byte & 0x0F]);
    }
    return text;
}

UUID JSONCoding<UUID>::decode(JSONNode node, const CodingPath& path) {
    json_detail::expect(node, JSONNode::Kind::string, path, "String");
    if (const std::optional<UUID> uuid = UUID::parse(node.string())) return *uuid;
    throw DecodingError::dataCorrupted(path, "Attempted to decode UUID from invalid UUID string.");
}

} // namespace ovik

std::size_t std::hash<ovik::UUID>::operator()(const ovik::UUID& uuid) const noexcept {
    // FNV-1a over the bytes: the same on every machine.
    std::uint64_t h = 0xcbf29ce484222325ull;
    for (std::uint8_t byte : uuid.bytes()) h = (h ^ byte) * 0x100000001b3ull;
    return std::size_t(h);
}
