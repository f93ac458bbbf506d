#include "OvikModel/scene/PropertyTargets.h"

#include <algorithm>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

template <class List, class ID>
std::size_t indexOf(const List& list, ID id, const char* notFoundKey) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& each) { return each.id == id; });
    if (found == list.end()) throw PropertyError(PropertyError::Kind::notFound, L10n::format(notFoundKey, {id.description()}));
    return std::size_t(found - list.begin());
}

} // namespace

std::size_t mediaIndex(const Draft& draft, MediaID id) { return indexOf(draft.media, id, "model.property.media.notFound"); }

std::size_t sectionIndex(const Draft& draft, SectionID id) {
    return indexOf(draft.sections, id, "model.property.section.notFound");
}

} // namespace ovik
