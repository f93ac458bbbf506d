#pragma once
// The one failure a thumbnail host ever sees: the package can't be read. Its message is that
// general sentence; the cause, in words for a person, rides along for hosts that tell it.
#include <string>

#include "OvikPlatform/Error.h"

namespace ovik {

enum class QuickLookError { unreadable };

class QuickLookFailure : public Error {
public:
    explicit QuickLookFailure(std::string cause = {});
    QuickLookError error() const { return QuickLookError::unreadable; }
    /// Why, localized; empty when there is nothing more to say.
    const std::string& cause() const { return cause_; }

private:
    std::string cause_;
};

} // namespace ovik
