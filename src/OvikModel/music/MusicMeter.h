#pragma once
// A time signature: `numerator` beats of the note value 1/`denominator` to a bar.
namespace ovik {

struct MusicMeter {
    int numerator = 4;
    int denominator = 4;

    /// The length of one bar in quarter notes.
    double barLength() const { return 4.0 * numerator / denominator; }

    bool operator==(const MusicMeter&) const = default;
};

} // namespace ovik
