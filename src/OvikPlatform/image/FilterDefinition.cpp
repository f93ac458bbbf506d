#include "OvikPlatform/image/FilterDefinition.h"

#include <algorithm>

namespace ovik {

Image FilterDefinition::apply(const FilterInputs& given) const {
    for (const auto& [key, value] : given.values()) {
        const auto declared = std::find_if(inputs.begin(), inputs.end(), [&](const Input& i) { return i.name == key; });
        if (declared == inputs.end()) throw ImageError::unknownInput(name, key);
        if (value.kind() != declared->kind)
            throw ImageError::wrongInputType(name, key, FilterValue::describe(declared->kind));
        if (!value.isFinite()) throw ImageError::invalidParameter(name, "“" + key + "” must be finite numbers");
    }
    std::map<std::string, FilterValue> values;
    for (const Input& input : inputs) {
        const auto found = given.values().find(input.name);
        if (found != given.values().end())
            values.emplace(input.name, found->second);
        else if (input.fallback)
            values.emplace(input.name, *input.fallback);
        else
            throw ImageError::missingInput(name, input.name);
    }
    return build(FilterArguments(name, std::move(values)));
}

} // namespace ovik
