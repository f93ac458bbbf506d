#include "OvikPlatform/codecs/PNGCodec.h"

#include <png.h>

#include <csetjmp>
#include <cstring>
#include <memory>

#include "OvikPlatform/codecs/ByteFields.h"
#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/Premultiply.h"
#include "OvikPlatform/codecs/RowReducer.h"

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

// libpng's row by row reader over bytes in memory, expanding every kind of pixel to 8-bit
// straight RGBA. libpng ends a failed call by a jump back to the step that made it, keeping
// its text; between each setjmp and the libpng calls nothing needs destroying.
class RowReader {
public:
    static constexpr int lastPass = 6;

    explicit RowReader(std::string_view bytes) : bytes_(bytes) {
        png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning);
        if (png_) info_ = png_create_info_struct(png_);
        if (!info_) throw ImageCodecError("Out of memory for the PNG reader");
        png_set_read_fn(png_, this, readBytes);
    }
    ~RowReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
    RowReader(const RowReader&) = delete;
    RowReader& operator=(const RowReader&) = delete;

    void readHeader() {
        if (setjmp(png_jmpbuf(png_))) fail("Unreadable PNG header");
        png_read_info(png_, info_);
        png_set_expand(png_);
        png_set_scale_16(png_);
        png_set_gray_to_rgb(png_);
        png_set_add_alpha(png_, 0xFF, PNG_FILLER_AFTER);
        png_read_update_info(png_, info_);
        width_ = png_get_image_width(png_, info_);
        height_ = png_get_image_height(png_, info_);
        interlaced_ = png_get_interlace_type(png_, info_) == PNG_INTERLACE_ADAM7;
        if (png_get_rowbytes(png_, info_) != std::size_t(width_) * 4) fail("Unsupported PNG pixel layout");
        row_.resize(std::size_t(width_) * 4);
    }

    std::int64_t width() const { return width_; }
    std::int64_t height() const { return height_; }
    bool interlaced() const { return interlaced_; }

    // Every row of a plain picture, or the rows of an interlaced one's last pass, premultiplied
    // into `reducer`. The passes are left to us: libpng then gives each pass's rows as they are.
    void readRows(RowReducer& reducer) {
        if (setjmp(png_jmpbuf(png_))) fail("Damaged PNG data");
        for (int pass = interlaced_ ? 0 : lastPass; pass <= lastPass; ++pass) {
            const std::int64_t rows = interlaced_ ? PNG_PASS_ROWS(height_, pass) : height_;
            if (rows == 0 || (interlaced_ && PNG_PASS_COLS(width_, pass) == 0)) continue;
            for (std::int64_t y = 0; y < rows; ++y) {
                png_read_row(png_, row_.data(), nullptr);
                if (pass != lastPass) continue;
                premultiply(row_);
                reducer.add(row_);
            }
        }
    }

private:
    [[noreturn]] void fail(const char* what) const {
        throw ImageCodecError(std::string(what) + (message_.empty() ? std::string() : ": " + message_));
    }
    static void onError(png_structp png, png_const_charp text) {
        static_cast<RowReader*>(png_get_error_ptr(png))->message_ = text;
        png_longjmp(png, 1);
    }
    static void onWarning(png_structp, png_const_charp) {}
    static void readBytes(png_structp png, png_bytep out, std::size_t count) {
        auto* reader = static_cast<RowReader*>(png_get_io_ptr(png));
        if (count > reader->bytes_.size() - reader->at_) png_error(png, "The file ends early");
        std::memcpy(out, reader->bytes_.data() + reader->at_, count);
        reader->at_ += count;
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    std::int64_t width_ = 0, height_ = 0;
    bool interlaced_ = false;
    std::vector<std::uint8_t> row_;
    std::string message_;
};

// A pHYs unit of 1 counts pixels per metre; 0.0254 m make an inch.
constexpr double metresPerInch = 0.0254;

