#include "OvikPlatform/TextTrim.h"

namespace ovik {
namespace {

// White space and line ends in UTF-8. Whole sequences are matched, and UTF-8 never starts or
// ends one inside another character.
constexpr std::string_view spaces[] = {
    " ",            "\t",           "\n",           "\r",           "\v",           "\f",
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82",
    "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88",
    "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F",
    "\xE3\x80\x80"};

} // namespace

std::string_view trimmingWhitespace(std::string_view text) {
    for (bool cut = true; cut;) {
        cut = false;
        for (std::string_view space : spaces) {
            if (text.starts_with(space)) text.remove_prefix(space.size()), cut = true;
            if (text.ends_with(space)) text.remove_suffix(space.size()), cut = true;
        }
    }
    return text;
}

} // namespace ovik
