#pragma once
// A command line that can't be run as given: a value of the wrong form or out of its range.
// The host prints the message with a pointer to the command's help and exits with status 2.
#include "OvikPlatform/Error.h"

namespace ovik::cli {

class UsageError : public Error {
public:
    using Error::Error;
};

} // namespace ovik::cli
