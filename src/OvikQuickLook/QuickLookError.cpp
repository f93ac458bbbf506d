#include "OvikQuickLook/QuickLookError.h"

#include "OvikL10n/L10n.h"

namespace ovik {

QuickLookFailure::QuickLookFailure() : Error(L10n::text("quicklook.error.unreadable")) {}

} // namespace ovik
