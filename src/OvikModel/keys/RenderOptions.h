#pragma once
// What a render adds on top of the draft itself: for now the watermark. Two options are equal
// when their watermarks are.
#include <optional>

#include "OvikModel/keys/Watermark.h"

namespace ovik {

struct RenderOptions {
    std::optional<Watermark> watermark;

    static RenderOptions none() { return RenderOptions{}; }

    bool operator==(const RenderOptions&) const = default;
};

} // namespace ovik
