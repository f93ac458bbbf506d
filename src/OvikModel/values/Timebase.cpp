#include "OvikModel/values/Timebase.h"

namespace ovik {

MediaDuration Timebase::duration() const {
    if (is<still>()) return as<still>().value;
    const std::vector<SourceRange>& segments = as<recording>().segments;
    return segments.empty() ? MediaDuration::zero() : MediaDuration{segments.back().end.microseconds};
}

} // namespace ovik
