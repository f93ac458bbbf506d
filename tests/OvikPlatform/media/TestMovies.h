#pragma once
// Movies made by the ffmpeg tool for the media tests, once per test run, in a temporary
// folder that goes when the run ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <string>

#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/MediaError.h"

namespace ovik::testing {

class TestMovies {
public:
    /// Three seconds at 10 frames a second, 64 × 48, a key frame every 5 frames (so moving on
    /// by a second may seek): red for the first second, then green, then blue. The moov box
    /// comes last, as ffmpeg writes it.
    static std::filesystem::path colours() {
        return made("colours.mp4",
                    "-f lavfi -i \"color=c=red:s=64x48:r=10:d=1[a];color=c=lime:s=64x48:r=10:d=1[b];"
                    "color=c=blue:s=64x48:r=10:d=1[c];[a][b][c]concat=n=3:v=1:a=0\" "
                    "-c:v libx264 -g 5 -pix_fmt yuv420p");
    }

    /// One second of 64 × 48, red on the left half and blue on the right, whose display matrix
    /// turns it a quarter anticlockwise (three clockwise), with audio that starts at 0.5 s.
    static std::filesystem::path turned() {
        const std::filesystem::path upright = made(
            "halves.mp4", "-f lavfi -i \"color=c=red:s=64x48:r=10:d=1,drawbox=x=32:y=0:w=32:h=48:color=blue:t=fill\" "
                          "-itsoffset 0.5 -f lavfi -i sine=d=0.5 -c:v libx264 -pix_fmt yuv420p -c:a aac");
        return made("turned.mp4", "-i " + upright.string() + " -c copy -metadata:s:v:0 rotate=90");
    }

    /// One second of ffmpeg's moving test picture at 1920 × 1080 and 30 frames a second, with
    /// B-frames and a single key frame.
    static std::filesystem::path fullHD() {
        return made("hd.mp4", "-f lavfi -i testsrc2=size=1920x1080:rate=30 -t 1 -c:v libx264 -preset veryfast "
                              "-pix_fmt yuv420p");
    }

    /// A tenth of a second at 500 frames a second.
    static std::filesystem::path fast() {
        return made("fast.mp4", "-f lavfi -i color=c=gray:s=64x48:r=500:d=0.1 -c:v libx264 -pix_fmt yuv420p");
    }

    /// Half a second of red at half opacity, stored losslessly with straight alpha.
    static std::filesystem::path translucent() {
        return made("translucent.mov", "-f lavfi -i color=c=red@0.5:s=64x48:r=10:d=0.5,format=rgba -c:v png");
    }

    /// A single frame, 64 × 48.
    static std::filesystem::path oneFrame() {
        return made("one.mp4", "-f lavfi -i color=c=gray:s=64x48:r=10 -frames:v 1 -c:v libx264 -pix_fmt yuv420p");
    }

    /// A second of sound and no picture.
    static std::filesystem::path soundOnly() { return made("sound.m4a", "-f lavfi -i sine=d=1 -c:a aac"); }

    /// `bytes` written as `name` in the folder.
    static std::filesystem::path written(const std::string& name, const std::string& bytes) {
        const std::filesystem::path path = folder() / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

    static std::filesystem::path folder() {
        static const Folder shared;
        return shared.path;
    }

private:
    struct Folder {
        std::filesystem::path path;
        Folder() {
            std::string pattern = (std::filesystem::temp_directory_path() / "ovik-movies-XXXXXX").string();
            path = ::mkdtemp(pattern.data()) ? pattern : "";
        }
        ~Folder() {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
    };

    static std::filesystem::path made(const std::string& name, const std::string& arguments) {
        static std::mutex lock;
        const std::lock_guard guard(lock);
        const std::filesystem::path path = folder() / name;
        if (!std::filesystem::exists(path)) {
            EXPECT_TRUE(runFFmpeg(arguments + " " + path.string())) << name;
        }
        return path;
    }
};

/// Matches a call that throws a `MediaError` of `kind` naming the file at `path`.
inline auto throwsMediaError(MediaError::Kind kind, const std::filesystem::path& path) {
    return ::testing::Throws<MediaError>(
        ::testing::AllOf(::testing::Property(&MediaError::kind, kind), ::testing::Property(&MediaError::path, path)));
}

} // namespace ovik::testing
