#pragma once
// One working pixel: premultiplied RGBA in extended linear sRGB (components may leave 0...1,
// as light added to light does). Every node of the image graph computes in these.
namespace ovik {

struct Pixel {
    float r = 0;
    float g = 0;
    float b = 0;
    float a = 0;

    friend constexpr Pixel operator+(const Pixel& p, const Pixel& q) {
        return {p.r + q.r, p.g + q.g, p.b + q.b, p.a + q.a};
    }
    friend constexpr Pixel operator-(const Pixel& p, const Pixel& q) {
        return {p.r - q.r, p.g - q.g, p.b - q.b, p.a - q.a};
    }
    friend constexpr Pixel operator*(const Pixel& p, float s) { return {p.r * s, p.g * s, p.b * s, p.a * s}; }

    /// The straight colour; a pixel without alpha has no colour.
    constexpr Pixel unpremultiplied() const {
        if (!(a > 0)) return {0, 0, 0, a};
        return {r / a, g / a, b / a, a};
    }
    constexpr Pixel premultiplied() const { return {r * a, g * a, b * a, a}; }

    bool operator==(const Pixel&) const = default;
};

} // namespace ovik
