#pragma once
// Measured differences between bitmaps, for comparing a decoded picture with what an
// independent path says it should be.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "OvikPlatform/image/CGImage.h"

namespace ovik::testing {

using RGBA = std::array<int, 4>;

inline RGBA pixelAt(const CGImage& image, std::int64_t x, std::int64_t y) {
    const std::uint8_t* p = image.pixels().data() + y * image.bytesPerRow() + x * 4;
    return {p[0], p[1], p[2], p[3]};
}

inline int channelError(RGBA a, RGBA b) {
    int worst = 0;
    for (std::size_t c = 0; c < 4; ++c) worst = std::max(worst, std::abs(a[c] - b[c]));
    return worst;
}

/// The largest difference of one channel of one pixel from `colour` over the whole picture.
inline int maxErrorFrom(const CGImage& image, RGBA colour) {
    int worst = 0;
    for (std::int64_t y = 0; y < image.height(); ++y)
        for (std::int64_t x = 0; x < image.width(); ++x)
            worst = std::max(worst, channelError(pixelAt(image, x, y), colour));
    return worst;
}

/// Peak signal-to-noise ratio over the colour channels in dB; infinite for equal pictures.
/// Pictures of different sizes compare as 0 dB.
inline double psnr(const CGImage& a, const CGImage& b) {
    if (a.width() != b.width() || a.height() != b.height()) return 0;
    double squares = 0;
    for (std::int64_t y = 0; y < a.height(); ++y)
        for (std::int64_t x = 0; x < a.width(); ++x) {
            const RGBA p = pixelAt(a, x, y), q = pixelAt(b, x, y);
            for (std::size_t c = 0; c < 3; ++c) squares += double(p[c] - q[c]) * double(p[c] - q[c]);
        }
    const double mean = squares / double(a.width() * a.height() * 3);
    return mean == 0 ? std::numeric_limits<double>::infinity() : 10 * std::log10(255.0 * 255.0 / mean);
}

} // namespace ovik::testing
