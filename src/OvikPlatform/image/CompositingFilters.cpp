// Two images into one, pixel by pixel, on premultiplied working pixels: S is "inputImage",
// D is "inputBackgroundImage".
#include <algorithm>

#include "OvikPlatform/image/BuiltInFilters.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = FilterValue::Kind;

const FilterDefinition::Input image{"inputImage", Kind::image};
const FilterDefinition::Input background{"inputBackgroundImage", Kind::image};
const FilterDefinition::Input mask{"inputMaskImage", Kind::image};

// The kernel applied to (S, D) over `extentOf(S, D)`.
FilterDefinition pairFilter(const std::string& name, ImageKernel kernel,
                            CGRect (*extentOf)(const CGRect&, const CGRect&)) {
    return {name, {image, background}, [kernel, extentOf](const FilterArguments& a) {
                const Image source = a.image("inputImage"), destination = a.image("inputBackgroundImage");
                return kernel.apply(extentOf(source.extent(), destination.extent()), {source, destination}, {});
            }};
}

CGRect either(const CGRect& s, const CGRect& d) { return ImageExtent::unionOf(s, d); }
CGRect sourceOnly(const CGRect& s, const CGRect&) { return s; }
CGRect destinationOnly(const CGRect&, const CGRect& d) { return d; }

// Light added to light: colours sum without limit, alpha saturates at 1.
Pixel added(const KernelPixel& p) {
    Pixel sum = p.inputs[0] + p.inputs[1];
    sum.a = std::min(sum.a, 1.0f);
    return sum;
}

Pixel sourceAtop(const KernelPixel& p) {
    const Pixel &s = p.inputs[0], &d = p.inputs[1];
    return s * d.a + d * (1 - s.a);
}

Pixel sourceOut(const KernelPixel& p) { return p.inputs[0] * (1 - p.inputs[1].a); }

Pixel mixed(const KernelPixel& p) {
    const Pixel &s = p.inputs[0], &d = p.inputs[1];
    return d + (s - d) * float(p.values[0]);
}

// S where the mask measures 1, D where it measures 0, and between in proportion.
template <float (*measure)(const Pixel&)>
Pixel masked(const KernelPixel& p) {
    const float m = std::clamp(measure(p.inputs[2]), 0.0f, 1.0f);
    return p.inputs[0] * m + p.inputs[1] * (1 - m);
}

float red(const Pixel& p) { return p.r; }
float alpha(const Pixel& p) { return p.a; }
// Grey masks give the same under any weights; coloured ones count by their luminance.
float luminance(const Pixel& p) { return 0.2126f * p.r + 0.7152f * p.g + 0.0722f * p.b; }

FilterDefinition maskFilter(const std::string& name, ImageKernel kernel) {
    return {name, {image, background, mask}, [kernel](const FilterArguments& a) {
                const Image source = a.image("inputImage"), destination = a.image("inputBackgroundImage");
                const Image weights = a.image("inputMaskImage");
                // Where the mask is clear the background shows; the image only where both are.
                const CGRect reach = ImageExtent::unionOf(destination.extent(),
                                                          ImageExtent::intersection(source.extent(), weights.extent()));
                return kernel.apply(reach, {source, destination, weights}, {});
            }};
}

} // namespace

void addCompositingFilters(ImageRegistry& registry) {
    registry.add(FilterDefinition{"CISourceOverCompositing", {image, background}, [](const FilterArguments& a) {
                                      return a.image("inputImage").composited(a.image("inputBackgroundImage"));
                                  }});
    registry.add(pairFilter("CIAdditionCompositing", ImageKernel::perPixel<added>("addition", 2, 0), either));
    registry.add(
        pairFilter("CISourceAtopCompositing", ImageKernel::perPixel<sourceAtop>("source atop", 2, 0), destinationOnly));
    registry.add(
        pairFilter("CISourceOutCompositing", ImageKernel::perPixel<sourceOut>("source out", 2, 0), sourceOnly));
    const ImageKernel mix = ImageKernel::perPixel<mixed>("mix", 2, 1);
    registry.add(FilterDefinition{
        "CIMix", {image, background, {"inputAmount", Kind::number, 1.0}}, [mix](const FilterArguments& a) {
            const Image source = a.image("inputImage"), destination = a.image("inputBackgroundImage");
            return mix.apply(either(source.extent(), destination.extent()), {source, destination},
                             {a.number("inputAmount")});
        }});
    registry.add(maskFilter("CIBlendWithRedMask", ImageKernel::perPixel<masked<red>>("red mask blend", 3, 0)));
    registry.add(maskFilter("CIBlendWithAlphaMask", ImageKernel::perPixel<masked<alpha>>("alpha mask blend", 3, 0)));
    registry.add(maskFilter("CIBlendWithMask", ImageKernel::perPixel<masked<luminance>>("mask blend", 3, 0)));
}

} // namespace ovik
