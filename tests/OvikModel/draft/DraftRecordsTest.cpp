#include <gtest/gtest.h>

#include "OvikModel/Draft.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/DraftSamples.h"

namespace ovik {
namespace {

Draft read() { return decodeJSON<Draft>(std::string_view(testing::draftJSON())); }

TEST(DraftMemo, CopiesShareOneTableThatAnyOfThemClears) {
    const Draft draft = read();
    const Draft copy = draft;
    int made = 0;
    const auto make = [&] { return ++made; };
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<int>({"n"}, make), 1);
    EXPECT_EQ(*copy.memo.value<double>({"n"}, [] { return 2.5; }), 2.5); // another type is a miss
    copy.memo.clear();
    EXPECT_EQ(*draft.memo.value<int>({"n"}, make), 2);
    EXPECT_EQ(read(), draft); // not part of equality, and a loaded draft starts empty
    EXPECT_EQ(*read().memo.value<int>({"n"}, make), 3);
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
