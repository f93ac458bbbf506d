// A draft costs memory in proportion to its size, however large a record kept as opaque JSON
// grows (a song of many samples), and such a draft still writes back byte for byte.
#include <gtest/gtest.h>

#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "OvikModel/Draft.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/draft/DraftSamples.h"

namespace ovik::testing {
namespace {

// A draft whose music holds `count` one-digit numbers and a note with unsorted keys: the
// densest JSON there is, two bytes a value.
std::string draftWithSamples(int count) {
    std::string song = R"(,"music":{"seed":7,"note":{"voice":"lead/1","tie":[],"beat":0.25},"samples":[)";
    song.reserve(song.size() + 2 * std::size_t(count) + 2);
    for (int i = 0; i < count; ++i) {
        if (i > 0) song += ',';
        song += char('0' + i % 10);
    }
    song += "]}";
    return draftJSON(canvasMedia, stillSection, song);
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// How far the peak memory of a child process rises while it decodes `text`.
long decodingGrowthKilobytes(const std::string& text) {
    int channel[2];
    if (pipe(channel) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        const long before = peakKilobytes();
        const Draft draft = DraftJSON::decode<Draft>(text);
        const long growth = draft.music ? peakKilobytes() - before : -1;
        (void)!write(channel[1], &growth, sizeof growth);
        _exit(0);
    }
    close(channel[1]);
    long growth = -1;
    if (read(channel[0], &growth, sizeof growth) != sizeof growth) growth = -1;
    close(channel[0]);
    waitpid(child, nullptr, 0);
    return growth;
}

TEST(DraftMemory, DecodingABigOpaqueSongCostsMemoryInProportionToItsBytes) {
    const std::string text = draftWithSamples(10'000'000);
    const long growth = decodingGrowthKilobytes(text);
    ASSERT_GE(growth, 0);
    // The parser's own tape and index cost 12 bytes for each of these bytes; a generic value
    // per number cost 20 more.
    EXPECT_LT(double(growth) * 1024, 16.0 * double(text.size()))
        << growth / 1024 << " MiB for " << text.size() / (1 << 20) << " MiB of draft";
}

TEST(DraftMemory, ADraftWithABigOpaqueSongWritesBackByteForByte) {
    const std::string stored = DraftJSON::encode(DraftJSON::decode<Draft>(draftWithSamples(200'000)), true);
    EXPECT_NE(stored.find("\"note\" : {\n      \"beat\" : 0.25,\n      \"tie\" : [\n\n      ],"), std::string::npos);
    EXPECT_EQ(DraftJSON::encode(DraftJSON::decode<Draft>(stored), true), stored);
}

} // namespace
} // namespace ovik::testing
