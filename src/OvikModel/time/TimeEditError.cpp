#include "OvikModel/time/TimeEditError.h"

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

const char* messageKey(TimelineEditError reason) {
    return reason == TimelineEditError::nothingThere ? "model.timeEdit.nothingThere"
                                                     : "model.timeEdit.wouldRemoveEverything";
}
const char* messageKey(RetimeError reason) {
    return reason == RetimeError::notARecording ? "model.timeEdit.notARecording" : "model.timeEdit.alreadyFrozen";
}
const char* messageKey(SectionSpeedError reason) {
    return reason == SectionSpeedError::cannotReverse ? "model.timeEdit.cannotReverse" : "model.timeEdit.outOfRange";
}

} // namespace

TimeEditError::TimeEditError(Reason reason)
    : Error(L10n::text(std::visit([](auto r) { return messageKey(r); }, reason))), reason_(reason) {}

} // namespace ovik
