#pragma once
// Number layout of our JSON files: the shortest digits that read back to the same value, in
// plain decimal for 1e-4 <= |x| < 2^53 (2^24 for single precision), otherwise d.ddde±XX.
#include <string>

namespace ovik::JSONNumberText {

void appendDouble(std::string& out, double value);
void appendFloat(std::string& out, float value);

} // namespace ovik::JSONNumberText
