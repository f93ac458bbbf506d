#pragma once
// What a render adds beyond the draft itself: for now, the watermark.
#include <optional>

#include "OvikModel/keys/Watermark.h"

namespace ovik {

struct RenderOptions {
    std::optional<Watermark> watermark;

    static RenderOptions none() { return {}; }
    bool operator==(const RenderOptions&) const = default;
};

} // namespace ovik
