#include "OvikCompositor/SourceProblem.h"

#include <cerrno>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/media/MediaError.h"

namespace ovik {
namespace {

std::string_view fileKey(int code) {
    switch (code) {
    case ENOENT:
    case ENOTDIR: return "compositor.source.missing";
    case EISDIR:
    case ENXIO: return "compositor.source.notAFile";
    case EACCES:
    case EPERM: return "compositor.source.permission";
    default: return "compositor.source.unreadable";
    }
}

} // namespace

std::string sourceProblem(const PackagePath& path, const std::exception& error) {
    std::string_view key = "compositor.source.damaged";
    if (const auto* file = dynamic_cast<const PosixError*>(&error)) key = fileKey(file->code());
    else if (const auto* media = dynamic_cast<const MediaError*>(&error); media && media->kind() == MediaError::Kind::failed)
        key = "compositor.source.failed";
    return L10n::format(key, {path.printable()});
}

} // namespace ovik
