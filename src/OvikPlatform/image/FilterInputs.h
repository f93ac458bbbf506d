#pragma once
// The inputs handed to a filter, by name: "inputImage", "inputRadius", ...
#include <initializer_list>
#include <map>
#include <string>

#include "OvikPlatform/image/FilterValue.h"

namespace ovik {

class FilterInputs {
public:
    FilterInputs() = default;
    FilterInputs(std::initializer_list<std::pair<const std::string, FilterValue>> values) : values_(values) {}

    /// Sets or replaces one input.
    void set(const std::string& name, FilterValue value) { values_.insert_or_assign(name, std::move(value)); }
    const std::map<std::string, FilterValue>& values() const { return values_; }

private:
    std::map<std::string, FilterValue> values_;
};

} // namespace ovik
