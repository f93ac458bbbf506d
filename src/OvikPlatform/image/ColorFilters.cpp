// Colour adjustments. All work on straight (unpremultiplied) linear components, so that
// they act on the colour and not on how much of it there is.
#include <algorithm>
#include <cmath>

#include "OvikPlatform/image/BuiltInFilters.h"
#include "OvikPlatform/image/ColorMatrix.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = FilterValue::Kind;

const FilterDefinition::Input image{"inputImage", Kind::image};

FilterDefinition::Input vector(const std::string& name, Vector4 fallback) { return {name, Kind::vector, fallback}; }

Image matrixFilter(const FilterArguments& a) {
    return a.image("inputImage")
        .applyingColorMatrix({a.vector("inputRVector"), a.vector("inputGVector"), a.vector("inputBVector"),
                              a.vector("inputAVector"), a.vector("inputBiasVector")});
}

// Values: the lowest components, then the highest.
Pixel clamped(const KernelPixel& p) {
    const Pixel c = p.inputs[0].unpremultiplied();
    const auto held = [&](float v, int k) { return std::clamp(v, float(p.values[k]), float(p.values[4 + k])); };
    return Pixel{held(c.r, 0), held(c.g, 1), held(c.b, 2), held(c.a, 3)}.premultiplied();
}

Image clampFilter(const ImageKernel& kernel, const FilterArguments& a) {
    const Vector4 low = a.vector("inputMinComponents"), high = a.vector("inputMaxComponents");
    if (!std::equal(low.begin(), low.end(), high.begin(), std::less_equal<>()))
        throw a.invalid("no minimum may exceed its maximum");
    const Image source = a.image("inputImage");
    // A lowest alpha above 0 shows clear pixels.
    const CGRect reach = low[3] > 0 ? ImageExtent::infinite() : source.extent();
    return kernel.apply(reach, {source}, {low[0], low[1], low[2], low[3], high[0], high[1], high[2], high[3]});
}

// 1 - c on each colour component.
Image invertFilter(const FilterArguments& a) {
    return a.image("inputImage")
        .applyingColorMatrix({{-1, 0, 0, 0}, {0, -1, 0, 0}, {0, 0, -1, 0}, {0, 0, 0, 1}, {1, 1, 1, 0}});
}

// Colour × 2^EV, as opening the lens by EV stops.
Image exposureFilter(const FilterArguments& a) {
    const double gain = std::exp2(a.number("inputEV"));
    if (!std::isfinite(gain)) throw a.invalid("“inputEV” is too large");
    return a.image("inputImage")
        .applyingColorMatrix({{gain, 0, 0, 0}, {0, gain, 0, 0}, {0, 0, gain, 0}, {0, 0, 0, 1}, {0, 0, 0, 0}});
}

// Colour × the value, alpha kept.
Pixel darkened(const KernelPixel& p) {
    const float b = float(p.values[0]);
    const Pixel& c = p.inputs[0];
    return {c.r * b, c.g * b, c.b * b, c.a};
}

} // namespace

void addColorFilters(ImageRegistry& registry) {
    const ColorMatrix identity;
    registry.add(FilterDefinition{"CIColorMatrix",
                                  {image, vector("inputRVector", identity.red), vector("inputGVector", identity.green),
                                   vector("inputBVector", identity.blue), vector("inputAVector", identity.alpha),
                                   vector("inputBiasVector", identity.bias)},
                                  matrixFilter});
    const ImageKernel clamp = ImageKernel::perPixel<clamped>("colour clamp", 1, 8);
    registry.add(FilterDefinition{
        "CIColorClamp",
        {image, vector("inputMinComponents", {0, 0, 0, 0}), vector("inputMaxComponents", {1, 1, 1, 1})},
        [clamp](const FilterArguments& a) { return clampFilter(clamp, a); }});
    registry.add(FilterDefinition{"CIColorInvert", {image}, invertFilter});
    registry.add(FilterDefinition{"CIExposureAdjust", {image, {"inputEV", Kind::number}}, exposureFilter});
    registry.add(ImageKernel::perPixel<darkened>("ovikDarken", 1, 1));
}

} // namespace ovik
