#include "OvikPlatform/codecs/PNGCodec.h"

#include <png.h>

#include <cstring>
#include <memory>

#include "OvikPlatform/codecs/ImageCodecError.h"

namespace ovik::PNGCodec {
namespace {

struct ImageReader {
    png_image image{};
    ImageReader() { image.version = PNG_IMAGE_VERSION; }
    ~ImageReader() { png_image_free(&image); }
};

[[noreturn]] void fail(const png_image& image, const char* what) {
    throw ImageCodecError(std::string(what) + (image.message[0] ? std::string(": ") + image.message : std::string()));
}

// libpng reads and writes straight alpha; bitmaps here are premultiplied.
void premultiply(std::vector<std::uint8_t>& pixels) {
    for (std::size_t i = 0; i + 3 < pixels.size(); i += 4) {
        const unsigned alpha = pixels[i + 3];
        for (int c = 0; c < 3; ++c) pixels[i + c] = std::uint8_t((pixels[i + c] * alpha + 127) / 255);
    }
}

std::vector<std::uint8_t> unpremultiplied(const CGImage& image) {
    const auto width = std::size_t(image.width()), height = std::size_t(image.height());
    std::vector<std::uint8_t> out(width * height * 4);
    for (std::size_t y = 0; y < height; ++y) {
        const std::uint8_t* row = image.pixels().data() + y * std::size_t(image.bytesPerRow());
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t* p = row + x * 4;
            std::uint8_t* q = out.data() + (y * width + x) * 4;
            const unsigned alpha = p[3];
            for (int c = 0; c < 3; ++c) q[c] = alpha == 0 ? 0 : std::uint8_t(std::min(255u, (p[c] * 255u + alpha / 2) / alpha));
            q[3] = p[3];
        }
    }
    return out;
}

} // namespace

bool hasSignature(std::string_view bytes) {
    return bytes.size() >= 8 && png_sig_cmp(reinterpret_cast<png_const_bytep>(bytes.data()), 0, 8) == 0;
}

CGImage decode(std::string_view bytes) {
    if (!hasSignature(bytes)) throw ImageCodecError("Not a PNG file");
    ImageReader reader;
    if (!png_image_begin_read_from_memory(&reader.image, bytes.data(), bytes.size()))
        fail(reader.image, "Unreadable PNG header");
    const std::int64_t width = reader.image.width, height = reader.image.height;
    if (width <= 0 || height <= 0 || width > maximumSide || height > maximumSide || width * height > maximumPixels)
        throw ImageCodecError("PNG of " + std::to_string(width) + " × " + std::to_string(height) +
                              " pixels is outside the limits");
    reader.image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4));
    if (!png_image_finish_read(&reader.image, nullptr, pixels.data(), 0, nullptr))
        fail(reader.image, "Damaged PNG data");
    premultiply(pixels);
    return CGImage(width, height, width * 4, std::move(pixels));
}

std::string encode(const CGImage& image) {
    if (image.width() <= 0 || image.height() <= 0) throw ImageCodecError("Can't write an empty picture as PNG");
    const std::vector<std::uint8_t> pixels = unpremultiplied(image);
    png_image out{};
    out.version = PNG_IMAGE_VERSION;
    out.width = png_uint_32(image.width());
    out.height = png_uint_32(image.height());
    out.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    if (!png_image_write_to_memory(&out, nullptr, &size, 0, pixels.data(), 0, nullptr)) fail(out, "PNG encoding failed");
    std::string bytes(size, '\0');
    if (!png_image_write_to_memory(&out, bytes.data(), &size, 0, pixels.data(), 0, nullptr))
        fail(out, "PNG encoding failed");
    bytes.resize(size);
    png_image_free(&out);
    return bytes;
}

} // namespace ovik::PNGCodec
