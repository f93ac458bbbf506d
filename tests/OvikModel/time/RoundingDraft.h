#pragma once
// A draft whose clocks land on half microseconds, for the tests of moments told on the three
// clocks. Its three recording sections, end to end:
//   1. [0, 2^20) under a speed curve of 2: film [0, 524288), played [0, 1048576).
//   2. [0, 1001) at 2/3 (1502 played) with a hold of 50 ms at played 301: film [524288,
//      575790), played [1048576, 1050078).
//   3. [0, 1.5 s) under a speed curve of 3: film [575790, 1075790), played [1050078, 2550078).
#include "OvikModel/time/TimeSamples.h"

namespace ovik::testing {

inline Draft roundingDraft() {
    Section doubled = keptSection(1, {playing(0, 1'048'576)});
    doubled.speed = SectionSpeed::make({{MediaDuration{}, 2, std::nullopt}}, {}, false);
    Section held = keptSection(2, {playing(0, 1001, 2.0 / 3.0)});
    held.speed = SectionSpeed::make({}, {{MediaDuration{301}, MediaDuration{50'000}}}, false);
    Section tripled = keptSection(3, {playing(0, 1'500'000)});
    tripled.speed = SectionSpeed::make({{MediaDuration{}, 3, std::nullopt}}, {}, false);
    return draftOf({doubled, held, tripled});
}

} // namespace ovik::testing
