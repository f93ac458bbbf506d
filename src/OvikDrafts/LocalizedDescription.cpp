#include "OvikDrafts/LocalizedDescription.h"

#include <cerrno>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/json/DecodingError.h"

namespace ovik {
namespace {

std::string placeText(const std::vector<CodingKey>& path) {
    const std::string text = codingPathText(path);
    return text.empty() ? L10n::text("drafts.decoding.topLevel") : text;
}

// A missing key is named, and placed in the object that lacks it.
std::string describeMissingKey(const std::vector<CodingKey>& path) {
    if (path.empty()) return L10n::format("drafts.decoding.keyNotFound", {std::string(), placeText(path)});
    const std::vector<CodingKey> parent(path.begin(), path.end() - 1);
    return L10n::format("drafts.decoding.keyNotFound", {path.back().key, placeText(parent)});
}

// The parser's own reasons and a number's digits (up to 309 of them) tell a person nothing.
std::string describeDamage(const DecodingError& error, const std::string& place) {
    switch (error.damage()) {
    case DecodingError::Damage::notJSON: return L10n::text("drafts.decoding.notJSON");
    case DecodingError::Damage::numberOutOfRange: return L10n::format("drafts.decoding.numberOutOfRange", {place});
    case DecodingError::Damage::described: break;
    }
    return L10n::format("drafts.decoding.dataCorrupted", {place, error.debugDescription()});
}

std::string describe(const DecodingError& error) {
    const std::string place = placeText(error.codingPath());
    switch (error.kind()) {
    case DecodingError::Kind::keyNotFound: return describeMissingKey(error.codingPath());
    case DecodingError::Kind::valueNotFound: return L10n::format("drafts.decoding.valueNotFound", {place});
    case DecodingError::Kind::typeMismatch: return L10n::format("drafts.decoding.typeMismatch", {place});
    case DecodingError::Kind::dataCorrupted: return describeDamage(error, place);
    }
    return error.what();
}

std::string_view fileMessageKey(int code) {
    switch (code) {
    case ENOENT:
    case ENOTDIR: return "drafts.files.noSuchFile";
    case EACCES:
    case EPERM: return "drafts.files.permission";
    case EEXIST:
    case ENOTEMPTY: return "drafts.files.exists";
    case EISDIR: return "drafts.files.isFolder";
    case ENOSPC:
    case EDQUOT: return "drafts.files.noSpace";
    case EROFS: return "drafts.files.readOnly";
    case ENXIO: return "drafts.files.notAFile";
    case EFBIG: return "drafts.files.tooLarge";
    default: return "drafts.files.failed";
    }
}

std::string describe(const PosixError& error) {
    return L10n::format(fileMessageKey(error.code()), {error.path().filename().string(), std::int64_t(error.code())});
}

std::string describe(const EncodingError& error) {
    return L10n::format("drafts.encoding.notFinite", {placeText(error.codingPath())});
}

} // namespace

std::string localizedDescription(const std::exception& error) {
    if (const auto* decoding = dynamic_cast<const DecodingError*>(&error)) return describe(*decoding);
    if (const auto* encoding = dynamic_cast<const EncodingError*>(&error)) return describe(*encoding);
    if (const auto* file = dynamic_cast<const PosixError*>(&error)) return describe(*file);
    return error.what();
}

} // namespace ovik
