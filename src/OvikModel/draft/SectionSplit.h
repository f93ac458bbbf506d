#pragma once
// A section that shows panes side by side: each pane is a group of objects with the part of
// the picture it shows. `auto` is a keyword, so that axis is `auto_` here ("auto" in JSON).
#include <vector>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

struct SplitPane {
    ObjectID group;
    CGRect picture;

    bool operator==(const SplitPane&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("group", &SplitPane::group), required("picture", &SplitPane::picture)};
    }
};

struct SectionSplit {
    enum class Axis { auto_, side, stack };

    Axis axis = Axis::auto_;
    double gap = 0;
    bool fill = false;
    std::vector<SplitPane> panes;

    bool operator==(const SectionSplit&) const = default;
    static constexpr auto jsonFields();
};

constexpr auto enumCases(SectionSplit::Axis*) {
    using Axis = SectionSplit::Axis;
    return EnumCases<Axis, 3>{"Axis", {{Axis::auto_, "auto"}, {Axis::side, "side"}, {Axis::stack, "stack"}}};
}

constexpr auto SectionSplit::jsonFields() {
    return std::tuple{defaulted("axis", &SectionSplit::axis), defaulted("gap", &SectionSplit::gap),
                      defaulted("fill", &SectionSplit::fill), writtenAlways("panes", &SectionSplit::panes)};
}

} // namespace ovik
