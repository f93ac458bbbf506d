#pragma once
// A text laid out from its origin; with a formula style, the text is a formula and its terms
// may have their own colours.
#include <optional>
#include <string>

#include "OvikPlatform/geometry/CGPoint.h"
#include "OvikModel/objects/FontAxes.h"
#include "OvikModel/objects/FormulaStyle.h"
#include "OvikModel/objects/TextFont.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

enum class FontWeight { regular, medium, semibold, bold };
constexpr auto enumCases(FontWeight*) {
    using enum FontWeight;
    return EnumCases<FontWeight, 4>{"FontWeight",
                                    {{regular, "regular"}, {medium, "medium"}, {semibold, "semibold"}, {bold, "bold"}}};
}

enum class TextAlignment { leading, center, trailing };
constexpr auto enumCases(TextAlignment*) {
    using enum TextAlignment;
    return EnumCases<TextAlignment, 3>{"TextAlignment",
                                       {{leading, "leading"}, {center, "center"}, {trailing, "trailing"}}};
}

struct TextAnnotation {
    CGPoint origin;
    std::string string;
    double fontSize = 0;
    FontWeight weight = FontWeight::regular;
    TextAlignment alignment = TextAlignment::leading;
    RGBA color;
    std::optional<RGBA> background;
    std::optional<TextFont> font;
    double tracking = 0;
    double lineSpacing = 1;
    std::optional<FormulaStyle> formula;
    bool vertical = false;
    FontAxes axes;

    bool operator==(const TextAnnotation&) const = default;
    static constexpr auto jsonFields() {
        using T = TextAnnotation;
        return std::tuple{required("origin", &T::origin),
                          required("string", &T::string),
                          required("fontSize", &T::fontSize),
                          required("weight", &T::weight),
                          required("alignment", &T::alignment),
                          required("color", &T::color),
                          optional("background", &T::background),
                          optional("font", &T::font),
                          defaulted("tracking", &T::tracking),
                          defaulted("lineSpacing", &T::lineSpacing),
                          optional("formula", &T::formula),
                          defaulted("vertical", &T::vertical),
                          defaulted("axes", &T::axes)};
    }
};

} // namespace ovik
