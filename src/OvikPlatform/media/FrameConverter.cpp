#include "OvikPlatform/media/FrameConverter.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <utility>

#include "OvikPlatform/codecs/ImageOrientation.h"
#include "OvikPlatform/codecs/Premultiply.h"
#include "OvikPlatform/media/MediaError.h"

namespace ovik {
namespace {

struct Size {
    std::int64_t width, height;
};

Size fitted(Size shown, std::optional<std::int64_t> maxLongSide) {
    const std::int64_t longSide = std::max(shown.width, shown.height);
    if (!maxLongSide || longSide <= *maxLongSide) return shown;
    const double scale = double(*maxLongSide) / double(longSide);
    const auto side = [&](std::int64_t length) { return std::max<std::int64_t>(1, std::llround(length * scale)); };
    return {side(shown.width), side(shown.height)};
}

bool hasAlpha(int format) {
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(AVPixelFormat(format));
    return descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_ALPHA);
}

} // namespace

// libswscale's context for one source size and format and one output size, and the colour
// details it was last told.
struct FrameConverter::Scaler {
    SwsContext* context = nullptr;
    int colorspace = -1;
    int fullRange = -1;

    ~Scaler() { sws_freeContext(context); }

    void prepare(const AVFrame& frame, Size scaled) {
        // Bit-exact arithmetic: the same frame gives the same bitmap on every machine.
        SwsContext* const cached = sws_getCachedContext(context, frame.width, frame.height, AVPixelFormat(frame.format),
                                                        int(scaled.width), int(scaled.height), AV_PIX_FMT_RGBA,
                                                        SWS_BILINEAR | SWS_ACCURATE_RND | SWS_BITEXACT, nullptr,
                                                        nullptr, nullptr);
        if (!cached) throw MediaError(MediaError::Kind::failed, "The video frame's pixel format can't be converted");
        const int range = frame.color_range == AVCOL_RANGE_JPEG;
        if (cached == context && frame.colorspace == colorspace && range == fullRange) return;
        context = cached;
        colorspace = frame.colorspace;
        fullRange = range;
        sws_setColorspaceDetails(context, sws_getCoefficients(colorspace), fullRange,
                                 sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, 1 << 16, 1 << 16);
    }
};

FrameConverter::FrameConverter(std::optional<std::int64_t> maxLongSide)
    : maxLongSide_(maxLongSide), scaler_(std::make_unique<Scaler>()) {}

FrameConverter::~FrameConverter() = default;
FrameConverter::FrameConverter(FrameConverter&&) noexcept = default;
FrameConverter& FrameConverter::operator=(FrameConverter&&) noexcept = default;

CGImage FrameConverter::convert(const DecodedFrame& decoded) {
    const AVFrame& frame = *decoded.picture;
    const ImageOrientation orientation = orientationOfTurns(decoded.turns);
    const bool swapped = swapsSides(orientation);
    const Size shown = swapped ? Size{frame.height, frame.width} : Size{frame.width, frame.height};
    const Size out = fitted(shown, maxLongSide_);
    // Scaled as stored, turned afterwards: a turn is a cheap copy, a scale is not.
    const Size scaled = swapped ? Size{out.height, out.width} : out;
    scaler_->prepare(frame, scaled);

    const std::int64_t bytesPerRow = scaled.width * 4;
    std::vector<std::uint8_t> pixels(std::size_t(bytesPerRow * scaled.height));
    std::uint8_t* const planes[4] = {pixels.data(), nullptr, nullptr, nullptr};
    const int strides[4] = {int(bytesPerRow), 0, 0, 0};
    sws_scale(scaler_->context, frame.data, frame.linesize, 0, frame.height, planes, strides);
    if (hasAlpha(frame.format)) premultiply(pixels);
    return oriented(CGImage(scaled.width, scaled.height, bytesPerRow, std::move(pixels)), orientation);
}

} // namespace ovik
