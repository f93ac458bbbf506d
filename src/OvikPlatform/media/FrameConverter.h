#pragma once
// Decoded video frames to upright premultiplied RGBA bitmaps through libswscale: colour
// conversion and any downscaling in one pass, then the display matrix's quarter turns. The
// scaler is kept between frames of one size and format.
#include <cstdint>
#include <memory>
#include <optional>

#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/media/DecodedFrame.h"

namespace ovik {

class FrameConverter {
public:
    /// With `maxLongSide`, pictures whose shown long side is longer are scaled down to it,
    /// keeping their shape; none are enlarged.
    explicit FrameConverter(std::optional<std::int64_t> maxLongSide);
    ~FrameConverter();
    FrameConverter(FrameConverter&&) noexcept;
    FrameConverter& operator=(FrameConverter&&) noexcept;

    /// YUV is read with the matrix and range the frame is tagged with (BT.601 when untagged),
    /// scaled bilinearly with bit-exact arithmetic, so that every machine makes the same
    /// bitmap. Throws `MediaError` failed when the frame's format can't be converted.
    CGImage convert(const DecodedFrame& frame);

private:
    struct Scaler;
    std::optional<std::int64_t> maxLongSide_;
    std::unique_ptr<Scaler> scaler_;
};

} // namespace ovik
