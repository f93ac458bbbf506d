#include <gtest/gtest.h>

#include "OvikModel/draft/CameraOverlay.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/StillLayout.h"
#include "OvikModel/draft/ZoomSettings.h"
#include "OvikModel/objects/Annotation.h"
#include "OvikModel/objects/InkTexture.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik {
namespace {

TEST(PropertyTable, StoresFollowTheOrderOfAnimatedRows) {
    using K = PropertyStore::Kind;
    struct Case {
        PropertyKey key;
        PropertyStore store;
    };
    // A vector takes two number places; colours and latest values have lists of their own.
    const Case cases[] = {
        {PropertyKey::position(), {K::number, 0}}, {PropertyKey::depth(), {K::number, 2}},
        {PropertyKey::color(), {K::color, 0}},     {PropertyKey::backTint(), {K::color, 1}},
        {PropertyKey::text(), {K::latest, 0}},     {PropertyKey::become(), {K::latest, 3}},
        {PropertyKey::fontWeight(), {K::fontAxis, 0}}, {PropertyKey::effect(), {K::effect, 0}},
        {PropertyKey::param(), {K::param, 0}},
    };
    for (const Case& c : cases) EXPECT_EQ(c.key.slot().store, c.store) << c.key.name();
    // Multiplied places rest at 1, added ones at 0.
    EXPECT_EQ(PropertyTable::restNumbers()[0], 0);
    EXPECT_EQ(PropertyTable::restNumbers()[std::size_t(PropertyKey::opacity().slot().store.index)], 1);
    EXPECT_EQ(PropertyKey::named("name")->slot().rank, -1);
    EXPECT_LT(PropertyKey::opacity().slot().rank, PropertyKey::path().slot().rank);
}

TEST(PropertyTable, NamesAnswerAsTheirKindAllows) {
    EXPECT_EQ(PropertyKey::anyName("cursorPoint"), PropertyKey::cursorPoint());
    EXPECT_EQ(PropertyKey::anyName("cursor.point"), PropertyKey::cursorPoint());
    EXPECT_EQ(PropertyKey::action("orbit"), PropertyKey::orbit());
    EXPECT_EQ(PropertyKey::anyName("lens.orbit"), PropertyKey::orbit());
    EXPECT_FALSE(PropertyKey::anyName("padding"));
    EXPECT_EQ(PropertyKey::inGroup(PropertyGroup::style, "padding")->name(), "style.padding");
    EXPECT_FALSE(PropertyKey::action("hidden")); // not animated
}

// A choice over a stored enumeration must offer exactly the enumeration's words, in order.
template <class E>
void expectWordsOf(std::string_view row) {
    std::vector<std::string> names;
    for (const auto& [value, name] : enumCases(static_cast<E*>(nullptr)).cases) names.emplace_back(name);
    EXPECT_EQ(PropertyKey::named(row)->spec().words, names) << row;
}

TEST(PropertyTable, ChoiceWordsAreTheStoredNames) {
    expectWordsOf<CursorLook>("cursor.look");
    expectWordsOf<ClickEffect>("cursor.clickEffect");
    expectWordsOf<ZoomSpeed>("zoom.settings.speed");
    expectWordsOf<CameraCorner>("camera.corner");
    expectWordsOf<CameraShape>("camera.shape");
    expectWordsOf<StillLayoutMode>("layout.mode");
    expectWordsOf<InkTextureKind>("style.newInk");
    expectWordsOf<LinePattern>("pattern");
    expectWordsOf<ArrowBody>("body");
    expectWordsOf<ArrowHeads>("heads");
    expectWordsOf<CornerStyle>("corner");
    expectWordsOf<TextAlignment>("alignment");
    expectWordsOf<RedactMode>("mode");
    expectWordsOf<SpotlightShape>("shape");
    expectWordsOf<InkTextureKind>("ink");
    // The one vocabulary that lists its words in an order of its own.
    EXPECT_EQ(PropertyKey::named("bevelProfile")->spec().words, (std::vector<std::string>{"round", "flat"}));
}

} // namespace
} // namespace ovik
