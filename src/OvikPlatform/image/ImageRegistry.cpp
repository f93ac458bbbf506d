#include "OvikPlatform/image/ImageRegistry.h"

#include "OvikPlatform/image/BuiltInFilters.h"

namespace ovik {

ImageRegistry& ImageRegistry::shared() {
    static ImageRegistry registry;
    return registry;
}

ImageRegistry::ImageRegistry() {
    addCompositingFilters(*this);
    addColorFilters(*this);
    addBlurFilters(*this);
    addGeneratorFilters(*this);
    addGeometryFilters(*this);
}

void ImageRegistry::checkFree(const std::string& name) const {
    if (filters_.count(name) || kernels_.count(name)) throw ImageError::duplicateName(name);
}

void ImageRegistry::add(FilterDefinition filter) {
    std::lock_guard guard(lock_);
    checkFree(filter.name);
    const std::string name = filter.name;
    filters_.emplace(name, std::move(filter));
}

void ImageRegistry::add(ImageKernel kernel) {
    std::lock_guard guard(lock_);
    checkFree(kernel.name());
    kernels_.emplace(kernel.name(), std::move(kernel));
}

// The definition is copied out, so that building runs outside the lock.
Image ImageRegistry::applyFilter(const std::string& name, const FilterInputs& inputs) const {
    const FilterDefinition filter = [&] {
        std::lock_guard guard(lock_);
        const auto found = filters_.find(name);
        if (found == filters_.end()) throw ImageError::unknownFilter(name);
        return found->second;
    }();
    return filter.apply(inputs);
}

ImageKernel ImageRegistry::kernel(const std::string& name) const {
    std::lock_guard guard(lock_);
    const auto found = kernels_.find(name);
    if (found == kernels_.end()) throw ImageError::unknownKernel(name);
    return found->second;
}

std::vector<std::string> ImageRegistry::filterNames() const {
    std::lock_guard guard(lock_);
    std::vector<std::string> names;
    for (const auto& entry : filters_) names.push_back(entry.first);
    return names;
}

} // namespace ovik
