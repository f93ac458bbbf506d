#include "OvikModel/values/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace ovik::NumberText {
namespace {

constexpr int maximumDecimals = 6;
constexpr double powersOfTen[maximumDecimals + 1] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};

double roundedAt(double value, int decimals) {
    const double scale = powersOfTen[decimals];
    const double scaled = value * scale;
    // A value too large to scale has no fraction left to round.
    const double rounded = std::isfinite(scaled) ? std::round(scaled) / scale : value;
    return rounded == 0 ? 0.0 : rounded;
}

std::string fixed(double value, int decimals) {
    char buffer[400]; // the largest double has 309 integer digits
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    return std::string(buffer, result.ptr);
}

// "1234567.89" -> "1,234,567.89"; the sign stays in front.
std::string grouped(const std::string& text) {
    const std::size_t digitsStart = text.front() == '-' ? 1 : 0;
    const std::size_t digitsEnd = std::min(text.find('.'), text.size());
    std::string out = text.substr(0, digitsStart);
    for (std::size_t i = digitsStart; i < digitsEnd; ++i) {
        if (i > digitsStart && (digitsEnd - i) % 3 == 0) out.push_back(',');
        out.push_back(text[i]);
    }
    return out + text.substr(digitsEnd);
}

bool isDigit(std::string_view text, std::size_t i) {
    return i < text.size() && text[i] >= '0' && text[i] <= '9';
}

std::size_t digitRun(std::string_view text, std::size_t i) {
    std::size_t end = i;
    while (isDigit(text, end)) ++end;
    return end;
}

// Past the thousands groups of `\d{1,3}(?:,\d{3})+` at `i`, or none when there are none.
std::optional<std::size_t> groupedEnd(std::string_view text, std::size_t i) {
    const std::size_t lead = digitRun(text, i);
    if (lead - i > 3) return std::nullopt;
    std::size_t end = lead;
    while (end < text.size() && text[end] == ',' && isDigit(text, end + 1) && isDigit(text, end + 2) &&
           isDigit(text, end + 3))
        end += 4;
    if (end == lead) return std::nullopt;
    return end;
}

struct Match {
    std::size_t start = 0;
    std::size_t end = 0;
};

// The first match of `[-+]?(?:\d{1,3}(?:,\d{3})+|\d+)(?:\.\d+)?`.
std::optional<Match> firstNumber(std::string_view text) {
    for (std::size_t start = 0; start < text.size(); ++start) {
        const bool hasSign = text[start] == '-' || text[start] == '+';
        const std::size_t digits = start + (hasSign ? 1 : 0);
        if (!isDigit(text, digits)) continue;
        std::size_t end = groupedEnd(text, digits).value_or(digitRun(text, digits));
        if (end < text.size() && text[end] == '.' && isDigit(text, end + 1)) end = digitRun(text, end + 1);
        return Match{start, end};
    }
    return std::nullopt;
}

} // namespace

std::string format(double value, int decimals, bool grouping) {
    if (!std::isfinite(value)) return "0";
    decimals = std::clamp(decimals, 0, maximumDecimals);
    const std::string text = fixed(roundedAt(value, decimals), decimals);
    return grouping ? grouped(text) : text;
}

std::string substitute(double value, std::string_view text) {
    const std::optional<Match> match = firstNumber(text);
    if (!match) return format(value, 0, false);
    const std::string_view number = text.substr(match->start, match->end - match->start);
    const std::size_t point = number.find('.');
    const int decimals = point == std::string_view::npos ? 0 : int(number.size() - point - 1);
    const bool grouping = number.find(',') != std::string_view::npos;
    return std::string(text.substr(0, match->start)) + format(value, decimals, grouping) +
           std::string(text.substr(match->end));
}

} // namespace ovik::NumberText
