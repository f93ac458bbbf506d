#pragma once
// What an object supplies itself as the rest value of properties without a fixed rest: its
// font axes (by four-letter tag) and its generator parameters (by name).
#include <map>
#include <string>

#include "OvikModel/animation/ActionValue.h"

namespace ovik {

struct ActionOwn {
    std::map<std::string, double> fontAxes;
    std::map<std::string, ActionValue> params;

    static const ActionOwn& none() {
        static const ActionOwn empty;
        return empty;
    }
};

} // namespace ovik
