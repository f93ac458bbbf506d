#pragma once
// A property that can't be read or written: a bad value, a name that finds nothing, or a
// write the model refused. The message is final, localized text.
#include "OvikPlatform/Error.h"

namespace ovik {

class PropertyError : public Error {
public:
    enum class Kind { invalid, notFound, internalError };

    PropertyError(Kind kind, std::string message) : Error(std::move(message)), kind_(kind) {}
    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

} // namespace ovik
