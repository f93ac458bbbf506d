// A recording whose movie was cut off (its index whole, its frames ending early) renders the
// moments it still holds, and a moment past its end is an error, never the last frame again.
#include <gtest/gtest.h>

#include <filesystem>

#include "OvikPlatform/files/TemporaryFolder.h"
#include "OvikPlatform/media/FFmpegTool.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

using CutOffMovie = TemporaryFolder;

TEST_F(CutOffMovie, AMomentPastWhereTheMovieStopsIsAnErrorAndNothingIsWritten) {
    const fs::path package = folder / "recording.ovikwork", out = folder / "out.png";
    fs::copy(fs::path(OVIK_EXAMPLES) / "recording.ovikwork", package, fs::copy_options::recursive);
    const fs::path movie = fs::directory_iterator(package / "media")->path(), whole = folder / "whole.mov";
    // The index moved to the front, so that the movie still opens once its tail is gone.
    ASSERT_TRUE(runFFmpeg("-i '" + movie.string() + "' -c copy -movflags +faststart '" + whole.string() + "'"));
    fs::copy_file(whole, movie, fs::copy_options::overwrite_existing);
    const auto render = [&](const char* at) {
        return runOvik({"render", package.string(), "--at", at, "--output", out.string()}, {"OVIK_LANGUAGE=en"});
    };
    // Whole, its last frame shows up to the film's last microsecond.
    ASSERT_EQ(render("3999999").status, 0);

    fs::resize_file(movie, fs::file_size(movie) * 4 / 10);
    ASSERT_EQ(render("500000").status, 0);
    fs::remove(out);
    const CommandResult past = render("3500000");
    EXPECT_EQ(past.status, 1);
    EXPECT_EQ(past.err, "A picture or movie of the draft can't be read: media/" + movie.filename().string() +
                            " ends before this moment: the movie is cut off\n");
    EXPECT_FALSE(fs::exists(out));
}

} // namespace
} // namespace ovik::testing
