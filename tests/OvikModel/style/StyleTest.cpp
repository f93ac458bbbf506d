#include <gtest/gtest.h>

#include "OvikModel/style/Style.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::expectRefused;

constexpr const char* originalJSON =
    R"({"aspect":"free","background":"none","cornerRadius":0,"deviceFrame":"none","padding":0,"shadow":0})";

Style busyStyle() {
    Style style;
    style.background = Background::makeSolid({1, 0.5, 0, 1});
    style.backgroundBlur = 12;
    style.padding = 40;
    style.cornerRadius = 10;
    style.shadow = 0.5;
    style.aspect = AspectRatio::makeRatio(16, 9);
    style.deviceFrame = DeviceFrame::iPhone;
    style.disabled = {StyleSection::shadow, StyleSection::background, StyleSection::look};
    style.look = decodeJSON<EffectStack>(std::string_view(R"({"entries":[{"primitive":"grain"}]})"));
    style.lookScope = LookScope::background;
    style.motionBlur = MotionBlur{};
    return style;
}

TEST(Style, OriginalLeavesOutEveryKeyThatHoldsItsDefault) {
    EXPECT_EQ(encodeJSON(Style::original()).compact(), originalJSON);
    EXPECT_EQ(decodeJSON<Style>(std::string_view(originalJSON)), Style::original());
}

TEST(Style, WritesEveryKeyAndDisabledSortedByName) {
    const Style style = busyStyle();
    EXPECT_EQ(encodeJSON(style).compact(),
              R"({"aspect":{"ratio":{"height":9,"width":16}},"background":{"solid":{"alpha":1,"blue":0,"green":0.5,)"
              R"("red":1}},"backgroundBlur":12,"cornerRadius":10,"deviceFrame":"iPhone",)"
              R"("disabled":["background","look","shadow"],"look":{"entries":[{"primitive":"grain"}]},)"
              R"("lookScope":"background","motionBlur":{"shutter":180},"padding":40,"shadow":0.5})");
    EXPECT_EQ(decodeJSON<Style>(encodeJSON(style)), style);
}

TEST(Style, DisabledReadsInAnyOrderAndFoldsRepeats) {
    const Style style = decodeJSON<Style>(std::string_view(
        R"({"aspect":"free","background":"none","cornerRadius":0,"deviceFrame":"none","padding":0,"shadow":0,)"
        R"("disabled":["shadow","background","shadow"]})"));
    EXPECT_EQ(style.disabled, (std::set{StyleSection::background, StyleSection::shadow}));
    EXPECT_EQ(encodeJSON(style).at("disabled")->compact(), R"(["background","shadow"])");
}

TEST(Style, RefusesAnUnknownBackground) {
    const std::string json = R"({"aspect":"free","background":{"ribbon":1},"cornerRadius":0,"deviceFrame":"none",)"
                             R"("padding":0,"shadow":0})";
    expectRefused<Style>({json.c_str(), DecodingError::Kind::dataCorrupted, "background", "Unknown case ribbon"});
}

TEST(Background, EachCaseHasItsTaggedForm) {
    const std::pair<const char*, Background> cases[] = {
        {R"("none")", Background::makeNone()},
        {R"("wallpaper")", Background{{}, Background::wallpaper{}}},
        {R"({"image":"backgrounds/a b.png"})", Background{{}, Background::image{{"backgrounds/a b.png"}}}},
        {R"({"missingImage":"Beach"})", Background{{}, Background::missingImage{"Beach"}}},
        {R"({"gradient":{"angleDegrees":45,"from":{"alpha":1,"blue":0,"green":0,"red":1},)"
         R"("to":{"alpha":0.5,"blue":1,"green":0,"red":0}}})",
         Background::makeGradient({{1, 0, 0, 1}, {0, 0, 1, 0.5}, 45})},
        {R"({"catalog":{"reference":{"mesh":"dawn"}}})",
         Background{{}, Background::catalog{{{}, BackgroundReference::mesh{"dawn"}}, std::nullopt}}},
        {R"({"catalog":{"image":"backgrounds/x.heic","reference":{"macOS":{"frame":2,"path":"/L/Sonoma.heic"}}}})",
         Background{{}, Background::catalog{{{}, BackgroundReference::macOS{"/L/Sonoma.heic", 2}},
                                            PackagePath{"backgrounds/x.heic"}}}},
    };
    for (const auto& [json, background] : cases) {
        EXPECT_EQ(encodeJSON(background).compact(), json);
        EXPECT_EQ(decodeJSON<Background>(std::string_view(json)), background) << json;
    }
}

TEST(Style, EffectiveTurnsDisabledSectionsBackToOriginal) {
    Style style = busyStyle();
    style.disabled = {StyleSection::background, StyleSection::padding, StyleSection::cornerRadius,
                      StyleSection::shadow, StyleSection::look};
    Style expected = Style::original();
    expected.aspect = style.aspect;
    expected.deviceFrame = style.deviceFrame;
    expected.motionBlur = style.motionBlur;
    EXPECT_EQ(style.effective(), expected);

    style.disabled = {StyleSection::padding};
    Style onlyPadding = busyStyle();
    onlyPadding.disabled.clear();
    onlyPadding.padding = 0;
    EXPECT_EQ(style.effective(), onlyPadding);
}

TEST(Style, IsChangedLooksAtOneSectionOnly) {
    const std::pair<void (*)(Style&), StyleSection> cases[] = {
        {[](Style& s) { s.background = Background{{}, Background::wallpaper{}}; }, StyleSection::background},
        {[](Style& s) { s.backgroundBlur = 3; }, StyleSection::background},
        {[](Style& s) { s.padding = 1; }, StyleSection::padding},
        {[](Style& s) { s.cornerRadius = 1; }, StyleSection::cornerRadius},
        {[](Style& s) { s.shadow = 1; }, StyleSection::shadow},
        {[](Style& s) { s.look = EffectStack{{Effect{EffectPrimitive::grain, {}}}}; }, StyleSection::look},
        {[](Style& s) { s.lookScope = LookScope::background; }, StyleSection::look},
    };
    for (const auto& [change, changed] : cases) {
        Style style;
        change(style);
        style.disabled = {changed}; // switching a section off doesn't make it the original
        for (StyleSection section : {StyleSection::background, StyleSection::padding, StyleSection::cornerRadius,
                                     StyleSection::shadow, StyleSection::look})
            EXPECT_EQ(style.isChanged(section), section == changed) << caseName(section);
    }
    Style other;
    other.aspect = AspectRatio::makeRatio(1, 1);
    other.deviceFrame = DeviceFrame::browser;
    EXPECT_FALSE(other.isChanged(StyleSection::background));
}

} // namespace
} // namespace ovik
