#include "OvikPlatform/codecs/ExifOrientation.h"

#include "OvikPlatform/codecs/ByteFields.h"

namespace ovik {
namespace {

constexpr std::string_view exifHeader{"Exif\0\0", 6};
constexpr std::uint32_t orientationTag = 0x0112;
constexpr std::uint32_t shortType = 3;
constexpr std::size_t entrySize = 12;

} // namespace

ImageOrientation exifOrientation(std::string_view segment) {
    if (segment.substr(0, exifHeader.size()) != exifHeader) return ImageOrientation::up;
    // Offsets inside the block count from the TIFF header, which names the byte order.
    const std::string_view tiff = segment.substr(exifHeader.size());
    const std::string_view mark = tiff.substr(0, 2);
    if (mark != "II" && mark != "MM") return ImageOrientation::up;
    const ByteOrder order = mark == "MM" ? ByteOrder::bigEndian : ByteOrder::littleEndian;
    const auto ifd = readField(tiff, 4, 4, order);
    const auto count = ifd ? readField(tiff, *ifd, 2, order) : std::nullopt;
    if (!count) return ImageOrientation::up;
    for (std::uint32_t i = 0; i < *count; ++i) {
        const std::size_t entry = std::size_t(*ifd) + 2 + i * entrySize;
        const auto tag = readField(tiff, entry, 2, order), type = readField(tiff, entry + 2, 2, order);
        const auto value = readField(tiff, entry + 8, 2, order);
        if (!tag || !type || !value) break;
        if (*tag == orientationTag && *type == shortType && *value >= 1 && *value <= 8)
            return ImageOrientation(*value);
    }
    return ImageOrientation::up;
}

} // namespace ovik
