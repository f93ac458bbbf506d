#include <cmath>
#include <numbers>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/GaussianBlur.h"

namespace ovik {
namespace {

using test::maxError;
using test::near;
using test::render;
using test::Rendered;

constexpr Pixel white{1, 1, 1, 1};

// The discrete Gaussian, normalised over the whole line: what an exact blur gives a pixel
// `offset` away from a single bright one.
struct Gaussian {
    double sigma, sum = 0;
    explicit Gaussian(double sigma) : sigma(sigma) {
        for (int k = -int(12 * sigma) - 1; k <= int(12 * sigma) + 1; ++k) sum += std::exp(-k * k / (2 * sigma * sigma));
    }
    double operator()(double offset) const { return std::exp(-offset * offset / (2 * sigma * sigma)) / sum; }
};

struct PointCase {
    double sigma;
    std::int64_t x, y;
    float tolerance; // of the peak
};

// Exact below 6, then halved 1, 2 and 3 times, each just past the switch, where the halved
// blur is narrowest; points at several phases of the halving grid.
const PointCase pointCases[] = {
    {0.8, 20, 20, 3e-4f}, {2, 21, 20, 3e-4f},  {5, 20, 21, 3e-4f},  {6, 40, 41, 3e-3f},  {9, 41, 40, 3e-3f},
    {12, 43, 43, 3e-3f},  {17, 60, 63, 3e-3f}, {24, 61, 62, 3e-3f}, {33, 64, 64, 3e-3f},
};

TEST(ImageBlur, GaussianOfOnePixelMatchesTheExactKernelAndKeepsItsEnergy) {
    for (const PointCase& c : pointCases) {
        const Image blurred = test::onePixel(c.x, c.y, white).applyingGaussianBlur(c.sigma);
        const Rendered out = render(blurred, PixelRect::covering(blurred.extent()));
        const Gaussian g(c.sigma);
        const float error = maxError(out, [&](std::int64_t x, std::int64_t y) {
            return white * float(g(double(x - c.x)) * g(double(y - c.y)));
        });
        EXPECT_LT(error, c.tolerance * float(g(0) * g(0))) << "sigma " << c.sigma;
        double sum = 0;
        for (std::int64_t y = out.rect.y; y < out.rect.maxY(); ++y)
            for (std::int64_t x = out.rect.x; x < out.rect.maxX(); ++x) sum += out.at(x, y).a;
        EXPECT_NEAR(sum, 1, 1e-6) << "sigma " << c.sigma;
    }
}

TEST(ImageBlur, ClampedEdgesStayHard) {
    // As a background is blurred: cropped, clamped, blurred, cropped again.
    const Pixel colour{0.3f, 0.2f, 0.1f, 1};
    const CGRect frame{{0, 0}, {50, 40}};
    for (const double sigma : {3.0, 12.0, 40.0}) {
        const Image image =
            test::constant(colour).cropped(frame).clampedToExtent().applyingGaussianBlur(sigma).cropped(frame);
        const Rendered out = render(image, {0, 0, 50, 40});
        EXPECT_LT(maxError(out, [&](std::int64_t, std::int64_t) { return colour; }), 2e-6f) << sigma;
    }
}

TEST(ImageBlur, BoxAndMotionBlursSpreadEvenly) {
    struct Case {
        const char* filter;
        FilterInputs inputs;
        PixelRect spread;
    };
    const Case cases[] = {
        {"CIBoxBlur", {{"inputRadius", 2.4}}, {8, 8, 5, 5}},
        {"CIBoxBlur", {{"inputRadius", 2.5}}, {7, 7, 7, 7}}, // halves round away from zero
        {"CIMotionBlur", {{"inputRadius", 2.0}}, {8, 10, 5, 1}},
        {"CIMotionBlur", {{"inputRadius", 2.0}, {"inputAngle", std::numbers::pi / 2}}, {10, 8, 1, 5}},
    };
    for (const Case& c : cases) {
        const Rendered out = render(test::onePixel(10, 10, white).applyingFilter(c.filter, c.inputs), {0, 0, 20, 20});
        const float share = 1.0f / float(c.spread.pixelCount());
        EXPECT_LT(maxError(out,
                           [&](std::int64_t x, std::int64_t y) {
                               return c.spread.contains({x, y, 1, 1}) ? white * share : Pixel{};
                           }),
                  1e-6f)
            << c.filter;
    }
}

} // namespace
} // namespace ovik
