#include "OvikPlatform/image/RenderContext.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <thread>

#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/RenderPlan.h"
#include "OvikPlatform/image/SRGBTransfer.h"
#include "OvikPlatform/image/TilePool.h"

namespace ovik {
namespace {

PixelRect checkedPixels(const CGRect& rect) {
    if (!ImageExtent::isFinite(rect)) throw ImageError::invalidRenderRect("its numbers must be finite");
    if (!(rect.size.width > 0 && rect.size.height > 0))
        throw ImageError::invalidRenderRect("its width and height must be above 0");
    const double reach = double(PixelRect::addressLimit / 2);
    if (std::fabs(rect.minX()) > reach || std::fabs(rect.minY()) > reach || std::fabs(rect.maxX()) > reach ||
        std::fabs(rect.maxY()) > reach)
        throw ImageError::invalidRenderRect("it lies too far from the origin");
    const PixelRect pixels = PixelRect::covering(rect);
    if (pixels.width > RenderContext::maximumSide || pixels.height > RenderContext::maximumSide ||
        pixels.pixelCount() > RenderContext::maximumPixels)
        throw ImageError::renderTooLarge(std::to_string(pixels.width) + " × " + std::to_string(pixels.height) +
                                         " pixels asked");
    return pixels;
}

template <class Sample>
Bitmap<Sample> blank(const PixelRect& pixels) {
    return {pixels.width, pixels.height, std::vector<Sample>(std::size_t(4 * pixels.pixelCount()))};
}

// Bitmaps keep their top row first. `encode` writes a row of pixels.
template <class Sample, class Encode>
void write(Bitmap<Sample>& bitmap, const PixelRect& whole, const PixelTile& tile, Encode encode) {
    const PixelRect& rect = tile.rect();
    for (std::int64_t y = rect.y; y < rect.maxY(); ++y)
        encode(tile.row(y), rect.width,
               bitmap.pixels.data() + 4 * ((whole.maxY() - 1 - y) * whole.width + (rect.x - whole.x)));
}

void encodeRow16(const Pixel* pixels, std::int64_t count, std::uint16_t* out) {
    for (std::int64_t x = 0; x < count; ++x) SRGBTransfer::encode16(pixels[x], out + 4 * x);
}

void copyWorking(const Pixel* pixels, std::int64_t count, float* out) {
    for (std::int64_t x = 0; x < count; ++x, out += 4)
        out[0] = pixels[x].r, out[1] = pixels[x].g, out[2] = pixels[x].b, out[3] = pixels[x].a;
}

} // namespace

RenderContext& RenderContext::shared() {
    static RenderContext context(std::clamp(std::thread::hardware_concurrency(), 1u, 8u));
    return context;
}

RenderContext::RenderContext(unsigned threads) : pool_(std::make_unique<TilePool>(threads)) {}
RenderContext::~RenderContext() = default;

unsigned RenderContext::threadCount() const { return pool_->threadCount(); }

RenderWork RenderContext::render(const Image& image, const PixelRect& pixels,
                                 const std::function<void(const PixelTile&)>& write) const {
    RenderPlan plan(image.node().get(), pixels);
    plan.run(*pool_, write);
    return plan.work();
}

CGImage RenderContext::createCGImage(const Image& image, const CGRect& rect, RenderWork* work) const {
    const PixelRect pixels = checkedPixels(rect);
    Bitmap<std::uint8_t> bitmap = blank<std::uint8_t>(pixels);
    const RenderWork done =
        render(image, pixels, [&](const PixelTile& tile) { write(bitmap, pixels, tile, SRGBTransfer::encodeRow8); });
    if (work) *work = done;
    return CGImage(pixels.width, pixels.height, 4 * pixels.width, std::move(bitmap.pixels));
}

Bitmap16 RenderContext::render16(const Image& image, const CGRect& rect) const {
    const PixelRect pixels = checkedPixels(rect);
    Bitmap16 bitmap = blank<std::uint16_t>(pixels);
    render(image, pixels, [&](const PixelTile& tile) { write(bitmap, pixels, tile, encodeRow16); });
    return bitmap;
}

BitmapFloat RenderContext::renderFloat(const Image& image, const CGRect& rect) const {
    const PixelRect pixels = checkedPixels(rect);
    BitmapFloat bitmap = blank<float>(pixels);
    render(image, pixels, [&](const PixelTile& tile) { write(bitmap, pixels, tile, copyWorking); });
    return bitmap;
}

} // namespace ovik
