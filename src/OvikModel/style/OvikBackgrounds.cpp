#include "OvikModel/style/OvikBackgrounds.h"

#include <cstdint>

namespace ovik::OvikBackgrounds {
namespace {

GradientPreset preset(std::string_view nameKey, std::uint32_t from, std::uint32_t to, double angleDegrees) {
    return {nameKey, {RGBA::fromHex(from), RGBA::fromHex(to), angleDegrees}};
}

} // namespace

std::span<const GradientPreset> gradients() {
    static const GradientPreset table[] = {
        preset("model.background.flame", 0xFFC27A, 0xD9300A, 140),
        preset("model.background.morningMist", 0xF1D5BE, 0xB3C8E3, 45),
        preset("model.background.lavender", 0xC9B8D8, 0x8EA7C9, 45),
        preset("model.background.apricot", 0xFFD6A5, 0xFF8FA3, 45),
        preset("model.background.mint", 0xA8E6CF, 0x7FB3D5, 45),
        preset("model.background.deepSea", 0x3C2C53, 0x123F4D, 45),
        preset("model.background.inkNight", 0x1A1C26, 0x3A4152, 90),
        preset("model.background.seaSalt", 0xECE6DC, 0xD5DDE6, 90),
        preset("model.background.pomelo", 0xF6D365, 0xFDA085, 45),
        preset("model.background.lime", 0xB7D8A5, 0x9FCBC8, 45),
        preset("model.background.mistyBlue", 0xD3CBEB, 0x8EB6D6, 45),
        preset("model.background.sunset", 0x405775, 0xD9A397, 90),
        preset("model.background.dune", 0xE6CBA8, 0xAD835D, 100),
        preset("model.background.terracotta", 0xE3A382, 0x8E493B, 120),
        preset("model.background.graphite", 0x565B64, 0x252830, 90),
        preset("model.background.cherryBlossom", 0xF6E2E8, 0xCC98AF, 45),
    };
    return table;
}

} // namespace ovik::OvikBackgrounds
