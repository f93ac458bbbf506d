#pragma once
// One printf placeholder of a text: `%1$@`, `%2$lld`, `%.2f`, `%-8d`, `%%`. The formatter is
// our own, so that no pattern from a table or a person can reach the C library's printf:
// a placeholder that doesn't parse is no placeholder, and filling one never fails.
//
// Understood: an optional position `N$` (1-based), flags `-` `+` ` ` `0`, a width, a
// precision `.N`, length modifiers (hh h l ll q z t j L, which change nothing: every integer
// is 64-bit), and the conversions `@` `s` (text), `d` `i` `u` (integer), `f` `F` `e` `E`
// `g` `G` (number). Widths and precisions above 1000 are refused. Numbers use "." and no
// grouping in every language we speak; widths count Unicode scalars, not bytes.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "OvikL10n/L10n.h"

namespace ovik {

struct L10nPlaceholder {
    /// Bytes of the placeholder in its pattern, from its "%".
    std::size_t length = 0;
    /// The argument it names, counted from 1; none for a placeholder that takes the next one.
    std::optional<std::size_t> position;
    bool leftAlign = false;
    bool zeroPad = false;
    bool plusSign = false;
    bool spaceSign = false;
    std::size_t width = 0;
    std::optional<std::size_t> precision;
    /// The conversion character; '%' for the escaped percent sign "%%".
    char conversion = '%';

    /// Reads the placeholder at the start of `pattern`, which begins with "%"; none when the
    /// text there is not a well-formed placeholder.
    static std::optional<L10nPlaceholder> parse(std::string_view pattern);

    /// The text of `argument` as this placeholder lays it out. Text given to a number
    /// placeholder is read as a number when it is one, else shown as it is; a number given
    /// to an integer placeholder is cut toward zero.
    std::string fill(const L10nArgument& argument) const;

    /// Whether it stands for an argument ("%%" does not).
    bool takesArgument() const { return conversion != '%'; }
};

} // namespace ovik
