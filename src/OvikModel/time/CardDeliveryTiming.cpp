#include "OvikModel/time/CardDeliveryTiming.h"

#include <map>

#include "OvikModel/time/StageTiming.h"

namespace ovik {
namespace {

std::map<DraftID, StageTiming>& pending() {
    static std::map<DraftID, StageTiming> timings;
    return timings;
}

} // namespace

void CardDeliveryTiming::created(DraftID id) { pending().insert_or_assign(id, StageTiming("draftCreated-card-add")); }

void CardDeliveryTiming::added(DraftID id) {
    const auto found = pending().find(id);
    if (found == pending().end()) return;
    found->second.end();
    pending().erase(found);
}

} // namespace ovik
