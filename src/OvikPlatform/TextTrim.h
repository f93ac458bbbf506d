#pragma once
// Text with white space and line ends cut from both ends, Unicode spaces included (a person
// may type an ideographic space after a name).
#include <string_view>

namespace ovik {

std::string_view trimmingWhitespace(std::string_view text);

} // namespace ovik
