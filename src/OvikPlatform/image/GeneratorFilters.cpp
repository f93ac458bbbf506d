// Images made from nothing but numbers. Colours are given as sRGB with straight alpha and
// blended in the working space (linear, premultiplied); positions are pixel centres.
#include <algorithm>
#include <cmath>

#include "OvikPlatform/image/BuiltInFilters.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"

namespace ovik {
namespace {

using Kind = FilterValue::Kind;

void append(std::vector<double>& values, const ImageColor& color) {
    const Pixel p = color.working();
    values.insert(values.end(), {p.r, p.g, p.b, p.a});
}

Pixel colorAt(std::span<const double> values, std::size_t first) {
    return {float(values[first]), float(values[first + 1]), float(values[first + 2]), float(values[first + 3])};
}

// Values: point 0, point 1, then the colours. Coinciding points give colour 0 everywhere.
double linearPlace(double x, double y, std::span<const double> v) {
    const double dx = v[2] - v[0], dy = v[3] - v[1], length = dx * dx + dy * dy;
    return length > 0 ? ((x - v[0]) * dx + (y - v[1]) * dy) / length : 0;
}

// Values: centre, radius 0, radius 1, then the colours. Equal radii give a hard edge.
double radialPlace(double x, double y, std::span<const double> v) {
    const double distance = std::hypot(x - v[0], y - v[1]);
    return v[3] != v[2] ? (distance - v[2]) / (v[3] - v[2]) : (distance < v[2] ? 0 : 1);
}

// Colour 0 where `place` gives 0 or less, colour 1 from 1 on, mixed between; the values end
// with both colours. Row by row: a background spans the frame, and colours convert once a row.
template <double (*place)(double, double, std::span<const double>)>
void gradientRow(const ColorKernelRow& row) {
    const std::size_t colors = row.values.size() - 8;
    const Pixel from = colorAt(row.values, colors), change = colorAt(row.values, colors + 4) - from;
    const double y = double(row.y) + 0.5;
    for (std::int64_t i = 0; i < row.count; ++i) {
        const double t = place(double(row.x + i) + 0.5, y, row.values);
        row.output[i] = from + change * float(std::clamp(t, 0.0, 1.0));
    }
}

// Values: min x, min y, max x, max y, corner radius, then the colour. The pixel's coverage
// comes from its centre's signed distance to the outline: exact along straight edges.
Pixel roundedRectangle(const KernelPixel& p) {
    const auto& v = p.values;
    const double halfWidth = (v[2] - v[0]) / 2, halfHeight = (v[3] - v[1]) / 2;
    const double r = std::min({v[4], halfWidth, halfHeight});
    const double qx = std::fabs(p.position.x - (v[0] + halfWidth)) - (halfWidth - r);
    const double qy = std::fabs(p.position.y - (v[1] + halfHeight)) - (halfHeight - r);
    // Only beside a corner is the distance a diagonal one.
    const double outside = qx > 0 && qy > 0 ? std::sqrt(qx * qx + qy * qy) : std::max({qx, qy, 0.0});
    const double distance = outside + std::min(std::max(qx, qy), 0.0) - r;
    return colorAt(v, 5) * float(std::clamp(0.5 - distance, 0.0, 1.0));
}

Image gradient(const ImageKernel& kernel, std::vector<double> values, const FilterArguments& a) {
    append(values, a.color("inputColor0"));
    append(values, a.color("inputColor1"));
    return kernel.apply(ImageExtent::infinite(), {}, std::move(values));
}

Image rectangle(const ImageKernel& kernel, const FilterArguments& a) {
    const CGRect r = a.rect("inputExtent").standardized();
    std::vector<double> values{r.minX(), r.minY(), r.maxX(), r.maxY(), a.number("inputRadius", 0)};
    append(values, a.color("inputColor"));
    return kernel.apply(r, {}, std::move(values));
}

} // namespace

void addGeneratorFilters(ImageRegistry& registry) {
    registry.add(FilterDefinition{"CIConstantColorGenerator",
                                  {{"inputColor", Kind::color}},
                                  [](const FilterArguments& a) { return Image::fromColor(a.color("inputColor")); }});
    const ImageKernel linear = ImageKernel::color("linear gradient", 0, 12, gradientRow<linearPlace>);
    registry.add(FilterDefinition{"CILinearGradient",
                                  {{"inputPoint0", Kind::point},
                                   {"inputPoint1", Kind::point},
                                   {"inputColor0", Kind::color},
                                   {"inputColor1", Kind::color}},
                                  [linear](const FilterArguments& a) {
                                      const CGPoint p0 = a.point("inputPoint0"), p1 = a.point("inputPoint1");
                                      return gradient(linear, {p0.x, p0.y, p1.x, p1.y}, a);
                                  }});
    const ImageKernel radial = ImageKernel::color("radial gradient", 0, 12, gradientRow<radialPlace>);
    registry.add(FilterDefinition{
        "CIRadialGradient",
        {{"inputCenter", Kind::point},
         {"inputRadius0", Kind::number},
         {"inputRadius1", Kind::number},
         {"inputColor0", Kind::color},
         {"inputColor1", Kind::color}},
        [radial](const FilterArguments& a) {
            const CGPoint c = a.point("inputCenter");
            return gradient(radial, {c.x, c.y, a.number("inputRadius0", 0), a.number("inputRadius1", 0)}, a);
        }});
    const ImageKernel rounded = ImageKernel::perPixel<roundedRectangle>("rounded rectangle", 0, 9);
    const std::vector<FilterDefinition::Input> shape{
        {"inputExtent", Kind::rect}, {"inputRadius", Kind::number}, {"inputColor", Kind::color}};
    registry.add(FilterDefinition{"roundedRectangleGenerator", shape,
                                  [rounded](const FilterArguments& a) { return rectangle(rounded, a); }});
    std::vector<FilterDefinition::Input> blurredShape = shape;
    blurredShape.push_back({"inputSigma", Kind::number});
    registry.add(
        FilterDefinition{"blurredRoundedRectangleGenerator", blurredShape, [rounded](const FilterArguments& a) {
                             return rectangle(rounded, a).applyingGaussianBlur(a.number("inputSigma", 0));
                         }});
}

} // namespace ovik
