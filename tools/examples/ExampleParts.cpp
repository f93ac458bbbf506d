#include "ExampleParts.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "OvikDrafts/DraftPackage.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikModel/style/OvikBackgrounds.h"

namespace ovik::examples {

Background shippedGradient(std::string_view nameKey) {
    const auto presets = OvikBackgrounds::gradients();
    const auto found = std::find_if(presets.begin(), presets.end(),
                                    [&](const GradientPreset& preset) { return preset.nameKey == nameKey; });
    if (found == presets.end()) throw std::invalid_argument("no shipped gradient " + std::string(nameKey));
    return Background::makeGradient(found->spec);
}

Style framedStyle(Background background, double padding, double cornerRadius, double shadow) {
    Style style;
    style.background = std::move(background);
    style.padding = padding;
    style.cornerRadius = cornerRadius;
    style.shadow = shadow;
    return style;
}

void writePackage(const std::filesystem::path& package, const Draft& draft) {
    std::filesystem::create_directories(package / DraftPackage::mediaFolder);
    FileDraftStore::writeDraft(draft, package);
}

} // namespace ovik::examples
