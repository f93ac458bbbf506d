#include "OvikModel/animation/ActionRange.h"

#include <cmath>

namespace ovik {
namespace {

MediaDuration scaledLength(MediaDuration length, double factor) {
    return MediaDuration{std::int64_t(std::round(double(length.microseconds) * factor))};
}

} // namespace

ActionRange ActionRange::scaled(double factor) const {
    ActionRange out = *this;
    if (auto* o = std::get_if<opening>(&out.cases)) {
        o->delay = scaledLength(o->delay, factor);
        o->length = scaledLength(o->length, factor);
    } else if (auto* c = std::get_if<closing>(&out.cases)) {
        c->advance = scaledLength(c->advance, factor);
        c->length = scaledLength(c->length, factor);
    }
    return out;
}

} // namespace ovik
