#include "OvikPlatform/image/TransformNode.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "OvikPlatform/image/ImageExtent.h"

namespace ovik {
namespace {

constexpr double lanczosLobes = 3;
// Beyond this reduction the kernel widens no further, so that its cost stays bounded.
constexpr double widestReduction = 256;

double lanczos(double t) {
    if (t == 0) return 1;
    if (std::fabs(t) >= lanczosLobes) return 0;
    const double x = std::numbers::pi * t;
    return lanczosLobes * std::sin(x) * std::sin(x / lanczosLobes) / (x * x);
}

// The source pixels around `centre` along one axis, with their normalised weights.
struct Taps {
    std::int64_t first = 0;
    std::vector<float> weights;

    Taps(double centre, double filter) {
        const double reach = lanczosLobes / filter;
        first = pixelIndex(centre - 0.5 - reach);
        const std::int64_t last = pixelIndex(std::ceil(centre - 0.5 + reach));
        std::vector<double> raw;
        double sum = 0;
        for (std::int64_t i = first; i <= last; ++i) {
            raw.push_back(lanczos((double(i) + 0.5 - centre) * filter));
            sum += raw.back();
        }
        for (double w : raw) weights.push_back(float(w / sum));
    }
    std::int64_t last() const { return first + std::int64_t(weights.size()) - 1; }
};

// The first and last source pixel that any of these taps reads.
std::pair<std::int64_t, std::int64_t> sourceRange(const std::vector<Taps>& taps) {
    std::int64_t first = taps.front().first, last = taps.front().last();
    for (const Taps& t : taps) first = std::min(first, t.first), last = std::max(last, t.last());
    return {first, last};
}

bool isWholePixel(double offset) {
    return offset == std::round(offset) && std::fabs(offset) <= double(PixelRect::addressLimit);
}

Pixel withAlphaInRange(Pixel p) {
    p.a = std::clamp(p.a, 0.0f, 1.0f);
    return p;
}

} // namespace

std::optional<CGAffineTransform> TransformNode::inverse(const CGAffineTransform& t) {
    const double determinant = t.a * t.d - t.b * t.c;
    const CGAffineTransform inverse{t.d / determinant,
                                    -t.b / determinant,
                                    -t.c / determinant,
                                    t.a / determinant,
                                    (t.c * t.ty - t.d * t.tx) / determinant,
                                    (t.b * t.tx - t.a * t.ty) / determinant};
    const bool finite = std::isfinite(inverse.a) && std::isfinite(inverse.b) && std::isfinite(inverse.c) &&
                        std::isfinite(inverse.d) && std::isfinite(inverse.tx) && std::isfinite(inverse.ty);
    if (determinant == 0 || !finite) return std::nullopt;
    return inverse;
}

TransformNode::TransformNode(Input input, const CGAffineTransform& transform, ImageSampler sampler)
    : ImageNode(ImageExtent::transformed(input->extent(), transform), {input}), transform_(transform),
      inverse_(*inverse(transform)), sampler_(sampler),
      movesWholePixels_(transform.a == 1 && transform.b == 0 && transform.c == 0 && transform.d == 1 &&
                        isWholePixel(transform.tx) && isWholePixel(transform.ty)),
      filterX_(std::clamp(std::hypot(transform.a, transform.b), 1 / widestReduction, 1.0)),
      filterY_(std::clamp(std::hypot(transform.c, transform.d), 1 / widestReduction, 1.0)) {}

CGPoint TransformNode::sourcePoint(std::int64_t x, std::int64_t y) const {
    return inverse_.apply({double(x) + 0.5, double(y) + 0.5});
}

PixelRect TransformNode::inputRegion(std::size_t, const PixelRect& output) const {
    if (movesWholePixels_)
        return {output.x - std::int64_t(transform_.tx), output.y - std::int64_t(transform_.ty), output.width,
                output.height};
    const double margin = sampler_ == ImageSampler::lanczos ? lanczosLobes / std::min(filterX_, filterY_) + 1 : 1;
    const CGRect source = ImageExtent::transformed(output.cgRect(), inverse_);
    return PixelRect::covering(ImageExtent::grown(source, margin, margin));
}

void TransformNode::render(const PixelTile& output, NodeInputs& inputs) const {
    if (movesWholePixels_) return renderMove(output, inputs);
    if (sampler_ == ImageSampler::lanczos && transform_.b == 0 && transform_.c == 0)
        return renderLanczosByAxes(output, inputs);
    const PixelTile source = inputs.fetch(0, inputRegion(0, output.rect()));
    switch (sampler_) {
    case ImageSampler::nearest:
        return renderNearest(output, source);
    case ImageSampler::linear:
        return renderLinear(output, source);
    case ImageSampler::lanczos:
        return renderLanczos(output, source);
    }
}

void TransformNode::renderMove(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    const PixelTile source = inputs.fetch(0, inputRegion(0, rect));
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y)
        std::copy_n(source.row(y - std::int64_t(transform_.ty)), rect.width, output.row(y));
}

