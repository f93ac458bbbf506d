#include "OvikPlatform/codecs/HEICCodec.h"

#include <libheif/heif.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "OvikPlatform/codecs/ByteFields.h"
#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/codecs/Premultiply.h"

namespace ovik::HEICCodec {
namespace {

constexpr std::array<std::string_view, 10> brands = {"heic", "heix", "heim", "heis", "hevc",
                                                     "hevx", "mif1", "msf1", "avif", "avis"};

struct ContextFree {
    void operator()(heif_context* context) const { heif_context_free(context); }
};
struct HandleRelease {
    void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
};
struct ImageRelease {
    void operator()(heif_image* image) const { heif_image_release(image); }
};
using Handle = std::unique_ptr<heif_image_handle, HandleRelease>;

void check(heif_error error, const char* what) {
    if (error.code != heif_error_Ok) throw ImageCodecError(std::string(what) + ": " + error.message);
}

// The file's boxes are parsed here; no picture is decoded yet. The context must outlive the
// handle, so both travel together.
struct PrimaryPicture {
    std::unique_ptr<heif_context, ContextFree> context{heif_context_alloc()};
    Handle handle;

    explicit PrimaryPicture(std::string_view bytes) {
        if (!hasSignature(bytes)) throw ImageCodecError("Not a HEIF file");
        check(heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr),
              "Unreadable HEIF file");
        heif_image_handle* primary = nullptr;
        check(heif_context_get_primary_image_handle(context.get(), &primary), "HEIF file without a picture");
        handle.reset(primary);
    }
    std::int64_t width() const { return heif_image_handle_get_width(handle.get()); }
    std::int64_t height() const { return heif_image_handle_get_height(handle.get()); }
};

} // namespace

bool hasSignature(std::string_view bytes) {
    if (slice(bytes, 4, 4) != "ftyp") return false;
    const std::string_view brand = slice(bytes, 8, 4);
    for (std::string_view known : brands)
        if (brand == known) return true;
    return false;
}

CGImage decode(std::string_view bytes) {
    const PrimaryPicture picture(bytes);
    const std::int64_t width = picture.width(), height = picture.height();
    ImageLimits::require(width, height, "HEIF");
    heif_image* decoded = nullptr;
    check(heif_decode_image(picture.handle.get(), &decoded, heif_colorspace_RGB, heif_chroma_interleaved_RGBA, nullptr),
          "Undecodable HEIF picture");
    const std::unique_ptr<heif_image, ImageRelease> image(decoded);
    int stride = 0;
    const std::uint8_t* plane = heif_image_get_plane_readonly(image.get(), heif_channel_interleaved, &stride);
    if (!plane || heif_image_get_width(image.get(), heif_channel_interleaved) != width ||
        heif_image_get_height(image.get(), heif_channel_interleaved) != height)
        throw ImageCodecError("Undecodable HEIF picture: no pixels of the announced size");
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4));
    for (std::int64_t y = 0; y < height; ++y)
        std::memcpy(&pixels[std::size_t(y * width * 4)], plane + y * stride, std::size_t(width * 4));
    if (!heif_image_handle_is_premultiplied_alpha(picture.handle.get())) premultiply(pixels);
    return CGImage(width, height, width * 4, std::move(pixels));
}

ImageProperties properties(std::string_view bytes) {
    const PrimaryPicture picture(bytes);
    return {picture.width(), picture.height()};
}

} // namespace ovik::HEICCodec
