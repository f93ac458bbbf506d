#pragma once
// Every text a person reads goes through a key into one table. The base language
// (Simplified Chinese) is compiled into the binary; an English table, compiled in beside it,
// stands in for a resource bundle. "ja" and "ko" have no table of their own and speak the
// base language. A missing text shows its key. Nothing is looked for on disk: there are no
// resource bundles to find, and the platform's own texts are not ours to steer.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "OvikL10n/L10nEnvironment.h"

namespace ovik {

/// One argument of a formatted text: `%1$@` takes text, `%1$lld` / `%1$d` an integer,
/// `%1$f` / `%1$.2f` a number. A mismatched argument is converted, never undefined.
using L10nArgument = std::variant<std::string, std::int64_t, double>;

namespace L10n {

enum class ClauseSeparator { comma, semicolon };

/// The text for `key` in the language in force: one or two table lookups.
std::string text(std::string_view key);
/// `text(key)` with its printf placeholders (positional or not) filled.
std::string format(std::string_view key, const std::vector<L10nArgument>& arguments);
/// Fills placeholders in an already looked-up template. A placeholder whose argument is
/// missing, and a "%" that starts no placeholder, stay as written.
std::string formatTemplate(std::string_view pattern, const std::vector<L10nArgument>& arguments);
/// Joins with the list separator, with no "and" before the last item.
std::string list(const std::vector<std::string>& strings);
std::string clauses(const std::vector<std::string>& strings, ClauseSeparator separator = ClauseSeparator::comma);

/// The language in force: the override of the current task (thread) when set, else the
/// language chosen at launch.
std::string language();
/// One of "zh-Hans", "en", "ja", "ko": the first supported of the candidates, which are
/// `override` alone when given, else `setting` alone when given, else `preferences`.
std::string preferredLanguage(const std::optional<std::string>& override, const std::optional<std::string>& setting,
                              const std::vector<std::string>& preferences);
/// The language chosen at launch in `environment`: OVIK_LANGUAGE when set, else the person's
/// stored choice, else the environment's preferences. The process's own is computed once.
std::string launchLanguage(const L10nEnvironment& environment);

/// Sets the language for the work done on this thread while the object lives. Overrides nest.
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
