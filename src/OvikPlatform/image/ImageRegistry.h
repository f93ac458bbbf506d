#pragma once
// The one table of image filters and kernels by name. Filters keep their platform names
// ("CIGaussianBlur", "CIBlendWithRedMask", ...) and their named inputs ("inputImage",
// "inputRadius", ...); kernels bear their own ("ovikDarken", ...). Adding one is one call;
// the table is safe to use from any thread.
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "OvikPlatform/image/FilterDefinition.h"
#include "OvikPlatform/image/ImageKernel.h"

namespace ovik {

class ImageRegistry {
public:
    /// The process-wide table, the built-in filters and kernels in it.
    static ImageRegistry& shared();

    /// A table holding the built-in filters and kernels.
    ImageRegistry();

    /// Throws `ImageError::duplicateName` when a filter or kernel already has the name.
    void add(FilterDefinition filter);
    void add(ImageKernel kernel);

    /// Throws `ImageError::unknownFilter`, or whatever the filter throws about its inputs.
    Image applyFilter(const std::string& name, const FilterInputs& inputs) const;
    /// Throws `ImageError::unknownKernel`.
    ImageKernel kernel(const std::string& name) const;
    /// In byte order.
    std::vector<std::string> filterNames() const;

private:
    void checkFree(const std::string& name) const;

    mutable std::mutex lock_;
    std::map<std::string, FilterDefinition> filters_;
    std::map<std::string, ImageKernel> kernels_;
};

} // namespace ovik
