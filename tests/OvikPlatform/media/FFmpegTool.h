#pragma once
// The ffmpeg command-line tool as a test oracle: it makes the movies and pictures that the
// readers are tested on, and decodes frames independently of them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "OvikPlatform/image/CGImage.h"

namespace ovik::testing {

/// Runs `ffmpeg` with `arguments` (quiet, overwriting) and reports whether it succeeded.
inline bool runFFmpeg(const std::string& arguments) {
    return std::system(("ffmpeg -nostdin -v error -y " + arguments + " </dev/null").c_str()) == 0;
}

inline std::string fileBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

/// The first frame ffmpeg decodes from `movie` (display matrix applied), optionally through a
/// filter and after input options such as "-ss 0.5" (the first frame starting at or after
/// 0.5 s), as an opaque RGBA bitmap of `width` × `height`.
inline CGImage oracleFrame(const std::filesystem::path& movie, std::int64_t width, std::int64_t height,
                           const std::string& filter = "", const std::string& inputOptions = "") {
    const std::filesystem::path raw = movie.string() + ".oracle.rgba";
    const std::string vf = filter.empty() ? "" : " -vf " + filter;
    EXPECT_TRUE(runFFmpeg(inputOptions + " -i " + movie.string() + vf + " -frames:v 1 -f rawvideo -pix_fmt rgba " +
                          raw.string()));
    std::string bytes = fileBytes(raw);
    std::filesystem::remove(raw);
    bytes.resize(std::size_t(width * height * 4));
    return CGImage(width, height, width * 4, std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

} // namespace ovik::testing
