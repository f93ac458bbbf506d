#include "OvikPlatform/image/ImageKernel.h"

#include <algorithm>
#include <cmath>

#include "OvikPlatform/image/ColorKernelNode.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/SamplingKernelNode.h"

namespace ovik {

struct ImageKernel::Definition {
    std::string name;
    std::size_t imageCount;
    std::size_t valueCount;
    ColorFunction color;
    SamplingFunction sampling;
    RegionFunction region;
};

Pixel KernelSampler::pixel(std::size_t input, std::int64_t x, std::int64_t y) const { return inputs_[input].at(x, y); }

Pixel KernelSampler::sample(std::size_t input, CGPoint point) const { return inputs_[input].interpolated(point); }

ImageKernel ImageKernel::color(std::string name, std::size_t imageCount, std::size_t valueCount,
                               ColorFunction function) {
    if (imageCount > maximumImages)
        throw ImageError::invalidParameter(name, "a kernel reads at most " + std::to_string(maximumImages) + " images");
    return ImageKernel(std::make_shared<const Definition>(
        Definition{std::move(name), imageCount, valueCount, std::move(function), nullptr, nullptr}));
}

ImageKernel ImageKernel::sampling(std::string name, std::size_t imageCount, std::size_t valueCount,
                                  SamplingFunction function, RegionFunction region) {
    return ImageKernel(std::make_shared<const Definition>(
        Definition{std::move(name), imageCount, valueCount, nullptr, std::move(function), std::move(region)}));
}

const std::string& ImageKernel::name() const { return definition_->name; }
std::size_t ImageKernel::imageCount() const { return definition_->imageCount; }
std::size_t ImageKernel::valueCount() const { return definition_->valueCount; }

Image ImageKernel::apply(const CGRect& extent, std::vector<Image> images, std::vector<double> values) const {
    const Definition& kernel = *definition_;
    if (images.size() != kernel.imageCount || values.size() != kernel.valueCount)
        throw ImageError::invalidParameter(kernel.name, "takes " + std::to_string(kernel.imageCount) + " images and " +
                                                            std::to_string(kernel.valueCount) + " numbers, not " +
                                                            std::to_string(images.size()) + " and " +
                                                            std::to_string(values.size()));
    if (!std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); }))
        throw ImageError::invalidParameter(kernel.name, "every number must be finite");
    if (!ImageExtent::isFinite(extent))
        throw ImageError::invalidParameter(kernel.name, "the extent must be finite numbers");
    const CGRect held = ImageExtent::fromEdges(extent.minX(), extent.minY(), extent.maxX(), extent.maxY());
    if (ImageExtent::isNull(held)) return Image();
    std::vector<ImageNode::Input> inputs;
    for (const Image& image : images) inputs.push_back(image.node());
    if (kernel.color)
        return Image(std::make_shared<ColorKernelNode>(held, std::move(inputs), kernel.color, std::move(values)));
    return Image(std::make_shared<SamplingKernelNode>(held, std::move(inputs), kernel.sampling, kernel.region,
                                                      std::move(values)));
}

} // namespace ovik
