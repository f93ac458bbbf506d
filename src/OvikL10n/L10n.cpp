#include "OvikL10n/L10n.h"

#include <algorithm>
#include <utility>

#include "OvikL10n/L10nPlaceholder.h"
#include "OvikL10n/L10nSource.h"
#include "OvikL10n/LanguagePreference.h"

namespace ovik::L10n {
namespace {

// Stands for the task-local override: each thread works in its own language.
thread_local std::optional<std::string> languageOverride;

const std::string& languageInForce() {
    static const std::string launch = launchLanguage(processL10nEnvironment());
    return languageOverride ? *languageOverride : launch;
}

/// The localization a candidate asks for, or none when we don't speak it. Traditional
/// Chinese is not the base language, so "zh-TW" and "zh-Hant" have none.
std::optional<std::string> localization(std::string_view candidate) {
    std::string name(candidate);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c == '_' ? '-' : char(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); });
    if (name == "zh" || name.starts_with("zh-hans") || name == "zh-cn" || name == "zh-sg") return "zh-Hans";
    const std::string_view primary = std::string_view(name).substr(0, name.find('-'));
    for (const char* extra : {"en", "ja", "ko"}) {
        if (primary == extra) return extra;
    }
    return std::nullopt;
}

/// The text of the placeholder at `pattern[at]` (a "%"), appended to `out`; the index just past it.
std::size_t appendPlaceholder(std::string& out, std::string_view pattern, std::size_t at,
                              const std::vector<L10nArgument>& arguments, std::size_t& nextArgument) {
    const auto placeholder = L10nPlaceholder::parse(pattern.substr(at));
    if (!placeholder) {
        out += '%';
        return at + 1;
    }
    if (!placeholder->takesArgument()) {
        out += '%';
    } else {
        const std::size_t index = placeholder->position ? *placeholder->position - 1 : nextArgument++;
        if (index < arguments.size()) out += placeholder->fill(arguments[index]);
        else out += pattern.substr(at, placeholder->length);
    }
    return at + placeholder->length;
}

std::string joined(const std::vector<std::string>& strings, std::string_view separatorKey) {
    if (strings.empty()) return {};
    const std::string separator = text(separatorKey);
    std::string out = strings.front();
    for (std::size_t i = 1; i < strings.size(); ++i) out.append(separator).append(strings[i]);
    return out;
}

} // namespace

std::string text(std::string_view key) {
    return L10nSource::lookup(key, L10nSource::translation(languageInForce()), L10nSource::values());
}

std::string format(std::string_view key, const std::vector<L10nArgument>& arguments) {
    return formatTemplate(text(key), arguments);
}

std::string formatTemplate(std::string_view pattern, const std::vector<L10nArgument>& arguments) {
    std::string out;
    out.reserve(pattern.size());
    std::size_t nextArgument = 0; // taken by placeholders that name no position
    for (std::size_t at = 0; at < pattern.size();) {
        const std::size_t percent = std::min(pattern.find('%', at), pattern.size());
        out += pattern.substr(at, percent - at);
        at = percent < pattern.size() ? appendPlaceholder(out, pattern, percent, arguments, nextArgument) : percent;
    }
    return out;
}

std::string list(const std::vector<std::string>& strings) { return joined(strings, "l10n.list.separator"); }

std::string clauses(const std::vector<std::string>& strings, ClauseSeparator separator) {
    return joined(strings, separator == ClauseSeparator::comma ? "l10n.clause.commaSeparator"
                                                               : "l10n.clause.semicolonSeparator");
}

std::string language() { return languageInForce(); }

std::string preferredLanguage(const std::optional<std::string>& override, const std::optional<std::string>& setting,
                              const std::vector<std::string>& preferences) {
    const auto lone = override ? override : setting;
    const std::vector<std::string> candidates = lone ? std::vector<std::string>{*lone} : preferences;
    for (const auto& candidate : candidates) {
        if (auto supported = localization(candidate)) return std::move(*supported);
    }
    return "zh-Hans";
}

std::string launchLanguage(const L10nEnvironment& environment) {
    return preferredLanguage(nonEmptyValue(environment, "OVIK_LANGUAGE"),
                             ovik::language(LanguagePreference::standard(environment).choice()),
                             LanguagePreference::systemLanguages(environment));
}

LanguageOverride::LanguageOverride(std::string language)
    : previous_(std::exchange(languageOverride, std::move(language))) {}

LanguageOverride::~LanguageOverride() { languageOverride = std::move(previous_); }

} // namespace ovik::L10n
