#pragma once
// Straight alpha to premultiplied alpha, the form every bitmap here is kept in.
#include <cstdint>
#include <span>

namespace ovik {

/// Multiplies the colour of each RGBA pixel by its alpha, rounding to nearest.
void premultiply(std::span<std::uint8_t> rgba);

} // namespace ovik
