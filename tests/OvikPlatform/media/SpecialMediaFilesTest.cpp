#include <gtest/gtest.h>

#include <functional>
#include <unistd.h>

#include "OvikPlatform/files/SpecialFiles.h"
#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/MediaError.h"
#include "OvikPlatform/media/MediaProbe.h"
#include "OvikPlatform/media/VideoFrames.h"

namespace ovik {
namespace {

namespace fs = std::filesystem;
using SpecialMediaFiles = testing::TemporaryFolder;

// Every reader of a movie or a picture refuses what isn't a plain file as unreadable, at once:
// not after the decoder's deadlines, and not by waiting for a writer that never comes.
TEST_F(SpecialMediaFiles, AreRefusedAtOnceAsUnreadable) {
    const auto flags = std::make_shared<ReadFlags>();
    flags->patience.wait = std::chrono::seconds(30); // a read that waits on its deadline fails by the alarm
    const std::pair<const char*, std::function<void(const fs::path&)>> readers[] = {
        {"movie probe", [](const fs::path& path) { (void)MediaProbe::movie(path); }},
        {"picture probe", [](const fs::path& path) { (void)MediaProbe::picture(path); }},
        {"frames", [&flags](const fs::path& path) { (void)VideoFrames(path, flags).frame({}); }},
    };
    ::alarm(20); // a reader that waits ends the run here instead of hanging it
    for (const testing::SpecialFile& special : testing::unreadableFiles) {
        const fs::path path = folder / "special.mov";
        fs::remove(path);
        special.make(path);
        for (const auto& [name, read] : readers) {
            try {
                read(path);
                ADD_FAILURE() << name << " read a " << special.name;
            } catch (const MediaError& error) {
                EXPECT_EQ(error.kind(), MediaError::Kind::unreadable) << name << ", " << special.name;
                EXPECT_EQ(error.path(), path) << name;
            }
        }
    }
    ::alarm(0);
}

// A playlist is a movie whose pictures are other files: opening them would escape the check
// of the one file named, so the movie is unreadable, whatever its parts are.
TEST_F(SpecialMediaFiles, AMovieThatNamesOtherFilesIsUnreadable) {
    testing::makeFifo(folder / "part.ts");
    const fs::path playlist = folder / "movie.mov";
    writeText(playlist, "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\npart.ts\n#EXT-X-ENDLIST\n");
    const auto flags = std::make_shared<ReadFlags>();
    flags->patience.wait = std::chrono::seconds(30);
    ::alarm(20);
    try {
        (void)VideoFrames(playlist, flags).frame({});
        ADD_FAILURE() << "read a playlist";
    } catch (const MediaError& error) {
        EXPECT_EQ(error.kind(), MediaError::Kind::unreadable) << error.what();
    }
    ::alarm(0);
}

} // namespace
} // namespace ovik
