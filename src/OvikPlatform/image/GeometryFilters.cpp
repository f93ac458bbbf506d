// Filters that move pixels rather than change them, over the image's own operations.
#include "OvikPlatform/image/BuiltInFilters.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = FilterValue::Kind;

const FilterDefinition::Input image{"inputImage", Kind::image};
const FilterDefinition::Input transform{"inputTransform", Kind::transform};

Image lanczosScale(const FilterArguments& a) {
    const double scale = a.number("inputScale"), aspect = a.number("inputAspectRatio");
    if (!(scale > 0 && aspect > 0)) throw a.invalid("the scale and aspect ratio must be above 0");
    return a.image("inputImage").transformed(CGAffineTransform::scale(scale * aspect, scale), ImageSampler::lanczos);
}

} // namespace

void addGeometryFilters(ImageRegistry& registry) {
    registry.add(FilterDefinition{"CIAffineTransform", {image, transform}, [](const FilterArguments& a) {
                                      return a.image("inputImage").transformed(a.transform("inputTransform"));
                                  }});
    registry.add(FilterDefinition{"CIAffineTile", {image, transform}, [](const FilterArguments& a) {
                                      return a.image("inputImage").tiled().transformed(a.transform("inputTransform"));
                                  }});
    registry.add(
        FilterDefinition{"CIAffineClamp", {image, transform}, [](const FilterArguments& a) {
                             return a.image("inputImage").transformed(a.transform("inputTransform")).clampedToExtent();
                         }});
    registry.add(FilterDefinition{"CICrop", {image, {"inputRectangle", Kind::rect}}, [](const FilterArguments& a) {
                                      return a.image("inputImage").cropped(a.rect("inputRectangle"));
                                  }});
    registry.add(FilterDefinition{"CILanczosScaleTransform",
                                  {image, {"inputScale", Kind::number}, {"inputAspectRatio", Kind::number, 1.0}},
                                  lanczosScale});
}

} // namespace ovik
