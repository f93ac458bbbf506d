#pragma once
// Times how long a new draft takes from its creation to its card being added to the list of
// drafts. Process-wide; only the main thread may call it.
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct CardDeliveryTiming {
    /// Starts the stopwatch "draftCreated-card-add" for `id`.
    static void created(DraftID id);
    /// Ends and forgets the stopwatch of `id`; nothing when none runs.
    static void added(DraftID id);
};

} // namespace ovik
