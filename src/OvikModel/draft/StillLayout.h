#pragma once
// How the stills of a draft of several media are laid out. `auto` is a keyword, so that mode
// is `auto_` here ("auto" in JSON). Both keys may be absent on reading; both are written.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

enum class StillLayoutMode { auto_, row, column, grid };

constexpr auto enumCases(StillLayoutMode*) {
    using Mode = StillLayoutMode;
    return EnumCases<Mode, 4>{
        "StillLayoutMode", {{Mode::auto_, "auto"}, {Mode::row, "row"}, {Mode::column, "column"}, {Mode::grid, "grid"}}};
}

struct StillLayout {
    StillLayoutMode mode = StillLayoutMode::auto_;
    /// Points between neighbouring stills.
    double gap = 16;

    bool operator==(const StillLayout&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("mode", &StillLayout::mode), writtenAlways("gap", &StillLayout::gap)};
    }
};

} // namespace ovik
