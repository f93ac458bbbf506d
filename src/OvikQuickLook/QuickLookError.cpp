#include "OvikQuickLook/QuickLookError.h"

#include "OvikL10n/L10n.h"

namespace ovik {

QuickLookFailure::QuickLookFailure(std::string cause)
    : Error(L10n::text("quicklook.error.unreadable")), cause_(std::move(cause)) {}

} // namespace ovik
