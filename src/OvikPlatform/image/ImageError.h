#pragma once
// The one error the image layer throws: a bad recipe (unknown filter or kernel, a missing,
// unknown or ill-typed input, a parameter out of range) or a render that can't be done (a
// rectangle that is empty, infinite or too large).
#include <string>

#include "OvikPlatform/Error.h"

namespace ovik {

class ImageError : public Error {
public:
    enum class Kind {
        unknownFilter,
        unknownKernel,
        duplicateName,
        missingInput,
        unknownInput,
        wrongInputType,
        invalidParameter,
        invalidRenderRect,
        renderTooLarge,
    };

    ImageError(Kind kind, std::string message) : Error(std::move(message)), kind_(kind) {}
    Kind kind() const noexcept { return kind_; }

    static ImageError unknownFilter(const std::string& name);
    static ImageError unknownKernel(const std::string& name);
    static ImageError duplicateName(const std::string& name);
    static ImageError missingInput(const std::string& owner, const std::string& input);
    static ImageError unknownInput(const std::string& owner, const std::string& input);
    static ImageError wrongInputType(const std::string& owner, const std::string& input, const std::string& expected);
    static ImageError invalidParameter(const std::string& owner, const std::string& detail);
    static ImageError invalidRenderRect(const std::string& detail);
    static ImageError renderTooLarge(const std::string& detail);

private:
    Kind kind_;
};

} // namespace ovik
