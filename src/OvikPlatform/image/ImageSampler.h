#pragma once
// How a transformed image reads its source between pixel centres.
namespace ovik {

enum class ImageSampler {
    /// Bilinear between the four nearest pixel centres.
    linear,
    /// Lanczos-3, widened by the reduction when an image shrinks: the high-quality downsample.
    lanczos,
    /// The source pixel under the point; for pixel art and exact copies.
    nearest,
};

} // namespace ovik
