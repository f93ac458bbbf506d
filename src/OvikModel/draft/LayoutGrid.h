#pragma once
// The guide grid of the canvas; sizes are fractions of the canvas. Every key may be absent on
// reading; all are written.
#include <cstdint>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct LayoutGrid {
    std::int64_t columns = 12;
    std::int64_t rows = 6;
    double gutter = 0.02;
    double margin = 0.05;
    double titleSafe = 0.1;
    double actionSafe = 0.05;

    bool operator==(const LayoutGrid&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("columns", &LayoutGrid::columns),
                          writtenAlways("rows", &LayoutGrid::rows),
                          writtenAlways("gutter", &LayoutGrid::gutter),
                          writtenAlways("margin", &LayoutGrid::margin),
                          writtenAlways("titleSafe", &LayoutGrid::titleSafe),
                          writtenAlways("actionSafe", &LayoutGrid::actionSafe)};
    }
};

} // namespace ovik
