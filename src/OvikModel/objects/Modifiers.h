#pragma once
// What turns one object into parts: a split, copies, or an arrangement along a shape.
#include <optional>

#include "OvikModel/objects/Arrange.h"
#include "OvikModel/objects/Repeat.h"
#include "OvikModel/objects/Split.h"

namespace ovik {

struct Modifiers {
    std::optional<Split> split;
    std::optional<Repeat> repeating;
    std::optional<Arrange> arrange;

    bool operator==(const Modifiers&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{optional("split", &Modifiers::split), optional("repeating", &Modifiers::repeating),
                          optional("arrange", &Modifiers::arrange)};
    }
};

} // namespace ovik
