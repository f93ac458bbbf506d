#include "OvikModel/keys/BuiltInFormats.h"

#include <string_view>
#include <utility>

namespace ovik::BuiltInFormats {
namespace {

constexpr std::pair<std::string_view, std::string_view> extensions[] = {
    {"png", "png"},   {"jpeg", "jpg"},  {"mp4", "mp4"},        {"gif", "gif"},        {"webp", "webp"},
    {"apng", "png"},  {"livePhoto", "heic"}, {"prores4444", "mov"}, {"hevc-alpha", "mov"}, {"png-sequence", "png"},
};

} // namespace

std::string fileExtension(const ExportFormatID& format) {
    for (const auto& [id, extension] : extensions)
        if (id == format.rawValue) return std::string(extension);
    return format.rawValue;
}

ExportRequest defaultRequest(OutputKind kind) {
    ExportRequest request;
    request.size = ExportSize{{}, ExportSize::original{}};
    if (kind == OutputKind::screenshot) {
        request.format = ExportFormatID{"png"};
    } else {
        request.format = ExportFormatID{"mp4"};
        request.frameRate = 30;
    }
    return request;
}

} // namespace ovik::BuiltInFormats
