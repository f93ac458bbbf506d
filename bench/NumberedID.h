#pragma once
// Identifiers numbered from a counter, for building large drafts that read the same every run.
#include <cstdint>

#include "OvikPlatform/UUID.h"

namespace ovik::bench {

/// An identifier of kind `ID` whose bytes are `n` after the tag byte `tag`.
template <class ID>
ID numberedID(std::uint64_t n, std::uint8_t tag) {
    UUID::Bytes bytes{};
    for (int i = 0; i < 8; ++i) bytes[15 - i] = std::uint8_t(n >> (8 * i));
    bytes[0] = tag;
    return ID{UUID(bytes)};
}

} // namespace ovik::bench