void TransformNode::renderNearest(const PixelTile& output, const PixelTile& source) const {
    const PixelRect& rect = output.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y)
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x) {
            const CGPoint p = sourcePoint(x, y);
            output.row(y)[x - rect.x] = source.at(pixelIndex(p.x), pixelIndex(p.y));
        }
}

void TransformNode::renderLinear(const PixelTile& output, const PixelTile& source) const {
    const PixelRect& rect = output.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y)
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x)
            output.row(y)[x - rect.x] = source.interpolated(sourcePoint(x, y));
}

// Any transform: a product of the two axes' weights around each source point.
void TransformNode::renderLanczos(const PixelTile& output, const PixelTile& source) const {
    const PixelRect& rect = output.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y)
        for (std::int64_t x = rect.x; x < rect.maxX(); ++x) {
            const CGPoint p = sourcePoint(x, y);
            const Taps across(p.x, filterX_), down(p.y, filterY_);
            Pixel sum;
            for (std::size_t j = 0; j < down.weights.size(); ++j) {
                Pixel line;
                for (std::size_t i = 0; i < across.weights.size(); ++i)
                    line = line +
                           source.at(across.first + std::int64_t(i), down.first + std::int64_t(j)) * across.weights[i];
                sum = sum + line * down.weights[j];
            }
            output.row(y)[x - rect.x] = withAlphaInRange(sum);
        }
}

// Axes kept: the source x of a pixel depends on its column alone and the source y on its row
// alone, so rows are resampled across first and the results down.
void TransformNode::renderLanczosByAxes(const PixelTile& output, NodeInputs& inputs) const {
    const PixelRect& rect = output.rect();
    std::vector<Taps> columns, rows;
    for (std::int64_t x = rect.x; x < rect.maxX(); ++x) columns.emplace_back(sourcePoint(x, rect.y).x, filterX_);
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) rows.emplace_back(sourcePoint(rect.x, y).y, filterY_);
    const auto [firstColumn, lastColumn] = sourceRange(columns);
    const auto [firstRow, lastRow] = sourceRange(rows);
    const PixelTile source = inputs.fetch(0, PixelRect::fromEdges(firstColumn, firstRow, lastColumn + 1, lastRow + 1));
    const PixelRect& region = source.rect();
    const PixelTile across = PixelTile::uncleared({rect.x, region.y, rect.width, region.height});
    for (std::int64_t j = region.y; j < region.maxY(); ++j) {
        const Pixel* line = source.row(j);
        Pixel* row = across.row(j);
        for (std::int64_t x = 0; x < rect.width; ++x) {
            const Taps& taps = columns[std::size_t(x)];
            const Pixel* first = line + (taps.first - region.x);
            Pixel sum;
            for (std::size_t i = 0; i < taps.weights.size(); ++i) sum = sum + first[i] * taps.weights[i];
            row[x] = sum;
        }
    }
    // Down row by row, so that the inner loop runs along memory; each pixel still sums its
    // taps in order.
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y) {
        const Taps& taps = rows[std::size_t(y - rect.y)];
        Pixel* row = output.row(y);
        std::fill_n(row, rect.width, Pixel{});
        for (std::size_t j = 0; j < taps.weights.size(); ++j) {
            const Pixel* line = across.row(taps.first + std::int64_t(j));
            for (std::int64_t x = 0; x < rect.width; ++x) row[x] = row[x] + line[x] * taps.weights[j];
        }
        for (std::int64_t x = 0; x < rect.width; ++x) row[x] = withAlphaInRange(row[x]);
    }
}

} // namespace ovik
