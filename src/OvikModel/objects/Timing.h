#pragma once
// The stretch of source time during which an object is shown; without an end it lasts to the
// end of its media.
#include <optional>

#include "OvikModel/values/Times.h"

namespace ovik {

struct Timing {
    /// The length a new object is given.
    static constexpr MediaDuration defaultLength = MediaDuration::fromMilliseconds(3000);

    SourceTime start;
    std::optional<SourceTime> end;

    bool operator==(const Timing&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("start", &Timing::start), optional("end", &Timing::end)};
    }
};

} // namespace ovik
