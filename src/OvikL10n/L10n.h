#pragma once
// Every text a person reads goes through a key into one table. The base language
// (Simplified Chinese) is compiled into the binary; an English table stands in for a
// resource bundle. A missing text shows its key.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace ovik {

/// One argument of a formatted text: `%1$@` takes text, `%1$lld` / `%1$d` an integer,
/// `%1$f` / `%1$.2f` a number. A mismatched argument is converted, never undefined.
using L10nArgument = std::variant<std::string, std::int64_t, double>;

namespace L10n {

enum class ClauseSeparator { comma, semicolon };

/// The text for `key` in the language in force.
std::string text(std::string_view key);
/// `text(key)` with its printf placeholders (positional or not) filled.
std::string format(std::string_view key, const std::vector<L10nArgument>& arguments);
/// Fills placeholders in an already looked-up template.
std::string formatTemplate(std::string_view pattern, const std::vector<L10nArgument>& arguments);
/// Joins with the list separator, with no "and" before the last item.
std::string list(const std::vector<std::string>& strings);
std::string clauses(const std::vector<std::string>& strings, ClauseSeparator separator = ClauseSeparator::comma);

/// The language in force: the override of the current task (thread) when set, else the
/// language chosen at launch.
std::string language();
std::string preferredLanguage(const std::optional<std::string>& override, const std::optional<std::string>& setting,
                              const std::vector<std::string>& preferences);

/// Sets the language for the work done on this thread while the object lives.
class LanguageOverride {
public:
    explicit LanguageOverride(std::string language);
    ~LanguageOverride();
    LanguageOverride(const LanguageOverride&) = delete;
    LanguageOverride& operator=(const LanguageOverride&) = delete;

private:
    std::optional<std::string> previous_;
};

} // namespace L10n
} // namespace ovik
