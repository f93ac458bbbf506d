#include "OvikModel/style/StylePreset.h"

#include "OvikL10n/L10n.h"

namespace ovik::BuiltInPresets {

std::vector<StylePreset> all() {
    return {StylePreset{"original", L10n::text("model.style.original"), Style::original(), true}};
}

std::optional<StylePreset> builtIn(std::string_view id) {
    for (StylePreset& preset : all())
        if (preset.id == id) return std::move(preset);
    return std::nullopt;
}

} // namespace ovik::BuiltInPresets
