#pragma once
// A movie or a picture that couldn't be read. The platform layer has no text table: `what()`
// is the decoder's own text (or a plain English one of ours), and the layers above word it for
// a person from `kind` and `path`.
#include <filesystem>
#include <string>

#include "OvikPlatform/Error.h"

namespace ovik {

class MediaError : public Error {
public:
    enum class Kind {
        /// The file is missing, isn't a movie or picture, or its data is damaged.
        unreadable,
        /// The decoder failed while reading, e.g. it stopped answering.
        failed,
        /// The caller cancelled the read.
        cancelled,
        /// The movie has no video to read.
        empty,
    };

    MediaError(Kind kind, std::string text, std::filesystem::path path = {})
        : Error(std::move(text)), kind_(kind), path_(std::move(path)) {}

    Kind kind() const { return kind_; }
    /// The file concerned, when the error names one.
    const std::filesystem::path& path() const { return path_; }

private:
    Kind kind_;
    std::filesystem::path path_;
};

} // namespace ovik
