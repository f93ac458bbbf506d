#pragma once
// The one failure a thumbnail host ever sees: the package can't be read. The cause is
// dropped on purpose; a host has nothing to show of it.
#include "OvikPlatform/Error.h"

namespace ovik {

enum class QuickLookError { unreadable };

class QuickLookFailure : public Error {
public:
    QuickLookFailure();
    QuickLookError error() const { return QuickLookError::unreadable; }
};

} // namespace ovik
