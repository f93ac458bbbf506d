#include "OvikModel/objects/FontAxes.h"

#include <algorithm>

namespace ovik {

bool FontAxes::isTag(std::string_view tag) {
    return tag.size() == 4 && tag[0] != ' ' &&
           std::all_of(tag.begin(), tag.end(), [](char c) { return c >= 0x20 && c <= 0x7E; });
}

} // namespace ovik
