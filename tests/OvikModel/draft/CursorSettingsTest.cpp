#include <gtest/gtest.h>

#include "OvikModel/draft/CursorSettings.h"

namespace ovik {
namespace {

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
