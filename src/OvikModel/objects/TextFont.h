#pragma once
// The font of a text, by its names; `packageCopy` is the digest of the copy that the package
// keeps, when the text uses one. `TextFontChoice` is the font a new text starts with.
#include <optional>
#include <string>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct TextFont {
    std::string postScriptName;
    std::string family;
    std::string face;
    std::optional<std::string> packageCopy;

    bool operator==(const TextFont&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("postScriptName", &TextFont::postScriptName), required("family", &TextFont::family),
                          required("face", &TextFont::face), optional("packageCopy", &TextFont::packageCopy)};
    }
};

struct TextFontChoice {
    std::optional<TextFont> font;
    double tracking = 0;
    double lineSpacing = 1;

    bool operator==(const TextFontChoice&) const = default;
};

} // namespace ovik
