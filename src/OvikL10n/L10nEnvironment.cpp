#include "OvikL10n/L10nEnvironment.h"

#include <cstdlib>

namespace ovik {

L10nEnvironment processL10nEnvironment() {
    L10nEnvironment environment;
    for (const char* name : {"OVIK_LANGUAGE", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG", "XDG_CONFIG_HOME", "HOME"}) {
        if (const char* value = std::getenv(name)) environment.emplace(name, value);
    }
    return environment;
}

std::optional<std::string> nonEmptyValue(const L10nEnvironment& environment, std::string_view name) {
    const auto found = environment.find(name);
    if (found == environment.end() || found->second.empty()) return std::nullopt;
    return found->second;
}

} // namespace ovik
