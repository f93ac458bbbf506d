#pragma once
// The environment variables that choose a language and locate the person's settings, as a
// plain map: the launch language is computed from one, so that tests can hand in their own.
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace ovik {

using L10nEnvironment = std::map<std::string, std::string, std::less<>>;

/// OVIK_LANGUAGE, LANGUAGE, LC_ALL, LC_MESSAGES, LANG, XDG_CONFIG_HOME and HOME, those that
/// are set, from this process.
L10nEnvironment processL10nEnvironment();

/// The value of `name` when it is set and not empty.
std::optional<std::string> nonEmptyValue(const L10nEnvironment& environment, std::string_view name);

} // namespace ovik
