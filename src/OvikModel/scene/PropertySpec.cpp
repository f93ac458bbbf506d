#include "OvikModel/scene/PropertySpec.h"

#include <algorithm>

#include "OvikL10n/L10n.h"

namespace ovik {

bool PropertySpec::standsOn(PropertyTargetKind kind) const {
    return std::find(targets.begin(), targets.end(), kind) != targets.end();
}

bool PropertySpec::writesOn(PropertyTargetKind kind) const {
    switch (kind) {
    case PropertyTargetKind::object: return objectAccess != nullptr;
    case PropertyTargetKind::media: return mediaAccess != nullptr;
    case PropertyTargetKind::draft: return sectionAccess != nullptr;
    default: return writes();
    }
}

std::string PropertySpec::title() const { return L10n::text(titleKey); }
std::string PropertySpec::help() const { return L10n::text(helpKey); }

} // namespace ovik
