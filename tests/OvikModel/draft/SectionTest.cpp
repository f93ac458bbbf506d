#include <gtest/gtest.h>

#include "OvikModel/draft/Section.h"

namespace ovik {
namespace {

constexpr std::string_view head =
    R"({"id":"00000000-0000-0000-0000-00000000000C","media":"00000000-0000-0000-0000-00000000000A",)";

Section read(std::string_view keys) {
    return decodeJSON<Section>(std::string_view(std::string(head) + std::string(keys)));
}

std::string written(const Section& section) {
    JSONValue value = encodeJSON(section);
    value.object()->erase("id");
    value.object()->erase("media");
    return value.compact();
}

TEST(SectionLength, ParallelListsBecomeStretchesAndBack) {
    const Section section = read(R"("keptRanges":[{"start":0,"end":10},{"start":10,"end":20},{"start":30,"end":40}],)"
                                 R"("rates":[1,2,1],"autoRates":[1,7],"resumes":[2],)"
                                 R"("freezes":[{"at":15,"duration":5},{"at":40,"duration":3}]})");
    const auto& stretches = section.length.as<Section::Length::kept>().value;
    ASSERT_EQ(stretches.size(), 6u);
    // The freeze at 15 splits the second range; its right half joins the freeze without a cut.
    EXPECT_EQ(stretches[1].range.end, SourceTime{15});
    EXPECT_EQ(stretches[1].origin, SpeedOrigin::auto_);
    EXPECT_EQ(stretches[2], KeptStretch::freeze(SourceTime{15}, MediaDuration{5}));
    EXPECT_EQ(stretches[3].range.start, SourceTime{15});
    EXPECT_EQ(stretches[3].rate, 2);
    EXPECT_TRUE(stretches[3].resumes);
    EXPECT_TRUE(stretches[4].resumes);
    EXPECT_TRUE(stretches[5].isFreeze());
    EXPECT_EQ(written(section), R"({"autoRates":[1,2],"freezes":[{"at":15,"duration":5},{"at":40,"duration":3}],)"
                                R"("keptRanges":[{"end":10,"start":0},{"end":15,"start":10},{"end":20,"start":15},)"
                                R"({"end":40,"start":30}],"rates":[1,2,2,1],"resumes":[2,3]})");
}

TEST(SectionLength, WritesOnlyWhatDiffersFromPlainPlaying) {
    const std::pair<const char*, const char*> cases[] = {
        {R"("keptRanges":[{"start":0,"end":5}],"rates":[1],"autoRates":[],"freezes":[]})",
         R"({"keptRanges":[{"end":5,"start":0}]})"},
        // A still ignores the kept lists, which are lost on the next save.
        {R"("stillDuration":7,"keptRanges":"ignored","rates":[1,2]})", R"({"stillDuration":7})"},
        {R"("stillDuration":null,"keptRanges":[]})", R"({"keptRanges":[]})"},
    };
    for (const auto& [keys, expected] : cases) EXPECT_EQ(written(read(keys)), expected) << keys;
}

TEST(SectionLength, ASpeedThatSaysNothingIsDroppedAndNeverWritten) {
    const char* identities[] = {R"({})", R"({"keys":[{"at":0,"rate":1},{"at":9,"rate":1,"curve":"linear"}]})"};
    for (const char* speed : identities) {
        const Section section = read(std::string(R"("stillDuration":1,"speed":)") + speed + "}");
        EXPECT_FALSE(section.speed.has_value()) << speed;
    }
    Section section = read(R"("stillDuration":1})");
    section.speed = SectionSpeed{};
    EXPECT_EQ(written(section), R"({"stillDuration":1})");

    const Section sorted = read(R"("stillDuration":1,"speed":{"keys":[{"at":9,"rate":2},{"at":1,"rate":1}]}})");
    EXPECT_EQ(encodeJSON(*sorted.speed).compact(),
              R"({"holds":[],"keys":[{"at":1,"rate":1},{"at":9,"rate":2}],"reversed":false})");
}

} // namespace
} // namespace ovik