// Straight colour for the file, and whether every pixel is opaque (then alpha is left out).
std::pair<std::vector<std::uint8_t>, bool> unpremultiplied(const CGImage& image) {
    const auto width = std::size_t(image.width()), height = std::size_t(image.height());
    std::vector<std::uint8_t> out(width * height * 4);
    bool opaque = true;
    for (std::size_t y = 0; y < height; ++y) {
        const std::uint8_t* row = image.pixels().data() + y * std::size_t(image.bytesPerRow());
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t* p = row + x * 4;
            std::uint8_t* q = out.data() + (y * width + x) * 4;
            const unsigned alpha = p[3];
            for (int c = 0; c < 3; ++c) q[c] = alpha == 0 ? 0 : std::uint8_t(std::min(255u, (p[c] * 255u + alpha / 2) / alpha));
            q[3] = p[3];
            opaque = opaque && alpha == 255;
        }
    }
    if (!opaque) return {std::move(out), false};
    for (std::size_t i = 0; i < width * height; ++i) std::memmove(&out[i * 3], &out[i * 4], 3);
    out.resize(width * height * 3);
    return {std::move(out), true};
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
    ImageLimits::require(width, height, "PNG");
    reader.image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4));
    if (!png_image_finish_read(&reader.image, nullptr, pixels.data(), 0, nullptr))
        fail(reader.image, "Damaged PNG data");
    // libpng reads straight alpha; bitmaps here are premultiplied.
    premultiply(pixels);
    return CGImage(width, height, width * 4, std::move(pixels));
}

CGImage decode(std::string_view bytes, std::int64_t longSide) {
    const ImageProperties header = properties(bytes);
    ImageLimits::require(header.width, header.height, longSide, "PNG");
    RowReader reader(bytes);
    reader.readHeader();
    const std::int64_t width = reader.width(), height = reader.height();
    ImageLimits::require(width, height, longSide, "PNG");
    std::int64_t factor = RowReducer::factor(width, height, longSide);
    // The last pass of an interlaced picture holds the odd rows: it halves the picture down.
    if (reader.interlaced()) factor &= ~std::int64_t(1);
    if (factor < 2 || height < 2) return decode(bytes);
    RowReducer reducer(width, reader.interlaced() ? height / 2 : height, factor,
                       reader.interlaced() ? factor / 2 : factor);
    reader.readRows(reducer);
    return reducer.finish();
}

ImageProperties properties(std::string_view bytes) {
    // IHDR comes first: length 13 at byte 8, the width at 16 and the height at 20.
    const auto width = readField(bytes, 16, 4), height = readField(bytes, 20, 4);
    if (!hasSignature(bytes) || slice(bytes, 12, 4) != "IHDR" || !width || !height)
        throw ImageCodecError("Unreadable PNG header");
    ImageProperties found{*width, *height};
    // Chunks are length, type, data and a CRC; pHYs may only stand before the first IDAT.
    for (std::size_t at = 8; at + 8 <= bytes.size();) {
        const std::uint32_t length = *readField(bytes, at, 4);
        const std::string_view type = slice(bytes, at + 4, 4);
        if (type == "IDAT" || type == "IEND") break;
        const auto perUnit = readField(bytes, at + 8, 4), unit = readField(bytes, at + 16, 1);
        if (type == "pHYs" && length == 9 && perUnit && unit && *unit == 1 && *perUnit > 0)
            found.dotsPerInch = *perUnit * metresPerInch;
        at += std::size_t(length) + 12;
    }
    return found;
}

std::string encode(const CGImage& image) {
    if (image.width() <= 0 || image.height() <= 0) throw ImageCodecError("Can't write an empty picture as PNG");
    const auto [pixels, opaque] = unpremultiplied(image);
    png_image out{};
    out.version = PNG_IMAGE_VERSION;
    out.width = png_uint_32(image.width());
    out.height = png_uint_32(image.height());
    out.format = opaque ? PNG_FORMAT_RGB : PNG_FORMAT_RGBA;
    // Speed over the last percent of size: these files are thumbnails and stills.
    out.flags = PNG_IMAGE_FLAG_FAST;
    // Room for the largest file the picture can make, so that it is compressed only once.
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(out);
    std::string bytes(size, '\0');
    if (!png_image_write_to_memory(&out, bytes.data(), &size, 0, pixels.data(), 0, nullptr))
        fail(out, "PNG encoding failed");
    bytes.resize(size);
    png_image_free(&out);
    return bytes;
}

} // namespace ovik::PNGCodec
