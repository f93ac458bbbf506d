#pragma once
// A filter's inputs once checked against its declaration, as a filter's builder reads them:
// each input is there and of its declared kind, and every number in it is finite.
#include <map>
#include <string>

#include "OvikPlatform/image/FilterValue.h"
#include "OvikPlatform/image/ImageError.h"

namespace ovik {

class FilterArguments {
public:
    FilterArguments(std::string filter, std::map<std::string, FilterValue> values)
        : filter_(std::move(filter)), values_(std::move(values)) {}

    double number(const std::string& name) const { return get<double>(name); }
    /// The number, which must be `minimum` or more.
    double number(const std::string& name, double minimum) const;
    CGPoint point(const std::string& name) const { return get<CGPoint>(name); }
    CGRect rect(const std::string& name) const { return get<CGRect>(name); }
    Vector4 vector(const std::string& name) const { return get<Vector4>(name); }
    ImageColor color(const std::string& name) const { return get<ImageColor>(name); }
    CGAffineTransform transform(const std::string& name) const { return get<CGAffineTransform>(name); }
    Image image(const std::string& name) const { return get<Image>(name); }

    /// An `ImageError::invalidParameter` of this filter.
    ImageError invalid(const std::string& detail) const { return ImageError::invalidParameter(filter_, detail); }

private:
    template <class T>
    const T& get(const std::string& name) const {
        const auto found = values_.find(name);
        if (found == values_.end()) throw ImageError::missingInput(filter_, name);
        return std::get<T>(found->second.value());
    }

    std::string filter_;
    std::map<std::string, FilterValue> values_;
};

} // namespace ovik
