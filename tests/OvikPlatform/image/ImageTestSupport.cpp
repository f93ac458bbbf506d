#include "ImageTestSupport.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageKernel.h"

namespace ovik::test {

std::shared_ptr<const CGImage> bitmap(std::int64_t width, std::int64_t height, std::vector<std::uint8_t> rgba) {
    return std::make_shared<const CGImage>(width, height, 4 * width, std::move(rgba));
}

std::shared_ptr<const CGImage> pattern(std::int64_t width, std::int64_t height) {
    std::vector<std::uint8_t> rgba;
    for (std::int64_t y = 0; y < height; ++y)
        for (std::int64_t x = 0; x < width; ++x) {
            const auto v = std::uint8_t((x * 37 + y * 101 + (x * y) % 23 * 5) % 256);
            rgba.insert(rgba.end(), {v, std::uint8_t(255 - v), std::uint8_t((v * 3) % 256), 255});
        }
    return bitmap(width, height, std::move(rgba));
}

Image constant(Pixel working) {
    static const ImageKernel kernel = ImageKernel::perPixel("test constant", 0, 4, [](const KernelPixel& p) {
        return Pixel{float(p.values[0]), float(p.values[1]), float(p.values[2]), float(p.values[3])};
    });
    return kernel.apply(ImageExtent::infinite(), {}, {working.r, working.g, working.b, working.a});
}

Image onePixel(std::int64_t x, std::int64_t y, Pixel working) {
    return constant(working).cropped({{double(x), double(y)}, {1, 1}});
}

const RenderContext& context() {
    static const RenderContext shared(3);
    return shared;
}

Pixel Rendered::at(std::int64_t x, std::int64_t y) const {
    const float* p = bitmap.at(x - rect.x, rect.maxY() - 1 - y);
    return {p[0], p[1], p[2], p[3]};
}

Rendered render(const Image& image, const PixelRect& rect, const RenderContext& through) {
    return {rect, through.renderFloat(image, rect.cgRect())};
}

float difference(const Pixel& a, const Pixel& b) {
    return std::max({std::fabs(a.r - b.r), std::fabs(a.g - b.g), std::fabs(a.b - b.b), std::fabs(a.a - b.a)});
}

float maxError(const Rendered& rendered, const std::function<Pixel(std::int64_t, std::int64_t)>& expected) {
    float worst = 0;
    for (std::int64_t y = rendered.rect.y; y < rendered.rect.maxY(); ++y)
        for (std::int64_t x = rendered.rect.x; x < rendered.rect.maxX(); ++x)
            worst = std::max(worst, difference(rendered.at(x, y), expected(x, y)));
    return worst;
}

::testing::AssertionResult near(const Pixel& actual, const Pixel& expected, float tolerance) {
    if (difference(actual, expected) <= tolerance) return ::testing::AssertionSuccess();
    std::ostringstream text;
    text << "(" << actual.r << ", " << actual.g << ", " << actual.b << ", " << actual.a << ") is not within "
         << tolerance << " of (" << expected.r << ", " << expected.g << ", " << expected.b << ", " << expected.a << ")";
    return ::testing::AssertionFailure() << text.str();
}

::testing::AssertionResult throwsKind(const std::function<void()>& make, ImageError::Kind kind) {
    try {
        make();
    } catch (const ImageError& error) {
        if (error.kind() == kind) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "another kind of error: " << error.what();
    }
    return ::testing::AssertionFailure() << "no error";
}

} // namespace ovik::test
