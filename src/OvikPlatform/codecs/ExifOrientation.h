#pragma once
// The orientation tag of an EXIF block, as a JPEG carries it in its APP1 segment.
#include <string_view>

#include "OvikPlatform/codecs/ImageOrientation.h"

namespace ovik {

/// The orientation in IFD0 of `segment`, the payload of an APP1 segment that starts with
/// "Exif\0\0". A segment that isn't EXIF, is damaged, or names no valid orientation gives `up`.
ImageOrientation exifOrientation(std::string_view segment);

} // namespace ovik
