#pragma once
// The per-stretch playing rate: its limits, presets and how it is shown.
#include <array>
#include <string>

namespace ovik {

struct Speed {
    static constexpr double minimum = 0.5;
    static constexpr double maximum = 8.0;
    static constexpr std::array<double, 6> presets{0.5, 1, 1.5, 2, 4, 8};
    /// Above this rate a stretch plays without sound.
    static constexpr double audibleLimit = 4.0;

    /// Within the range, to hundredths; a rate that is not finite is normal speed.
    static double clamped(double rate);
    /// "1.5×", "2×", "0.75×".
    static std::string text(double rate);
};

} // namespace ovik
