#pragma once
// A picture file that can't be read or written. The platform layer has no text table: the
// description is the codec's own, and the layers above word it for a person.
#include "OvikPlatform/Error.h"

namespace ovik {

class ImageCodecError : public Error {
public:
    using Error::Error;
};

} // namespace ovik
