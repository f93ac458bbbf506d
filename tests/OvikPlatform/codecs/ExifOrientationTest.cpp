#include <gtest/gtest.h>

#include "OvikPlatform/codecs/ExifOrientation.h"

namespace ovik {
namespace {

// An EXIF block in little-endian order: TIFF header, then IFD0 at offset 8 with the entries.
std::string littleEndianExif(const std::string& entries, char count) {
    return std::string("Exif\0\0II\x2A\0\x08\0\0\0", 14) + count + '\0' + entries;
}

std::string entry(char tagLow, char tagHigh, char type, char value) {
    return std::string{tagLow, tagHigh, type, '\0', '\1', '\0', '\0', '\0', value, '\0', '\0', '\0'};
}

TEST(ExifOrientation, ReadsTheTagOrFallsBackToUpright) {
    const std::string orientation6 = entry('\x12', '\x01', '\3', '\6');
    const std::string otherTag = entry('\x0F', '\x01', '\2', '\6');
    const struct {
        const char* name;
        std::string segment;
        ImageOrientation expected;
    } cases[] = {
        {"alone", littleEndianExif(orientation6, 1), ImageOrientation::right},
        {"after another tag", littleEndianExif(otherTag + entry('\x12', '\x01', '\3', '\x08'), 2),
         ImageOrientation::left},
        {"out of range", littleEndianExif(entry('\x12', '\x01', '\3', '\x09'), 1), ImageOrientation::up},
        {"not a short", littleEndianExif(entry('\x12', '\x01', '\4', '\6'), 1), ImageOrientation::up},
        {"count beyond the data", littleEndianExif(otherTag + orientation6.substr(0, 6), 2), ImageOrientation::up},
        {"IFD beyond the data", std::string("Exif\0\0II\x2A\0\xFF\0\0\0", 14), ImageOrientation::up},
        {"unknown byte order", std::string("Exif\0\0XX\x2A\0\x08\0\0\0\1\0", 16) + orientation6, ImageOrientation::up},
        {"not EXIF", "http://ns.adobe.com/xap/1.0/", ImageOrientation::up},
        {"empty", "", ImageOrientation::up},
    };
    for (const auto& c : cases) EXPECT_EQ(exifOrientation(c.segment), c.expected) << c.name;
}

} // namespace
} // namespace ovik
