#include <gtest/gtest.h>

#include <cmath>

#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/style/AnnotationTokens.h"
#include "OvikModel/style/StyleOption.h"

namespace ovik {
namespace {

using enum AnnotationKind;

TEST(AnnotationTokens, WritesATextsFieldsAndKeepsItsSizeInBounds) {
    const RGBA blue{0, 0, 1, 1};
    const FontRole role{TextFont{"Inter-Bold", "Inter", "Bold", std::nullopt}, FontWeight::bold};
    Annotation note = AnnotationDefaults::standard().text({10, 10}, "Hi");
    applyToken(note, TokenSlot::color, TokenValue::makeColor(blue));
    applyToken(note, TokenSlot::background, TokenValue::makeColor({1, 1, 1, 1}));
    applyToken(note, TokenSlot::font, TokenValue::makeFont(role));
    const auto& text = note.as<Annotation::text>().value;
    EXPECT_EQ(text.color, blue);
    EXPECT_EQ(text.background, (RGBA{1, 1, 1, 1}));
    EXPECT_EQ(text.font, role.font);
    EXPECT_EQ(text.weight, FontWeight::bold);

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
