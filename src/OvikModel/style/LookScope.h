#pragma once
// What a style's look covers: the background alone, or the whole picture (media and objects
// too, never the letterbox, lifted objects, captions or watermark). The whole picture is the
// default, the reach a look has unless a person narrows it.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class LookScope { all, background };

constexpr auto enumCases(LookScope*) {
    return EnumCases<LookScope, 2>{"LookScope", {{LookScope::all, "all"}, {LookScope::background, "background"}}};
}

} // namespace ovik
