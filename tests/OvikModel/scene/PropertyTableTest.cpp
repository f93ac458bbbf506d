#include <gtest/gtest.h>

#include "OvikModel/draft/CameraOverlay.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/StillLayout.h"
#include "OvikModel/draft/ZoomSettings.h"
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
    const Case cases[] = {
        {PropertyKey::position(), {K::number, 0}}, {PropertyKey::depth(), {K::number, 2}},
        {PropertyKey::scale(), {K::number, 3}},    {PropertyKey::color(), {K::color, 0}},
        {PropertyKey::text(), {K::latest, 0}},     {PropertyKey::path(), {K::latest, 2}},
        {PropertyKey::become(), {K::latest, 3}},   {PropertyKey::backTint(), {K::color, 1}},
        {PropertyKey::fontWeight(), {K::fontAxis, 0}}, {PropertyKey::effect(), {K::effect, 0}},
        {PropertyKey::param(), {K::param, 0}},
    };
    for (const Case& c : cases) EXPECT_EQ(c.key.slot().store, c.store) << c.key.name();
    EXPECT_EQ(PropertyTable::restNumbers()[0], 0); // position
    EXPECT_EQ(PropertyTable::restNumbers()[std::size_t(PropertyKey::opacity().slot().store.index)], 1);
    EXPECT_EQ(PropertyKey::opacity().slot().composition, PropertyComposition::multiplicative);
    EXPECT_EQ(PropertyKey::named("name")->slot().rank, -1);
    EXPECT_EQ(PropertyKey::position().slot().rank, 0);
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
    // The core, and gradient, arrangement, back face, becoming, lens, font, material, effect and
    // generator rows.
    EXPECT_EQ(PropertyTable::animatable().size(), 20u + 1 + 2 + 2 + 1 + 5 + 4 + 3 + 1 + 1);
}

// A choice over a stored enumeration must offer exactly the enumeration's words.
template <class E>
void expectWordsOf(std::string_view row) {
    const auto cases = enumCases(static_cast<E*>(nullptr));
    std::vector<std::string> names;
    for (const auto& [value, name] : cases.cases) names.emplace_back(name);
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
}

} // namespace
} // namespace ovik
