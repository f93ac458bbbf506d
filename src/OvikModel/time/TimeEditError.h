#pragma once
// Why an edit of a draft's time was refused. The draft is left as it was. The reasons are
// plain values; the message words them for a person.
#include <variant>

#include "OvikPlatform/Error.h"

namespace ovik {

enum class TimelineEditError { nothingThere, wouldRemoveEverything };
enum class RetimeError { notARecording, alreadyFrozen };
enum class SectionSpeedError { cannotReverse, outOfRange };

class TimeEditError : public Error {
public:
    using Reason = std::variant<TimelineEditError, RetimeError, SectionSpeedError>;

    explicit TimeEditError(Reason reason);

    const Reason& reason() const { return reason_; }

private:
    Reason reason_;
};

} // namespace ovik
