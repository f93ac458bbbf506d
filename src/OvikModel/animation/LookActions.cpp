#include "OvikModel/animation/LookActions.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik::LookActions {

const std::vector<PropertyKey>& properties() {
    static const std::vector<PropertyKey> keys = [] {
        std::vector<PropertyKey> out;
        std::copy_if(PropertyTable::animatable().begin(), PropertyTable::animatable().end(), std::back_inserter(out),
                     [](PropertyKey key) { return key.slot().domain == PropertyDomain::effect; });
        return out;
    }();
    return keys;
}

std::optional<std::string> refuses(PropertyKey property) {
    const auto& allowed = properties();
    if (std::find(allowed.begin(), allowed.end(), property) != allowed.end()) return std::nullopt;
    return L10n::format("model.look.validation.property", {property.spec().title()});
}

std::optional<std::string> refuses(const ActionMode& mode) {
    using Kind = ActionMode::Kind;
    const Kind kind = mode.kind();
    if (kind == Kind::to || kind == Kind::oscillate || kind == Kind::noise) return std::nullopt;
    return L10n::format("model.look.validation.mode", {ActionMode::title(kind)});
}

} // namespace ovik::LookActions
