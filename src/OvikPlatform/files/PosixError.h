#pragma once
// A failed system call on a file: the errno code and the path it concerned. Like a decoding
// error it carries data; the layers above word it for a person through the text table, and
// what() is the system's own plain description.
#include <filesystem>

#include "OvikPlatform/Error.h"

namespace ovik {

class PosixError : public Error {
public:
    /// A code that isn't a known errno value becomes EIO.
    PosixError(int code, std::filesystem::path path);

    /// The error of the call that just failed, from `errno`.
    static PosixError fromErrno(const std::filesystem::path& path);

    int code() const { return code_; }
    const std::filesystem::path& path() const { return path_; }

private:
    int code_;
    std::filesystem::path path_;
};

} // namespace ovik
