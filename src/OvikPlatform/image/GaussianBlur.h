#pragma once
// The Gaussian blur. Its parameter is sigma, the standard deviation in pixels (what the
// platform's "inputRadius" of a Gaussian blur means).
//  - Below `pyramidFrom` the blur is exact: two separable passes of the sampled Gaussian,
//    truncated at 4 sigma and normalised.
//  - From there on the image is halved n times (n = floor(log2(sigma / 3)), k = 2^n), blurred
//    exactly at that scale and doubled back. Halving and doubling each add a variance of
//    (k² - 1) / 4 full pixels whatever the phase, and the small blur supplies the rest, so the
//    variance is sigma² exactly and the mean doesn't move; only the shape departs a little
//    from a Gaussian (within 0.3% of the peak, at worst just past a switch). The cost per pixel stays bounded
//    however large sigma grows.
// The result reaches about 4 sigma beyond the input's extent; it is infinite when that is.
#include <vector>

#include "OvikPlatform/image/Image.h"

namespace ovik {

class GaussianBlur {
public:
    static constexpr double pyramidFrom = 6;
    static constexpr double largestSigma = 10000;

    /// Throws `ImageError::invalidParameter` for a sigma that is not a number or lies outside
    /// 0...largestSigma; sigma 0 gives the image back.
    static Image apply(const Image& image, double sigma);
    /// The sampled, normalised kernel: 2⌈4 sigma⌉ + 1 weights.
    static std::vector<float> weights(double sigma);
    /// How many times the image is halved before the exact blur.
    static int halvings(double sigma);
};

} // namespace ovik
