#pragma once
// The part of a stroke that is drawn: from `start` to `end` along its length, shifted by
// `offset`, each a fraction of the whole.
#include "OvikPlatform/json/JSONCoding.h"

namespace ovik {

struct StrokeProgress {
    double start = 0;
    double end = 1;
    double offset = 0;

    bool operator==(const StrokeProgress&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{defaulted("start", &StrokeProgress::start), defaulted("end", &StrokeProgress::end),
                          defaulted("offset", &StrokeProgress::offset)};
    }
};

} // namespace ovik
