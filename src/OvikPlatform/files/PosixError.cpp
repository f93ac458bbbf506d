#include "OvikPlatform/files/PosixError.h"

#include <cerrno>
#include <cstring>

namespace ovik {
namespace {

// EHWPOISON is the highest code the C library knows.
int knownCode(int code) { return code > 0 && code <= EHWPOISON ? code : EIO; }

// strerrordesc_np doesn't follow the locale, so the text is the same on every machine.
std::string describe(int code, const std::filesystem::path& path) {
    return std::string(strerrordesc_np(code)) + ": " + path.string();
}

} // namespace

PosixError::PosixError(int code, std::filesystem::path path)
    : Error(describe(knownCode(code), path)), code_(knownCode(code)), path_(std::move(path)) {}

PosixError PosixError::fromErrno(const std::filesystem::path& path) { return PosixError(errno, path); }

} // namespace ovik
