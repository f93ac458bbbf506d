#pragma once
// What a draft was made from: stills only, or at least one recording.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class DraftKind { screenshot, recording };

constexpr auto enumCases(DraftKind*) {
    return EnumCases<DraftKind, 2>{"DraftKind",
                                   {{DraftKind::screenshot, "screenshot"}, {DraftKind::recording, "recording"}}};
}

} // namespace ovik
