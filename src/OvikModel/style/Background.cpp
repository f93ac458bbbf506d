#include "OvikModel/style/Background.h"

namespace ovik {

std::optional<PackagePath> Background::picture() const {
    if (const auto* shown = std::get_if<image>(&cases)) return shown->value;
    if (const auto* chosen = std::get_if<catalog>(&cases)) return chosen->image;
    return std::nullopt;
}

} // namespace ovik
