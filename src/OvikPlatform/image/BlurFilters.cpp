// Blurs. A Gaussian blur's "inputRadius" is its sigma; a box blur's is the half width of
// its square; a motion blur's is how far each pixel is smeared either way along "inputAngle"
// (radians, counter-clockwise from +x).
#include <cmath>

#include "OvikPlatform/image/BuiltInFilters.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"
#include "OvikPlatform/image/SeparableBlurNode.h"

namespace ovik {
namespace {

using Kind = FilterValue::Kind;

const FilterDefinition::Input image{"inputImage", Kind::image};
const FilterDefinition::Input radius{"inputRadius", Kind::number};

// Box and motion blurs cost in proportion to their radius; beyond this one a Gaussian serves.
constexpr double largestRadius = 1000;

double boundedRadius(const FilterArguments& a) {
    const double r = a.number("inputRadius", 0);
    if (r > largestRadius) throw a.invalid("“inputRadius” must be " + std::to_string(largestRadius) + " or less");
    return r;
}

Image boxBlur(const FilterArguments& a) {
    const auto half = std::int64_t(std::round(boundedRadius(a)));
    const std::size_t taps = std::size_t(2 * half + 1);
    return SeparableBlurNode::bothAxes(a.image("inputImage"), std::vector<float>(taps, float(1.0 / double(taps))));
}

// How far the smear reaches along x and y, a pixel more for the bilinear reads.
CGVector motionReach(double r, double angle) {
    return {std::fabs(r * std::cos(angle)) + 1, std::fabs(r * std::sin(angle)) + 1};
}

// The mean of 2⌈r⌉ + 1 evenly spaced reads along the segment from -r to +r.
Pixel smeared(const KernelSampler& in, CGPoint p, std::span<const double> v) {
    const double r = v[0], dx = std::cos(v[1]), dy = std::sin(v[1]);
    const std::int64_t steps = 2 * std::int64_t(std::ceil(r));
    Pixel sum;
    for (std::int64_t i = 0; i <= steps; ++i) {
        const double t = -r + 2 * r * double(i) / double(steps);
        sum = sum + in.sample(0, {p.x + t * dx, p.y + t * dy});
    }
    return sum * float(1.0 / double(steps + 1));
}

CGRect motionRegion(std::size_t, const CGRect& output, std::span<const double> v) {
    const CGVector reach = motionReach(v[0], v[1]);
    return ImageExtent::grown(output, reach.dx, reach.dy);
}

Image motionBlur(const ImageKernel& kernel, const FilterArguments& a) {
    const double r = boundedRadius(a), angle = a.number("inputAngle");
    const Image source = a.image("inputImage");
    if (r == 0) return source;
    const CGVector reach = motionReach(r, angle);
    return kernel.apply(ImageExtent::grown(source.extent(), reach.dx, reach.dy), {source}, {r, angle});
}

} // namespace

void addBlurFilters(ImageRegistry& registry) {
    registry.add(FilterDefinition{"CIGaussianBlur", {image, radius}, [](const FilterArguments& a) {
                                      return a.image("inputImage").applyingGaussianBlur(a.number("inputRadius", 0));
                                  }});
    registry.add(FilterDefinition{"CIBoxBlur", {image, radius}, boxBlur});
    const ImageKernel motion = ImageKernel::sampling("motion blur", 1, 2, smeared, motionRegion);
    registry.add(FilterDefinition{"CIMotionBlur",
                                  {image, radius, {"inputAngle", Kind::number, 0.0}},
                                  [motion](const FilterArguments& a) { return motionBlur(motion, a); }});
}

} // namespace ovik
