#pragma once
// The frame round a capture: background, inset, corners, shadow, aspect, device, look.
// A default-made `Style` is `Style::original()`, the style that changes nothing, so the keys
// left out when they hold their default are left out exactly when they say nothing.
#include <optional>
#include <set>

#include "OvikModel/effects/EffectStack.h"
#include "OvikModel/style/AspectRatio.h"
#include "OvikModel/style/Background.h"
#include "OvikModel/style/DeviceFrame.h"
#include "OvikModel/style/LookScope.h"
#include "OvikModel/style/MotionBlur.h"
#include "OvikModel/style/StyleSection.h"

namespace ovik {

/// A set of sections written as a list sorted by name, whatever order it was read in.
struct StyleSectionSetCoding {
    static JSONValue encode(const std::set<StyleSection>& sections);
    static std::set<StyleSection> decode(JSONNode node, const CodingPath& path);
};

struct Style {
    Background background;
    double backgroundBlur = 0;
    double padding = 0;
    double cornerRadius = 0;
    double shadow = 0;
    AspectRatio aspect;
    DeviceFrame deviceFrame = DeviceFrame::none;
    /// Sections that are off: their values stay stored but have no effect.
    std::set<StyleSection> disabled;
    EffectStack look;
    LookScope lookScope = LookScope::all;
    std::optional<MotionBlur> motionBlur;

    /// The style of a capture as it was taken.
    static Style original() { return Style{}; }

    /// This style with the sections in `disabled` turned back to their original values.
    Style effective() const;
    /// Whether the section differs from the original style.
    bool isChanged(StyleSection section) const;
    /// This style with one section at its original values (what is stored in `disabled` stays).
    Style resetting(StyleSection section) const;

    bool operator==(const Style&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("background", &Style::background),
                          defaulted("backgroundBlur", &Style::backgroundBlur),
                          required("padding", &Style::padding),
                          required("cornerRadius", &Style::cornerRadius),
                          required("shadow", &Style::shadow),
                          required("aspect", &Style::aspect),
                          required("deviceFrame", &Style::deviceFrame),
                          defaulted<StyleSectionSetCoding>("disabled", &Style::disabled),
                          defaulted("look", &Style::look),
                          defaulted("lookScope", &Style::lookScope),
                          optional("motionBlur", &Style::motionBlur)};
    }
};

} // namespace ovik
