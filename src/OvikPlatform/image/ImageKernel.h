#pragma once
// A kernel: a C++ function that makes each pixel of a new image, registered by name like a
// filter (`ImageRegistry`). Two kinds:
//  - colour kernels see, for each output pixel, the pixels of their input images at the same
//    place, the pixel's centre and their numbers; they run row by row;
//  - sampling kernels may read their inputs anywhere, and so must say which input rectangle
//    an output rectangle needs (their region of interest).
// Applying a kernel gives the image it makes within the extent given, clear outside.
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/Pixel.h"

namespace ovik {

class PixelTile;

/// One row of a colour kernel's work.
struct ColorKernelRow {
    /// For each input image, its pixels along the row.
    std::span<const Pixel* const> inputs;
    Pixel* output;
    std::int64_t count;
    /// The row's first pixel.
    std::int64_t x;
    std::int64_t y;
    std::span<const double> values;
};

/// One pixel of a colour kernel's work, for kernels written pixel by pixel.
struct KernelPixel {
    std::span<const Pixel> inputs;
    /// The pixel's centre.
    CGPoint position;
    std::span<const double> values;
};

/// A sampling kernel's view of its inputs: clear outside what its region of interest asked.
class KernelSampler {
public:
    explicit KernelSampler(std::span<const PixelTile> inputs) : inputs_(inputs) {}
    Pixel pixel(std::size_t input, std::int64_t x, std::int64_t y) const;
    /// Bilinear between pixel centres.
    Pixel sample(std::size_t input, CGPoint point) const;

private:
    std::span<const PixelTile> inputs_;
};

class ImageKernel {
public:
    static constexpr std::size_t maximumImages = 8;

    using ColorFunction = std::function<void(const ColorKernelRow&)>;
    using SamplingFunction =
        std::function<Pixel(const KernelSampler&, CGPoint position, std::span<const double> values)>;
    /// The rectangle of input `index` that `output` needs.
    using RegionFunction =
        std::function<CGRect(std::size_t index, const CGRect& output, std::span<const double> values)>;

    static ImageKernel color(std::string name, std::size_t imageCount, std::size_t valueCount, ColorFunction function);
    /// A colour kernel from a function of one `KernelPixel` to its `Pixel`.
    template <class Function>
    static ImageKernel perPixel(std::string name, std::size_t imageCount, std::size_t valueCount, Function function);
    /// The same from a plain function, which the row loop can then inline.
    template <Pixel (*function)(const KernelPixel&)>
    static ImageKernel perPixel(std::string name, std::size_t imageCount, std::size_t valueCount) {
        return perPixel(std::move(name), imageCount, valueCount, [](const KernelPixel& p) { return function(p); });
    }
    static ImageKernel sampling(std::string name, std::size_t imageCount, std::size_t valueCount,
                                SamplingFunction function, RegionFunction region);

    const std::string& name() const;
    std::size_t imageCount() const;
    std::size_t valueCount() const;

    /// The image this kernel makes within `extent`. Throws `ImageError` when the counts of
    /// images or values differ from the kernel's, a value isn't a finite number or the
    /// extent isn't a rectangle.
    Image apply(const CGRect& extent, std::vector<Image> images, std::vector<double> values) const;

private:
    struct Definition;
    explicit ImageKernel(std::shared_ptr<const Definition> definition) : definition_(std::move(definition)) {}
    std::shared_ptr<const Definition> definition_;
};

template <class Function>
ImageKernel ImageKernel::perPixel(std::string name, std::size_t imageCount, std::size_t valueCount, Function function) {
    return color(std::move(name), imageCount, valueCount, [function](const ColorKernelRow& row) {
        std::array<Pixel, maximumImages> pixels;
        const std::span<const Pixel> inputs(pixels.data(), row.inputs.size());
        const double y = double(row.y) + 0.5;
        for (std::int64_t i = 0; i < row.count; ++i) {
            for (std::size_t k = 0; k < inputs.size(); ++k) pixels[k] = row.inputs[k][i];
            row.output[i] = function(KernelPixel{inputs, {double(row.x + i) + 0.5, y}, row.values});
        }
    });
}

} // namespace ovik
