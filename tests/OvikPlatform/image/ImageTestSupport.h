#pragma once
// Helpers for the image tests: bitmaps and images of exact working values, renders read by
// picture coordinates (y up), and measured differences.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "OvikPlatform/image/Bitmap.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/Pixel.h"
#include "OvikPlatform/image/PixelRect.h"
#include "OvikPlatform/image/RenderContext.h"

namespace ovik::test {

/// A bitmap from RGBA bytes, top row first.
std::shared_ptr<const CGImage> bitmap(std::int64_t width, std::int64_t height, std::vector<std::uint8_t> rgba);
/// An opaque grey-level pattern of the given size that varies in both directions.
std::shared_ptr<const CGImage> pattern(std::int64_t width, std::int64_t height);

/// These exact working values over the whole plane.
Image constant(Pixel working);
/// One pixel of these working values at (x, y), clear elsewhere.
Image onePixel(std::int64_t x, std::int64_t y, Pixel working);

/// A shared context of several threads for the tests.
const RenderContext& context();

struct Rendered {
    PixelRect rect;
    BitmapFloat bitmap;
    /// The working pixel at (x, y), y up.
    Pixel at(std::int64_t x, std::int64_t y) const;
};

Rendered render(const Image& image, const PixelRect& rect, const RenderContext& through = context());

/// The largest difference of any channel.
float difference(const Pixel& a, const Pixel& b);
/// The largest difference of any channel of any pixel from what `expected` says.
float maxError(const Rendered& rendered, const std::function<Pixel(std::int64_t x, std::int64_t y)>& expected);

::testing::AssertionResult near(const Pixel& actual, const Pixel& expected, float tolerance);
/// Whether `make` throws an `ImageError` of `kind`.
::testing::AssertionResult throwsKind(const std::function<void()>& make, ImageError::Kind kind);

} // namespace ovik::test
