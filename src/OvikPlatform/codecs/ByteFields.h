#pragma once
// Fields of a file's bytes, read with a bounds check: a header that points
// past the end gives nothing rather than a read beyond the buffer.
#include <cstdint>
#include <optional>
#include <string_view>

namespace ovik {

enum class ByteOrder { bigEndian, littleEndian };

/// The `size` bytes at `offset`, fewer (or none) where the data ends first.
inline std::string_view slice(std::string_view bytes, std::size_t offset, std::size_t size) {
    return offset > bytes.size() ? std::string_view() : bytes.substr(offset, size);
}

/// The `size`-byte (1 to 4) unsigned field at `offset`, or none when it doesn't fit.
inline std::optional<std::uint32_t> readField(std::string_view bytes, std::size_t offset, std::size_t size,
                                              ByteOrder order = ByteOrder::bigEndian) {
    if (offset > bytes.size() || bytes.size() - offset < size) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t at = order == ByteOrder::bigEndian ? offset + i : offset + size - 1 - i;
        value = value << 8 | std::uint8_t(bytes[at]);
    }
    return value;
}

} // namespace ovik
