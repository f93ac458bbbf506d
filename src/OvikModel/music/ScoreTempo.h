#pragma once
// A tempo placed in a score: `bpm` quarter notes a minute from `beat` on; when it `glides`, the
// tempo moves linearly in beats up to the next one.
namespace ovik {

struct ScoreTempo {
    double beat = 0;
    double bpm = 0;
    bool glides = false;

    bool operator==(const ScoreTempo&) const = default;
};

} // namespace ovik
