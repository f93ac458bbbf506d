#pragma once
// A colour matrix on straight (unpremultiplied) linear components: each output component is
// the dot product of its vector with (r, g, b, a), plus its bias.
#include <array>

namespace ovik {

using Vector4 = std::array<double, 4>;

struct ColorMatrix {
    Vector4 red{1, 0, 0, 0};
    Vector4 green{0, 1, 0, 0};
    Vector4 blue{0, 0, 1, 0};
    Vector4 alpha{0, 0, 0, 1};
    Vector4 bias{0, 0, 0, 0};

    bool operator==(const ColorMatrix&) const = default;
};

} // namespace ovik
