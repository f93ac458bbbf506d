#include "OvikPlatform/image/ImageError.h"

namespace ovik {

ImageError ImageError::unknownFilter(const std::string& name) {
    return {Kind::unknownFilter, "No image filter is named “" + name + "”."};
}

ImageError ImageError::unknownKernel(const std::string& name) {
    return {Kind::unknownKernel, "No image kernel is named “" + name + "”."};
}

ImageError ImageError::duplicateName(const std::string& name) {
    return {Kind::duplicateName, "An image filter or kernel named “" + name + "” is already registered."};
}

ImageError ImageError::missingInput(const std::string& owner, const std::string& input) {
    return {Kind::missingInput, owner + " needs the input “" + input + "”."};
}

ImageError ImageError::unknownInput(const std::string& owner, const std::string& input) {
    return {Kind::unknownInput, owner + " has no input “" + input + "”."};
}

ImageError ImageError::wrongInputType(const std::string& owner, const std::string& input, const std::string& expected) {
    return {Kind::wrongInputType, owner + ": the input “" + input + "” must be " + expected + "."};
}

ImageError ImageError::invalidParameter(const std::string& owner, const std::string& detail) {
    return {Kind::invalidParameter, owner + ": " + detail};
}

ImageError ImageError::invalidRenderRect(const std::string& detail) {
    return {Kind::invalidRenderRect, "Can't render this rectangle: " + detail};
}

ImageError ImageError::renderTooLarge(const std::string& detail) {
    return {Kind::renderTooLarge, "The picture is too large to render: " + detail};
}

} // namespace ovik
