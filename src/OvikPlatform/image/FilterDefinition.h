#pragma once
// A filter as registered: its name, the inputs it takes (each of one kind, with the value it
// takes when left out, if it may be), and how it builds its image from them.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "OvikPlatform/image/FilterArguments.h"
#include "OvikPlatform/image/FilterInputs.h"

namespace ovik {

struct FilterDefinition {
    struct Input {
        std::string name;
        FilterValue::Kind kind;
        std::optional<FilterValue> fallback = std::nullopt;
    };

    std::string name;
    std::vector<Input> inputs;
    std::function<Image(const FilterArguments&)> build;

    /// Checks `given` against the declared inputs, then builds. Throws `ImageError` for an
    /// input not declared, one of the wrong kind, a number that isn't finite, or a missing
    /// input that has no fallback.
    Image apply(const FilterInputs& given) const;
};

} // namespace ovik
