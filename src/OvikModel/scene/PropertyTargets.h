#pragma once
// The media and sections that property paths name, found by id in a draft. A missing one is a
// `PropertyError` of kind `notFound` that names the id.
#include <cstddef>

#include "OvikModel/Draft.h"

namespace ovik {

std::size_t mediaIndex(const Draft& draft, MediaID id);
std::size_t sectionIndex(const Draft& draft, SectionID id);

} // namespace ovik
