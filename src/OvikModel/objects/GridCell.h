#pragma once
// The cell of the draft's layout grid that an object keeps to. `row` is written even at its
// default, so a stored cell always says both its column and its row.
#include <cstdint>

#include "OvikModel/objects/SpreadRecord.h"

namespace ovik {

enum class GridAlign { topLeft, top, topRight, left, center, right, bottomLeft, bottom, bottomRight };
constexpr auto enumCases(GridAlign*) {
    using enum GridAlign;
    return EnumCases<GridAlign, 9>{"GridAlign",
                                   {{topLeft, "topLeft"},
                                    {top, "top"},
                                    {topRight, "topRight"},
                                    {left, "left"},
                                    {center, "center"},
                                    {right, "right"},
                                    {bottomLeft, "bottomLeft"},
                                    {bottom, "bottom"},
                                    {bottomRight, "bottomRight"}}};
}

struct GridCellFields {
    std::int64_t column = 1;
    std::int64_t span = 1;
    std::int64_t rows = 1;
    GridAlign align = GridAlign::center;

    bool operator==(const GridCellFields&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("column", &GridCellFields::column), defaulted("span", &GridCellFields::span),
                          defaulted("rows", &GridCellFields::rows), defaulted("align", &GridCellFields::align)};
    }
};

struct GridCell : GridCellFields {
    std::int64_t row = 1;

    bool operator==(const GridCell&) const = default;

    using Declared = GridCellFields;
    struct Spread {
        static void encode(const GridCell& cell, JSONValue::Object& object) { encodeAlways(object, "row", cell.row); }
        static void decode(GridCell& cell, JSONNode node, const CodingPath& path) {
            decodeIfPresent(node, "row", path, cell.row);
        }
    };
};

template <>
struct JSONCoding<GridCell> : SpreadRecordCoding<GridCell> {};

} // namespace ovik
