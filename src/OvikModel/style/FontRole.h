#pragma once
// A font a theme names: a face (or the system's own when none) and a weight.
#include <optional>

#include "OvikModel/objects/TextAnnotation.h"
#include "OvikModel/objects/TextFont.h"

namespace ovik {

struct FontRole {
    std::optional<TextFont> font;
    FontWeight weight = FontWeight::regular;

    bool operator==(const FontRole&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{optional("font", &FontRole::font), required("weight", &FontRole::weight)};
    }
};

} // namespace ovik
