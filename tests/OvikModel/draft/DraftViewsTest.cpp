#include <gtest/gtest.h>

#include <thread>

#include "OvikModel/Draft.h"
#include "OvikModel/draft/DraftSamples.h"

namespace ovik {
namespace {

using testing::draftJSON;

constexpr std::string_view recordingMedia =
    R"({"id":"00000000-0000-0000-0000-00000000000B","source":{"recording":{"segments":[],)"
    R"("pixelSize":{"height":1,"width":1},"frameRate":30,"area":{"displayID":1,"rect":[[0,0],[1,1]],"scale":1}}}})";

Draft read(const std::string& json) { return decodeJSON<Draft>(std::string_view(json)); }

TEST(Draft, KindsFollowTheMediaAndTheAnimationFlag) {
    const std::string both = std::string(testing::canvasMedia) + "," + std::string(recordingMedia);
    struct Case {
        std::string json;
        DraftKind kind;
        OutputKind output;
        bool timed;
    };
    const Case cases[] = {
        {draftJSON(), DraftKind::screenshot, OutputKind::screenshot, false},
        {draftJSON(testing::canvasMedia, testing::stillSection, R"(,"isAnimation":true)"), DraftKind::screenshot,
         OutputKind::animation, true},
        {draftJSON(both, testing::stillSection, R"(,"isAnimation":true)"), DraftKind::recording, OutputKind::recording,
         true},
    };
    for (const Case& c : cases) {
        const Draft draft = read(c.json);
        EXPECT_EQ(draft.kind(), c.kind) << c.json;
        EXPECT_EQ(draft.outputKind(), c.output) << c.json;
        EXPECT_EQ(draft.isTimed(), c.timed) << c.json;
    }
    // The primary media is the one the first section shows, wherever it stands.
    Draft draft = read(draftJSON(both));
    std::swap(draft.media.mutableItems()[0], draft.media.mutableItems()[1]);
    EXPECT_EQ(draft.primaryMediaIndex(), 1u);
    EXPECT_TRUE(draft.source().is<MediaSource::canvas>());
    draft.sections.mutableItems()[0].media = MediaID{};
    EXPECT_EQ(draft.primaryMediaIndex(), 0u);
}

TEST(Draft, CaptureAsIsNeedsOneMediaPlacedAsItIsAndNothingShown) {
    const std::string hiddenText =
        R"(,"objects":[{"id":"00000000-0000-0000-0000-000000000001","name":"g","isHidden":true,"isLocked":false,)"
        R"("content":{"group":[{"id":"00000000-0000-0000-0000-000000000002","name":"t","isHidden":false,)"
        R"("isLocked":false,"content":{"annotation":{"text":{"origin":[0,0],"string":"x","fontSize":9,)"
        R"("weight":"regular","alignment":"leading","color":{"alpha":1,"blue":0,"green":0,"red":0}}}}}]}}])";
    const Draft plain = read(draftJSON(testing::canvasMedia, testing::stillSection, hiddenText));
    EXPECT_TRUE(plain.isCaptureAsIs());

    std::vector<std::pair<const char*, Draft>> changed(5, {"", plain});
    changed[0].first = "shown object";
    changed[0].second.objects.mutableItems()[0].isHidden = false;
    changed[1].first = "moved";
    changed[1].second.media.mutableItems()[0].placement.rotation = 0.1;
    changed[2].first = "blended";
    changed[2].second.media.mutableItems()[0].blend = BlendMode::screen;
    changed[3].first = "padded";
    changed[3].second.style.padding = 4;
    changed[4].first = "two media";
    changed[4].second.media.mutableItems().push_back(plain.media[0]);
    for (const auto& [name, draft] : changed) EXPECT_FALSE(draft.isCaptureAsIs()) << name;

    // A blur counts only behind a picture; a disabled section counts as off.
    Draft blurred = plain;
    blurred.style.backgroundBlur = 8;
    EXPECT_TRUE(blurred.isCaptureAsIs());
    blurred.style.background = Background{{}, Background::wallpaper{}};
    EXPECT_FALSE(blurred.isCaptureAsIs());
    blurred.style.disabled = {StyleSection::background};
    EXPECT_TRUE(blurred.isCaptureAsIs());
}

TEST(Draft, TextsAreBoundToTheLaterCopyOfTheirFont) {
    Draft draft = read(testing::richDraftText());
    const auto font = [](const Draft& d) {
        const auto& group = *d.objects[0].content.children();
        return *group[0].annotation()->as<Annotation::text>().value.font;
    };
    ASSERT_EQ(font(draft).packageCopy, "dd44");
    draft.fonts.mutableItems()[1].sha256 = "9999";
    const Draft before = draft;
    const auto memoValue = draft.memo.value<int>({"probe"}, [] { return 1; });
    draft.bindPackageFonts();
    EXPECT_EQ(font(draft).packageCopy, "9999");
    EXPECT_EQ(font(before).packageCopy, "dd44"); // the copy that shared the tree keeps it
    EXPECT_NE(draft.memo.value<int>({"probe"}, [] { return 2; }), memoValue);
    // A text whose font the package doesn't keep is left alone.
    EXPECT_FALSE(draft.objects[1].annotation()->as<Annotation::text>().value.font->packageCopy.has_value());
}

TEST(DraftMemo, CopiesShareOneTableThatAnyOfThemClears) {
    const Draft draft = read(draftJSON());
    const Draft copy = draft;
    int made = 0;
    const auto make = [&] { return ++made; };
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<double>({"n"}, [] { return 2.5; }), 2.5); // another type is a miss
    copy.memo.clear();
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 2);
    EXPECT_EQ(read(draftJSON()), draft); // not part of equality, and a loaded draft starts empty
    EXPECT_EQ(*read(draftJSON()).memo.value<int>({"n"}, make), 3);

    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&draft, i] {
            for (int k = 0; k < 200; ++k) (void)draft.memo.value<int>({std::to_string(k % 7)}, [=] { return i; });
        });
    for (std::thread& thread : threads) thread.join();
}

TEST(CursorSettings, DrawnFallsBackToPlainWhereTheLookHasNoUse) {
    CursorSettings styled = CursorSettings::newRecording();
    styled.turnsWithMotion = false;
    styled.pointerColor = RGBA{0, 0, 1, 1};
    EXPECT_EQ(styled.drawn(), styled);

    CursorSettings dot = styled;
    dot.look = CursorLook::dot;
    CursorSettings expected = dot;
    expected.turnsWithMotion = true;
    expected.pointerColor = PointerPalette::standard;
    EXPECT_EQ(dot.drawn(), expected);

    CursorSettings off = styled;
    off.isStylingOff = true;
    off.isShown = false;
    CursorSettings hidden = CursorSettings::plain();
    hidden.isShown = false;
    EXPECT_EQ(off.drawn(), hidden);
}

} // namespace
} // namespace ovik
