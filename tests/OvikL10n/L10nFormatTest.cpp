#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

using Arguments = std::vector<L10nArgument>;

constexpr std::int64_t i(std::int64_t value) { return value; }

TEST(L10nFormat, PatternsFillAsWritten) {
    struct Case {
        const char* pattern;
        Arguments arguments;
        const char* expected;
    };
    const double infinity = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        // Positions reorder; placeholders without one count on their own, past any positional ones.
        {"%2$@ before %1$@, %1$@", {"a", "b"}, "b before a, a"},
        {"%2$lld/%1$ld/%1$d", {i(7), i(-8)}, "-8/7/7"},
        {"%2$@ %@", {"a", "b"}, "b a"},
        {"%1$lld%%", {i(50)}, "50%"},
        {"%lld", {std::numeric_limits<std::int64_t>::min()}, "-9223372036854775808"},
        // Numbers follow printf, halves to even.
        {"%.0f|%.0f|%.1f", {2.5, 3.5, -0.0}, "2|4|-0.0"},
        {"%g|%g|%.0g", {1e-5, 100.0, 15.0}, "1e-05|100|2e+01"},
        {"%F|%.2f", {-infinity, 1e20}, "-INF|100000000000000000000.00"},
        {"[%05d|%+d|%.3d|%.0d]", {i(-42), i(5), i(7), i(0)}, "[-0042|+5|007|]"},
        {"[%05.3d|%06f]", {i(7), -infinity}, "[  007|  -inf]"},
        // Widths and cuts count characters, not bytes.
        {"[%5@|%-4@|%.1@]", {"中文", "é", "中文"}, "[   中文|é   |中]"},
        // Mismatched arguments are converted.
        {"%1$@|%2$@", {i(42), 2.0}, "42|2"},
        {"%1$lld|%2$lld", {2.9, -2.9}, "2|-2"},
        {"%d|%d|%d", {1e300, -1e300, std::numeric_limits<double>::quiet_NaN()},
         "9223372036854775807|-9223372036854775808|0"},
        {"%03d|%d|%.3d", {"-7", "many", "many"}, "-07|many|many"},
        {"%.2f|%.1f|%f", {i(3), "2.75", "1.5x"}, "3.00|2.8|1.5x"},
        // Placeholders without an argument stay as written.
        {"%1$@ %2$@", {"a"}, "a %2$@"},
        {"%@ %@", {"a"}, "a %@"},
        {"%1$.2f", {}, "%1$.2f"},
        // So do malformed ones.
        {"50%|%1$|%0$@|%1001$@", {"a"}, "50%|%1$|%0$@|%1001$@"},
        {"%1$@%", {"a"}, "a%"},
        {"%y|%1$y|%#x|%*d|%5%", {i(1)}, "%y|%1$y|%#x|%*d|%5%"},
        {"%99999999999999999999999d", {i(1)}, "%99999999999999999999999d"},
        {"%.5000f", {1.0}, "%.5000f"},
        {"%99999999999999999999$@", {"a"}, "%99999999999999999999$@"},
    };
    for (const auto& c : cases) EXPECT_EQ(L10n::formatTemplate(c.pattern, c.arguments), c.expected) << c.pattern;
}

// With no arguments nothing can be filled: only "%%" changes. Every short pattern of the
// characters that make placeholders keeps to that, whatever it spells.
TEST(L10nFormat, AnyShortPatternIsSafe) {
    const std::string alphabet = "%1$@.d5-l";
    const Arguments some = {"x", i(2), 3.5};
    std::vector<std::string> patterns = {""};
    for (std::size_t length = 1, begin = 0; length <= 5; ++length) {
        const std::size_t end = patterns.size();
        for (std::size_t p = begin; p < end; ++p) {
            for (char c : alphabet) patterns.push_back(patterns[p] + c);
        }
        begin = end;
    }
    for (const auto& pattern : patterns) {
        std::string expected;
        for (std::size_t at = 0; at < pattern.size(); ++at) {
            expected += pattern[at];
            if (pattern.compare(at, 2, "%%") == 0) ++at;
        }
        ASSERT_EQ(L10n::formatTemplate(pattern, {}), expected) << pattern;
        L10n::formatTemplate(pattern, some);
    }
}

TEST(L10nFormat, FormatLooksUpTheKeyFirst) {
    L10n::LanguageOverride english("en");
    EXPECT_EQ(L10n::format("results.file.missing", {"a.ovikres"}), "No result file: a.ovikres");
    EXPECT_EQ(L10n::format("no.such.key %1$@", {"x"}), "no.such.key x");
}

} // namespace
} // namespace ovik
