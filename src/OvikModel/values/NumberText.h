#pragma once
// Numbers as a person reads them: a fixed count of decimals, optionally grouped in thousands
// with ",", and a number put in place of the first number of a text in that text's own look
// (how a counter keeps the look of the number a user typed).
#include <string>
#include <string_view>

namespace ovik::NumberText {

/// `value` rounded at `decimals` (clamped to 0...6, halves away from zero) with exactly that
/// many digits after the point; "0" for a non-finite value; never "-0".
std::string format(double value, int decimals, bool grouped);

/// `text` with its first number replaced by `value` in the same number of decimals, grouped
/// when that number was; with no number in `text`, the bare integer text of `value`.
std::string substitute(double value, std::string_view text);

} // namespace ovik::NumberText
