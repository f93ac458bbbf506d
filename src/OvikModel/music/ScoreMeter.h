#pragma once
// A meter placed in a score: from `bar` on, which begins `beat` quarter notes into the piece.
namespace ovik {

struct ScoreMeter {
    int bar = 0;
    double beat = 0;
    int numerator = 4;
    int denominator = 4;

    bool operator==(const ScoreMeter&) const = default;
};

} // namespace ovik
