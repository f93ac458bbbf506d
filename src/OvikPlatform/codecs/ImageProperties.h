#pragma once
// What a picture file says about itself without being decoded.
#include <cstdint>

namespace ovik {

struct ImageProperties {
    /// The size as shown, after any orientation the file asks for.
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// The resolution the file declares, 72 when it declares none.
    double dotsPerInch = 72;

    bool operator==(const ImageProperties&) const = default;
};

} // namespace ovik
