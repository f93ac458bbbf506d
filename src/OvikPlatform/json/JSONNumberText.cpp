#include "OvikPlatform/json/JSONNumberText.h"

#include <charconv>
#include <cmath>

namespace ovik::JSONNumberText {
namespace {

template <class Real>
void appendShortest(std::string& out, Real value, Real plainLimit) {
    if (value == 0) {
        out += std::signbit(value) ? "-0" : "0";
        return;
    }
    const Real magnitude = std::fabs(value);
    const bool plain = magnitude >= Real(1e-4) && magnitude < plainLimit;
    char buffer[64];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value,
                                plain ? std::chars_format::fixed : std::chars_format::scientific);
    out.append(buffer, result.ptr);
}

} // namespace

void appendDouble(std::string& out, double value) { appendShortest(out, value, 9007199254740992.0); }

void appendFloat(std::string& out, float value) { appendShortest(out, value, 16777216.0f); }

} // namespace ovik::JSONNumberText
