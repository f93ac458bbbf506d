#include "OvikPlatform/codecs/JPEGCodec.h"

#include <csetjmp>
#include <cstdio> // jpeglib.h uses FILE without declaring it
#include <string>

#include <jpeglib.h>
#include <jerror.h>

#include "OvikPlatform/codecs/ExifOrientation.h"
#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/RowReducer.h"

namespace ovik::JPEGCodec {
namespace {

constexpr int app1 = JPEG_APP0 + 1;
constexpr double centimetresPerInch = 2.54;

// libjpeg ends a failed call through error_exit; ours jumps back to the setjmp of the step
// that made the call, keeping the library's text. A file that ends early is a failure too,
// where libjpeg would only warn and pad the picture with grey; other warnings are dropped.
struct ErrorJump {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

[[noreturn]] void jumpOut(j_common_ptr info) {
    auto* error = reinterpret_cast<ErrorJump*>(info->err);
    info->err->format_message(info, error->message);
    std::longjmp(error->jump, 1);
}

void onMessage(j_common_ptr info, int level) {
    if (level < 0 && info->err->msg_code == JWRN_JPEG_EOF) jumpOut(info);
}

class Decompressor {
public:
    explicit Decompressor(std::string_view bytes) : bytes_(bytes) {
        info_.err = jpeg_std_error(&error_.manager);
        error_.manager.error_exit = jumpOut;
        error_.manager.emit_message = onMessage;
        jpeg_create_decompress(&info_);
    }
    ~Decompressor() { jpeg_destroy_decompress(&info_); }
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;

    // Each step sets its own jump target; between it and the libjpeg calls there is nothing a
    // longjmp could skip the destruction of.
    void readHeader() {
        if (setjmp(error_.jump)) fail("Unreadable JPEG header");
        jpeg_mem_src(&info_, reinterpret_cast<const unsigned char*>(bytes_.data()), (unsigned long)bytes_.size());
        jpeg_save_markers(&info_, app1, 0xFFFF);
        jpeg_read_header(&info_, TRUE);
    }

    // Decodes at 1/denominator of the size (1, 2, 4 or 8), which libjpeg does in its inverse
    // transforms at a fraction of the cost; the size that comes out is `info().output_width`
    // and `output_height`.
    void scaleDown(unsigned denominator) {
        if (setjmp(error_.jump)) fail("Unreadable JPEG header");
        info_.scale_num = 1;
        info_.scale_denom = denominator;
        info_.out_color_space = JCS_EXT_RGBA;
        jpeg_calc_output_dimensions(&info_);
    }

    // Rows of opaque RGBA, so already premultiplied.
    void readPixels(RowReducer& reducer) {
        std::vector<std::uint8_t> row(std::size_t(info_.output_width) * 4);
        JSAMPROW rows[] = {row.data()};
        if (setjmp(error_.jump)) fail("Damaged JPEG data");
        jpeg_start_decompress(&info_);
        while (info_.output_scanline < info_.output_height) {
            jpeg_read_scanlines(&info_, rows, 1);
            reducer.add(row);
        }
        jpeg_finish_decompress(&info_);
    }

    const jpeg_decompress_struct& info() const { return info_; }

    ImageOrientation orientation() const {
        for (jpeg_saved_marker_ptr marker = info_.marker_list; marker; marker = marker->next) {
            const std::string_view segment(reinterpret_cast<const char*>(marker->data), marker->data_length);
            if (marker->marker == app1 && exifOrientation(segment) != ImageOrientation::up)
                return exifOrientation(segment);
        }
        return ImageOrientation::up;
    }

private:
    [[noreturn]] void fail(const char* what) const { throw ImageCodecError(std::string(what) + ": " + error_.message); }

    std::string_view bytes_;
    jpeg_decompress_struct info_{};
    ErrorJump error_{};
};

double dotsPerInch(const jpeg_decompress_struct& info) {
    if (info.X_density == 0) return 72;
    if (info.density_unit == 1) return info.X_density;
    if (info.density_unit == 2) return info.X_density * centimetresPerInch;
    return 72;
}

// The largest scale-down libjpeg offers that keeps the long side at least `longSide`.
unsigned denominatorFor(std::int64_t longSide, std::int64_t width, std::int64_t height) {
    for (unsigned denominator : {8u, 4u, 2u})
        if ((std::max(width, height) + denominator - 1) / denominator >= longSide) return denominator;
    return 1;
}

} // namespace

bool hasSignature(std::string_view bytes) { return bytes.substr(0, 3) == "\xFF\xD8\xFF"; }

CGImage decode(std::string_view bytes) { return decode(bytes, ImageLimits::maximumSide); }

CGImage decode(std::string_view bytes, std::int64_t longSide) {
    if (!hasSignature(bytes)) throw ImageCodecError("Not a JPEG file");
    Decompressor jpeg(bytes);
    jpeg.readHeader();
    const std::int64_t width = jpeg.info().image_width, height = jpeg.info().image_height;
    ImageLimits::require(width, height, longSide, "JPEG");
    const J_COLOR_SPACE space = jpeg.info().jpeg_color_space;
    if (space == JCS_CMYK || space == JCS_YCCK) throw ImageCodecError("CMYK JPEG pictures are not supported");
    // Saved markers go with the picture's memory when decompression finishes: read them first.
    const ImageOrientation orientation = jpeg.orientation();
    jpeg.scaleDown(denominatorFor(longSide, width, height));
    const std::int64_t scaledWidth = jpeg.info().output_width, scaledHeight = jpeg.info().output_height;
    const std::int64_t factor = RowReducer::factor(scaledWidth, scaledHeight, longSide);
    RowReducer reducer(scaledWidth, scaledHeight, factor, factor);
    jpeg.readPixels(reducer);
    return oriented(reducer.finish(), orientation);
}

ImageProperties properties(std::string_view bytes) {
    if (!hasSignature(bytes)) throw ImageCodecError("Not a JPEG file");
    Decompressor jpeg(bytes);
    jpeg.readHeader();
    const std::int64_t width = jpeg.info().image_width, height = jpeg.info().image_height;
    const bool swapped = swapsSides(jpeg.orientation());
    return {swapped ? height : width, swapped ? width : height, dotsPerInch(jpeg.info())};
}

} // namespace ovik::JPEGCodec
