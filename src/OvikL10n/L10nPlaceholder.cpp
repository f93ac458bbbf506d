#include "OvikL10n/L10nPlaceholder.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>

namespace ovik {
namespace {

constexpr std::size_t limit = 1000;
constexpr std::string_view conversions = "@sdiufFeEgG";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Decimal digits at `at`, read up to one past `limit`; none when there are no digits.
std::optional<std::size_t> readNumber(std::string_view pattern, std::size_t& at) {
    const std::size_t start = at;
    std::size_t value = 0;
    for (; at < pattern.size() && isDigit(pattern[at]); ++at) value = std::min(value * 10 + std::size_t(pattern[at] - '0'), limit + 1);
    if (at == start) return std::nullopt;
    return value;
}

bool readFlag(char c, L10nPlaceholder& p) {
    switch (c) {
    case '-': return p.leftAlign = true;
    case '0': return p.zeroPad = true;
    case '+': return p.plusSign = true;
    case ' ': return p.spaceSign = true;
    default: return false;
    }
}

void skipLengthModifier(std::string_view pattern, std::size_t& at) {
    const std::string_view rest = pattern.substr(at);
    if (rest.starts_with("hh") || rest.starts_with("ll")) at += 2;
    else if (!rest.empty() && std::string_view("hlqztjL").find(rest.front()) != std::string_view::npos) at += 1;
}

/// Reads "N$" at `at` when it is there: the argument's position. False when N is 0 or too large.
bool readPosition(std::string_view pattern, std::size_t& at, L10nPlaceholder& p) {
    std::size_t probe = at;
    const auto number = readNumber(pattern, probe);
    if (!number || probe >= pattern.size() || pattern[probe] != '$') return true;
    at = probe + 1;
    p.position = *number;
    return *number >= 1 && *number <= limit;
}

bool readWidthAndPrecision(std::string_view pattern, std::size_t& at, L10nPlaceholder& p) {
    p.width = readNumber(pattern, at).value_or(0);
    if (p.width > limit) return false;
    if (at < pattern.size() && pattern[at] == '.') {
        ++at;
        p.precision = readNumber(pattern, at).value_or(0);
        if (*p.precision > limit) return false;
    }
    return true;
}

// Filling.

std::size_t scalarCount(std::string_view text) {
    return std::size_t(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// The first `count` Unicode scalars of `text`.
std::string_view scalarPrefix(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    for (std::size_t seen = 0; at < text.size(); ++at) {
        if ((text[at] & 0xC0) != 0x80 && seen++ == count) break;
    }
    return text.substr(0, at);
}

std::string shortestText(double value) {
    std::array<char, 32> buffer;
    return std::string(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

std::string plainText(const L10nArgument& argument) {
    struct Visitor {
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(std::int64_t value) const { return std::to_string(value); }
        std::string operator()(double value) const { return shortestText(value); }
    };
    return std::visit(Visitor{}, argument);
}

template <class Number>
std::optional<Number> parseWhole(const std::string& text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::int64_t saturatingInteger(double value) {
    constexpr double bound = 9223372036854775808.0; // 2^63
    if (std::isnan(value)) return 0;
    if (value >= bound) return std::numeric_limits<std::int64_t>::max();
    if (value < -bound) return std::numeric_limits<std::int64_t>::min();
    return std::int64_t(value);
}

std::optional<std::int64_t> integerValue(const L10nArgument& argument) {
    struct Visitor {
        std::optional<std::int64_t> operator()(const std::string& text) const { return parseWhole<std::int64_t>(text); }
        std::optional<std::int64_t> operator()(std::int64_t value) const { return value; }
        std::optional<std::int64_t> operator()(double value) const { return saturatingInteger(value); }
    };
    return std::visit(Visitor{}, argument);
}

std::optional<double> numberValue(const L10nArgument& argument) {
    struct Visitor {
        std::optional<double> operator()(const std::string& text) const { return parseWhole<double>(text); }
        std::optional<double> operator()(std::int64_t value) const { return double(value); }
        std::optional<double> operator()(double value) const { return value; }
    };
    return std::visit(Visitor{}, argument);
}

std::string_view signText(const L10nPlaceholder& p, bool negative) {
    if (negative) return "-";
    if (p.plusSign) return "+";
    return p.spaceSign ? " " : "";
}

/// `sign` and `body` brought to the placeholder's width: spaces before, spaces after when
/// left-aligned, or zeros between sign and digits.
std::string padded(const L10nPlaceholder& p, std::string_view sign, std::string_view body, bool zeroFill) {
    const std::size_t length = sign.size() + scalarCount(body);
    const std::size_t fill = p.width > length ? p.width - length : 0;
    std::string out;
    out.reserve(sign.size() + body.size() + fill);
    if (p.leftAlign) return out.append(sign).append(body).append(fill, ' ');
    if (zeroFill) return out.append(sign).append(fill, '0').append(body);
    return out.append(fill, ' ').append(sign).append(body);
}

std::string textLaidOut(const L10nPlaceholder& p, std::string_view text) {
    return padded(p, "", p.precision ? scalarPrefix(text, *p.precision) : text, false);
}

std::string integerLaidOut(const L10nPlaceholder& p, std::int64_t value) {
    const std::uint64_t magnitude = value < 0 ? 0 - std::uint64_t(value) : std::uint64_t(value);
    std::array<char, 24> buffer;
    std::string digits(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude).ptr);
    if (p.precision) {
        // printf: the precision is the least number of digits, and ".0" writes no digit for zero.
        if (*p.precision == 0 && magnitude == 0) digits.clear();
        if (digits.size() < *p.precision) digits.insert(0, *p.precision - digits.size(), '0');
    }
    return padded(p, signText(p, value < 0), digits, p.zeroPad && !p.precision);
}

std::string numberLaidOut(const L10nPlaceholder& p, double value) {
    const char lower = char(std::tolower(static_cast<unsigned char>(p.conversion)));
    const std::chars_format form = lower == 'f' ? std::chars_format::fixed
                                   : lower == 'e' ? std::chars_format::scientific
                                                  : std::chars_format::general;
    int precision = int(p.precision.value_or(6));
    if (form == std::chars_format::general && precision == 0) precision = 1;
    // Room for 309 integral digits, the point, the precision and an exponent.
    std::string body(std::size_t(precision) + 320, '\0');
    body.resize(std::size_t(std::to_chars(body.data(), body.data() + body.size(), std::fabs(value), form, precision).ptr - body.data()));
    if (lower != p.conversion) {
        std::transform(body.begin(), body.end(), body.begin(), [](char c) { return char(std::toupper(static_cast<unsigned char>(c))); });
    }
    return padded(p, signText(p, std::signbit(value)), body, p.zeroPad && std::isfinite(value));
}

} // namespace

std::optional<L10nPlaceholder> L10nPlaceholder::parse(std::string_view pattern) {
    if (pattern.size() < 2 || pattern[0] != '%') return std::nullopt;
    L10nPlaceholder p;
    if (pattern[1] == '%') {
        p.length = 2;
        return p;
    }
    std::size_t at = 1;
    if (!readPosition(pattern, at, p)) return std::nullopt;
    while (at < pattern.size() && readFlag(pattern[at], p)) ++at;
    if (!readWidthAndPrecision(pattern, at, p)) return std::nullopt;
    skipLengthModifier(pattern, at);
    if (at >= pattern.size() || conversions.find(pattern[at]) == std::string_view::npos) return std::nullopt;
    p.conversion = pattern[at];
    p.length = at + 1;
    return p;
}

std::string L10nPlaceholder::fill(const L10nArgument& argument) const {
    switch (conversion) {
    case '@':
    case 's': return textLaidOut(*this, plainText(argument));
    case 'd':
    case 'i':
    case 'u':
        if (const auto value = integerValue(argument)) return integerLaidOut(*this, *value);
        break;
    default:
        if (const auto value = numberValue(argument)) return numberLaidOut(*this, *value);
        break;
    }
    // Text that isn't a number is shown as it is; a number's precision doesn't cut it.
    return padded(*this, "", plainText(argument), false);
}

} // namespace ovik
