#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "OvikModel/ModelSamples.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/style/AnnotationTokens.h"
#include "OvikModel/style/DraftTheme.h"
#include "OvikModel/style/Style.h"
#include "OvikModel/style/StyleOption.h"
#include "OvikModel/style/Theme.h"
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

TEST(Background, EachCaseHasItsTaggedForm) {
    const std::pair<const char*, Background> cases[] = {
        {R"("none")", Background::makeNone()}, {R"("wallpaper")", Background{{}, Background::wallpaper{}}},
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

std::vector<double> values(const std::vector<ThemeToken<double>>& tokens) {
    std::vector<double> out;
    for (const auto& token : tokens) out.push_back(token.value);
    return out;
}

TEST(Theme, ScaleRoundsHalvesAwayFromZeroAroundTheBase) {
    const std::vector<std::string> five = {"a", "b", "c", "d", "e"};
    EXPECT_EQ(values(Theme::scale(20, 1.25, five, 1)), (std::vector<double>{16, 20, 25, 31, 39}));
    EXPECT_EQ(values(Theme::scale(10, 1.5, {"a", "b", "c"}, 0)), (std::vector<double>{10, 15, 23}));
    EXPECT_EQ(values(Theme::scale(-10, 1.5, {"a", "b"}, -1)), (std::vector<double>{-15, -23}));
    EXPECT_EQ(Theme::scale(20, 1.25, five, 1)[3].name, "d");
}

TEST(Theme, WritesOnlyItsListsAndReadsBack) {
    const Theme theme = Theme::neutral();
    EXPECT_EQ(decodeJSON<Theme>(encodeJSON(theme)), theme);
    EXPECT_EQ(encodeJSON(Theme{}).compact(), "{}");
    EXPECT_EQ(encodeJSON(theme).at("sizes")->compact(),
              R"([{"name":"小注","value":16},{"name":"正文","value":20},{"name":"小标题","value":25},)"
              R"({"name":"标题","value":31},{"name":"大标题","value":39}])");
    expectRefused<Theme>({R"({"radii":[{"name":"r"}]})", DecodingError::Kind::keyNotFound, "radii[0].value"});
}

TEST(Theme, ResolvesTheFirstTokenOfANameInTheKindsList) {
    Theme theme = Theme::neutral();
    theme.sizes.push_back({"正文", 99});
    theme.spacing = {{"正文", 8}};
    theme.radii = {{"round", 12}};
    EXPECT_EQ(theme.size("正文"), 20);
    EXPECT_EQ(theme.number(TokenKind::spacing, "正文"), 8);
    EXPECT_EQ(theme.number(TokenKind::size, "round"), std::nullopt);
    EXPECT_EQ(theme.color("强调"), (RGBA{0.03922, 0.51765, 1, 1}));
    EXPECT_EQ(theme.color("正文"), std::nullopt);
    EXPECT_EQ(theme.font("标题")->weight, FontWeight::bold);
    EXPECT_EQ(theme.value(TokenKind::radius, "round"), TokenValue::makeNumber(12));
    EXPECT_EQ(theme.names(TokenKind::font), (std::vector<std::string>{"标题", "正文"}));
}

TEST(Theme, UpsertReplacesInPlaceAppendsAndRefusesTheWrongKind) {
    Theme theme = Theme::neutral();
    EXPECT_TRUE(theme.upsert(TokenKind::color, "次要色", TokenValue::makeColor({0, 0, 0, 1})));
    EXPECT_EQ(theme.names(TokenKind::color)[1], "次要色");
    EXPECT_EQ(theme.color("次要色"), (RGBA{0, 0, 0, 1}));
    EXPECT_TRUE(theme.upsert(TokenKind::spacing, "gap", TokenValue::makeNumber(6)));
    EXPECT_EQ(theme.spacing, (std::vector<ThemeToken<double>>{{"gap", 6}}));

    const Theme before = theme;
    EXPECT_FALSE(theme.upsert(TokenKind::color, "x", TokenValue::makeNumber(1)));
    EXPECT_FALSE(theme.upsert(TokenKind::font, "x", TokenValue::makeColor({})));
    EXPECT_EQ(theme, before);
}

TEST(Theme, RenameNeedsAFreeNameAndRemoveAnExistingOne) {
    Theme theme = Theme::neutral();
    EXPECT_FALSE(theme.rename(TokenKind::size, "正文", "正文"));
    EXPECT_TRUE(theme.rename(TokenKind::size, "正文", "body"));
    EXPECT_EQ(theme.names(TokenKind::size)[1], "body");
    EXPECT_EQ(theme.names(TokenKind::font)[1], "正文"); // other kinds keep the name
    EXPECT_TRUE(theme.remove(TokenKind::size, "body"));
    EXPECT_FALSE(theme.remove(TokenKind::size, "body"));
    EXPECT_EQ(theme.sizes.size(), 4u);
}

const AnnotationDefaults defaults = AnnotationDefaults::standard();
const RGBA accent{0.03922, 0.51765, 1, 1};

const auto id = testing::objectID;

ObjectNode leaf(int n, Annotation annotation, std::optional<TokenRefs> refs = std::nullopt) {
    ObjectNode node = testing::leaf("n" + std::to_string(n), n, std::move(annotation));
    node.tokens = refs;
    return node;
}

TokenRefs follows(TokenSlot slot, std::string name) {
    TokenRefs refs;
    refs[slot] = std::move(name);
    return refs;
}

/// A neutral theme; a text (1) and an arrow (2) in a group (3), a rectangle (4) at the top.
Draft sample() {
    Draft draft;
    draft.theme = Theme::neutral();
    const ObjectNode group =
        testing::group("g", 3, {leaf(1, defaults.text({0, 0}, "a")), leaf(2, defaults.arrow({0, 0}, {9, 9}))});
    draft.objects = CowList<ObjectNode>({group, leaf(4, defaults.rectangle({{0, 0}, {9, 9}}))});
    return draft;
}

const TextAnnotation& textOf(const Draft& draft) {
    return node(draft.objects.items(), id(1))->annotation()->as<Annotation::text>().value;
}

TEST(DraftTheme, BindingAGroupFollowsWithItsLeavesAndWritesTheValue) {
    const Draft draft = bindToken(bindToken(sample(), TokenSlot::color, "强调", {id(3)}), TokenSlot::size, "标题", {id(1)});
    EXPECT_EQ(textOf(draft).color, accent);
    EXPECT_EQ(textOf(draft).fontSize, 31);
    EXPECT_EQ(node(draft.objects.items(), id(2))->annotation()->as<Annotation::arrow>().value.stroke.color, accent);
    EXPECT_FALSE(node(draft.objects.items(), id(3))->tokens.has_value()); // the group holds no annotation
    EXPECT_FALSE(tokens(draft, id(4)).has_value());
    EXPECT_EQ(commonToken(draft, {id(3)}, TokenSlot::color), "强调");
    EXPECT_EQ(commonToken(draft, {id(3)}, TokenSlot::size), std::nullopt); // only the text follows a size
    EXPECT_EQ(commonToken(draft, {id(3), id(4)}, TokenSlot::color), std::nullopt);
    EXPECT_EQ(tokenFollowers(draft), (TokenFollowers{{{TokenKind::color, "强调"}, 2}, {{TokenKind::size, "标题"}, 1}}));

    // Letting go keeps the value; an unknown name is not kept at all.
    const Draft detached = detachTokens(draft, TokenSlot::color, {id(1), id(2)});
    EXPECT_EQ(textOf(detached).color, accent);
    EXPECT_EQ(tokens(detached, id(1)), follows(TokenSlot::size, "标题"));
    EXPECT_FALSE(usesTokens(bindToken(sample(), TokenSlot::color, "紫", {id(4)})));
}

TEST(DraftTheme, ASlotTheKindLacksIsPassedOver) {
    Draft draft = sample();
    draft.objects = CowList<ObjectNode>({leaf(2, defaults.arrow({0, 0}, {9, 9}), follows(TokenSlot::fill, "强调"))});
    const Draft applied = applyTheme(draft);
    EXPECT_EQ(applied.objects, draft.objects);
    EXPECT_TRUE(usesTokens(applied));
}

TEST(DraftTheme, RemovingATokenLeavesFollowersWithItsValue) {
    Draft draft = bindToken(sample(), TokenSlot::color, "强调", {id(1)});
    draft = removeToken(*bindStyleToken(draft, TokenSlot::background, "强调"), TokenKind::color, "强调");
    EXPECT_EQ(textOf(draft).color, accent);
    EXPECT_EQ(draft.style.background, Background::makeSolid(accent));
    EXPECT_FALSE(usesTokens(draft));
    EXPECT_FALSE(draft.theme->style.has_value());
    EXPECT_EQ(draft.theme->names(TokenKind::color), (std::vector<std::string>{"正文色", "次要色", "底色"}));
}

TEST(DraftTheme, SetTokenTrimsUpsertsAndUpdatesFollowers) {
    Draft draft = bindToken(sample(), TokenSlot::color, "强调", {id(1)});
    draft = *setToken(draft, TokenKind::color, " 强调\u3000", TokenValue::makeColor({1, 0, 0, 1}));
    EXPECT_EQ(textOf(draft).color, (RGBA{1, 0, 0, 1}));
    EXPECT_EQ(draft.theme->colors.size(), 4u);

    draft = *setToken(draft, TokenKind::spacing, "gap", TokenValue::makeNumber(24));
    draft = *bindStyleToken(draft, TokenSlot::padding, "gap");
    draft = *setToken(draft, TokenKind::radius, "r", TokenValue::makeNumber(9));
    draft = *bindStyleToken(draft, TokenSlot::cornerRadius, "r");
    EXPECT_EQ(draft.style.padding, 24);
    EXPECT_EQ(draft.style.cornerRadius, 9);

    EXPECT_FALSE(setToken(draft, TokenKind::size, " \t\u3000", TokenValue::makeNumber(3)));
    EXPECT_FALSE(setToken(draft, TokenKind::size, "x", TokenValue::makeColor({})));
    // A draft without a theme gets one holding the token alone.
    EXPECT_EQ(setToken(Draft{}, TokenKind::size, "s", TokenValue::makeNumber(3))->theme->sizes,
              (std::vector<ThemeToken<double>>{{"s", 3}}));
}

TEST(DraftTheme, RenameFollowsOnlyTheTokensKind) {
    Draft draft = bindToken(sample(), TokenSlot::font, "正文", {id(1)});
    draft = bindToken(draft, TokenSlot::size, "正文", {id(1)});
    const Draft renamed = *renameToken(draft, TokenKind::size, "正文", " body ");
    TokenRefs expected = follows(TokenSlot::font, "正文");
    expected.size = "body";
    EXPECT_EQ(tokens(renamed, id(1)), expected);
    EXPECT_EQ(renamed.theme->names(TokenKind::size)[1], "body");
    EXPECT_FALSE(renameToken(draft, TokenKind::size, "正文", "标题"));
    EXPECT_FALSE(renameToken(draft, TokenKind::size, "missing", "x"));
    EXPECT_FALSE(renameToken(draft, TokenKind::size, "正文", "  "));
    EXPECT_FALSE(renameToken(Draft{}, TokenKind::size, "正文", "x"));
}

TEST(DraftTheme, StyleBindingIsRefusedOutsideItsSlotsAndNames) {
    const Draft draft = sample();
    EXPECT_FALSE(bindStyleToken(draft, TokenSlot::color, "强调"));
    EXPECT_FALSE(bindStyleToken(draft, TokenSlot::background, "标题"));
    EXPECT_FALSE(bindStyleToken(Draft{}, TokenSlot::padding, std::nullopt));
    const Draft bound = *bindStyleToken(draft, TokenSlot::background, "底色");
    EXPECT_EQ(bound.theme->style, follows(TokenSlot::background, "底色"));
    EXPECT_EQ(detachStyleToken(bound, TokenSlot::background).theme, draft.theme);
}

TEST(DraftTheme, RemovingTheThemeDropsEveryReferenceAndKeepsValues) {
    Draft draft = bindToken(sample(), TokenSlot::color, "强调", {id(1)});
    draft = *bindStyleToken(draft, TokenSlot::background, "强调");
    EXPECT_EQ(setTheme(draft, draft.theme), draft);
    const Draft plain = setTheme(draft, std::nullopt);
    EXPECT_FALSE(usesTokens(plain));
    EXPECT_EQ(textOf(plain).color, accent);
    EXPECT_EQ(plain.style.background, Background::makeSolid(accent));
}

using enum AnnotationKind;

TEST(AnnotationTokens, WritesATextsFieldsAndKeepsItsSizeInBounds) {
    const RGBA blue{0, 0, 1, 1};
    const FontRole role{TextFont{"Inter-Bold", "Inter", "Bold", std::nullopt}, FontWeight::bold};
    Annotation note = AnnotationDefaults::standard().text({10, 10}, "Hi");
    applyToken(note, TokenSlot::color, TokenValue::makeColor(blue));
    applyToken(note, TokenSlot::background, TokenValue::makeColor({1, 1, 1, 1}));
    applyToken(note, TokenSlot::font, TokenValue::makeFont(role));
    const auto& text = note.as<Annotation::text>().value;
    EXPECT_EQ(std::tie(text.color, text.background, text.font, text.weight),
              std::make_tuple(blue, RGBA{1, 1, 1, 1}, role.font, FontWeight::bold));

    const std::pair<double, double> sizes[] = {{31, 31}, {5000, 2000}, {1, 4}, {NAN, 4}, {INFINITY, 4}};
    for (const auto& [size, expected] : sizes) {
        applyToken(note, TokenSlot::size, TokenValue::makeNumber(size));
        EXPECT_EQ(note.as<Annotation::text>().value.fontSize, expected) << size;
    }
    // A value of another kind is passed over.
    const Annotation before = note;
    applyToken(note, TokenSlot::color, TokenValue::makeNumber(3));
    applyToken(note, TokenSlot::size, TokenValue::makeColor(blue));
    EXPECT_EQ(note, before);
}

TEST(AnnotationTokens, ShapesTakeOutlineAndFillButGrowNoOutline) {
    const RGBA green{0, 1, 0, 1};
    Annotation box = AnnotationDefaults::standard().rectangle({{0, 0}, {10, 10}});
    box.as<Annotation::rectangle>().value.paint = FillPaint::makeGradient({1, 0, 0, 1}, {0, 0, 1, 1}, 45);
    applyToken(box, TokenSlot::fill, TokenValue::makeColor(green));
    applyToken(box, TokenSlot::color, TokenValue::makeColor(green));
    EXPECT_EQ(box.as<Annotation::rectangle>().value.paint, FillPaint::makeColor(green));
    EXPECT_EQ(box.as<Annotation::rectangle>().value.stroke->color, green);

    box.as<Annotation::rectangle>().value.stroke.reset();
    applyToken(box, TokenSlot::color, TokenValue::makeColor({1, 0, 0, 1}));
    EXPECT_FALSE(box.as<Annotation::rectangle>().value.stroke.has_value());

    const Annotation sticker = AnnotationDefaults::standard().sticker({{0, 0}, {5, 5}}, PackagePath{"a.png"});
    Annotation copy = sticker;
    for (TokenSlot slot : allTokenSlots) applyToken(copy, slot, TokenValue::makeColor(green));
    EXPECT_EQ(copy, sticker);
}

TEST(StyleOption, SharedIsWhatEveryKindHas) {
    using enum StyleOption;
    const std::pair<std::vector<AnnotationKind>, std::set<StyleOption>> cases[] = {
        {{rectangle}, {pattern, fill, corner, shadow, halo}}, {{arrow, line}, {pattern, body, heads, shadow, halo}},
        {{rectangle, arrow, pen}, {pattern, shadow, halo}}, {{ellipse, path}, {pattern, fill, shadow, halo}},
        {{magnifier, pen}, {shadow}}, {{rectangle, text}, {}}, {{}, {}},
    };
    for (const auto& [kinds, options] : cases) EXPECT_EQ(shared(kinds), options) << kinds.size();
}

} // namespace
} // namespace ovik
