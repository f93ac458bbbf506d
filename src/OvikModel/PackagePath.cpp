#include "OvikModel/PackagePath.h"

namespace ovik {

std::string PackagePath::printable() const {
    std::string out;
    for (const char c : relative) out += c == '\0' ? std::string("\\0") : std::string(1, c);
    return out;
}

} // namespace ovik
