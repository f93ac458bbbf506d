#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "OvikL10n/L10n.h"

namespace ovik {
namespace {

using Arguments = std::vector<L10nArgument>;

struct FormatCase {
    const char* pattern;
    Arguments arguments;
    const char* expected;
};

void expectFormats(const std::vector<FormatCase>& cases) {
    for (const auto& c : cases) EXPECT_EQ(L10n::formatTemplate(c.pattern, c.arguments), c.expected) << c.pattern;
}

constexpr std::int64_t i(std::int64_t value) { return value; }

TEST(L10nFormat, PlaceholdersTakeTheirArguments) {
    expectFormats({
        {"%1$@ and %2$@", {"a", "b"}, "a and b"},
        {"%2$@ before %1$@", {"a", "b"}, "b before a"},
        {"%1$@, %1$@", {"echo"}, "echo, echo"},
        {"%@ then %@", {"x", "y"}, "x then y"},
        {"%lld of %lld", {i(3), i(4)}, "3 of 4"},
        {"%2$lld/%1$ld/%1$d", {i(7), i(-8)}, "-8/7/7"},
        // Placeholders without a position count on their own, past any positional ones.
        {"%2$@ %@", {"a", "b"}, "b a"},
        {"100%%", {}, "100%"},
        {"%1$lld%%", {i(50)}, "50%"},
        {"“%1$@”", {"名称"}, "“名称”"},
        {"%lld", {std::numeric_limits<std::int64_t>::min()}, "-9223372036854775808"},
    });
}

TEST(L10nFormat, NumbersFollowPrintf) {
    expectFormats({
        {"%f", {1.5}, "1.500000"},
        {"%1$.2f", {3.14159}, "3.14"},
        {"%.0f", {2.5}, "2"},
        {"%.0f", {3.5}, "4"},
        {"%.3f", {-0.0005}, "-0.001"},
        {"%.1f", {-0.0}, "-0.0"},
        {"%1$g", {0.0001}, "0.0001"},
        {"%g", {1e-5}, "1e-05"},
        {"%g", {123456789.0}, "1.23457e+08"},
        {"%g", {100.0}, "100"},
        {"%.0g", {15.0}, "2e+01"},
        {"%G", {1e-10}, "1E-10"},
        {"%e", {12345.678}, "1.234568e+04"},
        {"%f", {std::numeric_limits<double>::infinity()}, "inf"},
        {"%F", {-std::numeric_limits<double>::infinity()}, "-INF"},
        {"%.2f", {1e20}, "100000000000000000000.00"},
    });
}

TEST(L10nFormat, FlagsWidthAndPrecision) {
    expectFormats({
        {"[%5d|%-5d|%05d]", {i(42), i(42), i(42)}, "[   42|42   |00042]"},
        {"[%+d|% d|%+d]", {i(5), i(5), i(-5)}, "[+5| 5|-5]"},
        {"[%05d]", {i(-42)}, "[-0042]"},
        {"[%.3d|%5.3d|%05.3d]", {i(7), i(7), i(7)}, "[007|  007|  007]"},
        {"[%.0d]", {i(0)}, "[]"},
        {"[%07.2f]", {-2.5}, "[-002.50]"},
        {"[%-8.1f]", {2.25}, "[2.2     ]"},
        {"[%06f]", {-std::numeric_limits<double>::infinity()}, "[  -inf]"},
        // Widths and cuts count characters, not bytes.
        {"[%5@]", {"中文"}, "[   中文]"},
        {"[%-4@]", {"é"}, "[é   ]"},
        {"[%.1@]", {"中文"}, "[中]"},
        {"[%.0@]", {"abc"}, "[]"},
    });
}

TEST(L10nFormat, MismatchedArgumentsAreConverted) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectFormats({
        {"%1$@", {i(42)}, "42"},
        {"%1$@", {1.5}, "1.5"},
        {"%1$@", {2.0}, "2"},
        {"%1$lld", {2.9}, "2"},
        {"%1$lld", {-2.9}, "-2"},
        {"%d", {1e300}, "9223372036854775807"},
        {"%d", {-1e300}, "-9223372036854775808"},
        {"%d", {nan}, "0"},
        {"%d", {"17"}, "17"},
        {"%03d", {"-7"}, "-07"},
        {"%d", {"many"}, "many"},
        {"%.3d", {"many"}, "many"},
        {"%.2f", {i(3)}, "3.00"},
        {"%.1f", {"2.75"}, "2.8"},
        {"%f", {"abc"}, "abc"},
        {"%f", {"1.5x"}, "1.5x"},
    });
}

TEST(L10nFormat, PlaceholdersWithoutArgumentStayAsWritten) {
    expectFormats({
        {"%1$@ %2$@", {"a"}, "a %2$@"},
        {"%@ %@", {"a"}, "a %@"},
        {"%9$@", {"a"}, "%9$@"},
        {"%1$.2f", {}, "%1$.2f"},
        {"%1000$@", {"a"}, "%1000$@"},
    });
}

TEST(L10nFormat, MalformedPlaceholdersStayAsWritten) {
    expectFormats({
        {"%", {"a"}, "%"},
        {"50%", {"a"}, "50%"},
        {"%1$", {"a"}, "%1$"},
        {"%1$@%", {"a"}, "a%"},
        {"%0$@", {"a"}, "%0$@"},
        {"%1001$@", {"a"}, "%1001$@"},
        {"%y", {"a"}, "%y"},
        {"%1$y", {"a"}, "%1$y"},
        {"%q", {"a"}, "%q"},
        {"%#x", {i(1)}, "%#x"},
        {"%*d", {i(1)}, "%*d"},
        {"%5%", {}, "%5%"},
        {"%99999999999999999999999d", {i(1)}, "%99999999999999999999999d"},
        {"%.5000f", {1.0}, "%.5000f"},
        {"%99999999999999999999$@", {"a"}, "%99999999999999999999$@"},
    });
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
