#pragma once
// Renders images: the rectangle asked for (rounded outward to whole pixels) of an image's
// graph, in tiles of premultiplied float RGBA (linear extended sRGB) spread over a small fixed
// pool of threads. The pixels are the same, bit for bit, whatever the number of threads.
// Output is either a `CGImage` (8-bit sRGB, premultiplied), 16-bit sRGB (premultiplied) or
// the float working pixels, always top row first.
//
// A render rectangle must be finite numbers with a positive width and height, within
// ±2^29 of the origin, at most 32768 pixels a side and 2^28 pixels in all; anything else
// throws `ImageError`, as does an intermediate that would need more than 2^26 pixels at once.
#include <cstdint>
#include <functional>
#include <memory>

#include "OvikPlatform/geometry/CGRect.h"
#include "OvikPlatform/image/Bitmap.h"
#include "OvikPlatform/image/RenderWork.h"

namespace ovik {

class CGImage;
class Image;
class PixelTile;
class TilePool;
struct PixelRect;

class RenderContext {
public:
    static constexpr std::int64_t maximumSide = 32768;
    static constexpr std::int64_t maximumPixels = std::int64_t(1) << 28;

    /// The process-wide context: one thread per core, at most 8.
    static RenderContext& shared();

    /// `threads` in all, the calling thread's included; at least 1.
    explicit RenderContext(unsigned threads);
    ~RenderContext();
    RenderContext(const RenderContext&) = delete;
    RenderContext& operator=(const RenderContext&) = delete;

    unsigned threadCount() const;

    /// `work`, when given, receives the passes and pixels the render took.
    CGImage createCGImage(const Image& image, const CGRect& rect, RenderWork* work = nullptr) const;
    Bitmap16 render16(const Image& image, const CGRect& rect) const;
    BitmapFloat renderFloat(const Image& image, const CGRect& rect) const;

private:
    /// Renders `pixels` and hands every tile to `write`, from the pool's threads.
    RenderWork render(const Image& image, const PixelRect& pixels,
                      const std::function<void(const PixelTile&)>& write) const;

    std::unique_ptr<TilePool> pool_;
};

} // namespace ovik
