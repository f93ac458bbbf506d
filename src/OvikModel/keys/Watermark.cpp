#include "OvikModel/keys/Watermark.h"

#include "OvikPlatform/crypto/SHA256.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {

std::string Watermark::id() const {
    if (style == OvikWatermarkStyle::trailPill && !custom && !logo) return "made-with-ovik-3";
    SHA256 hasher;
    if (custom) hasher.update(JSONWriter::write(*custom, {.pretty = false, .escapeSlashes = true}));
    if (logo) hasher.update(std::span<const std::uint8_t>(*logo));
    const std::string styleName = style ? std::string(caseName(*style)) : "none";
    return "watermark-4|" + styleName + "|" + hexString(hasher.finalize());
}

} // namespace ovik
