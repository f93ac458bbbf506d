#include <gtest/gtest.h>

#include "OvikModel/style/Theme.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

using testing::expectRefused;

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
    EXPECT_EQ(theme.number(TokenKind::radius, "round"), 12);
    EXPECT_EQ(theme.number(TokenKind::size, "round"), std::nullopt);
    EXPECT_EQ(theme.number(TokenKind::color, "强调"), std::nullopt);
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
    const std::pair<TokenKind, TokenValue> misfits[] = {
        {TokenKind::color, TokenValue::makeNumber(1)},
        {TokenKind::font, TokenValue::makeColor({})},
        {TokenKind::size, TokenValue::makeFont({})},
        {TokenKind::radius, TokenValue::makeColor({})},
    };
    for (const auto& [kind, value] : misfits) EXPECT_FALSE(theme.upsert(kind, "x", value)) << caseName(kind);
    EXPECT_EQ(theme, before);
}

TEST(Theme, RenameNeedsAFreeNameAndRemoveAnExistingOne) {
    Theme theme = Theme::neutral();
    EXPECT_FALSE(theme.rename(TokenKind::size, "正文", "标题"));
    EXPECT_FALSE(theme.rename(TokenKind::size, "正文", "正文"));
    EXPECT_FALSE(theme.rename(TokenKind::size, "missing", "new"));
    EXPECT_TRUE(theme.rename(TokenKind::size, "正文", "body"));
    EXPECT_EQ(theme.names(TokenKind::size)[1], "body");
    EXPECT_EQ(theme.names(TokenKind::font)[1], "正文"); // other kinds keep the name
    EXPECT_TRUE(theme.remove(TokenKind::size, "body"));
    EXPECT_FALSE(theme.remove(TokenKind::size, "body"));
    EXPECT_EQ(theme.sizes.size(), 4u);
}

TEST(TokenRefs, EachSlotIsItsOwnKeyAndKind) {
    const std::pair<TokenSlot, TokenKind> kinds[] = {
        {TokenSlot::color, TokenKind::color}, {TokenSlot::fill, TokenKind::color},
        {TokenSlot::background, TokenKind::color}, {TokenSlot::font, TokenKind::font},
        {TokenSlot::size, TokenKind::size}, {TokenSlot::cornerRadius, TokenKind::radius},
        {TokenSlot::padding, TokenKind::spacing},
    };
    for (const auto& [slot, kind] : kinds) {
        TokenRefs refs;
        EXPECT_TRUE(refs.isEmpty());
        refs[slot] = "t";
        EXPECT_FALSE(refs.isEmpty());
        EXPECT_EQ(encodeJSON(refs).compact(), "{\"" + std::string(caseName(slot)) + "\":\"t\"}");
        EXPECT_EQ(tokenKind(slot), kind) << caseName(slot);
    }
    expectRefused<TokenRefs>({R"({"fill":3})", DecodingError::Kind::typeMismatch, "fill"});
}

} // namespace
} // namespace ovik
