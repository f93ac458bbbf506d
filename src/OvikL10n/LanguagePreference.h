#pragma once
// The person's language setting, kept under the key "AppleLanguages" of a persistent domain.
// A domain is the JSON object in `<defaults>/<domain>/defaults.json`, where `defaults` is the
// folder of the person's settings: $XDG_CONFIG_HOME, else $HOME/.config.
#include <filesystem>
#include <string>
#include <vector>

#include "OvikL10n/L10nEnvironment.h"
#include "OvikL10n/LanguageChoice.h"

namespace ovik {

struct LanguagePreference {
    /// The folder of the person's settings; empty when the environment names none.
    std::filesystem::path defaults;
    std::string domain;

    /// The program's own domain, "com.tarnel.ovik", in the folder that `environment` names.
    static LanguagePreference standard(const L10nEnvironment& environment);

    /// The languages that the environment prefers, in order: each entry of LANGUAGE (a list
    /// split at ":"), then the first of LC_ALL, LC_MESSAGES and LANG that is set. Encodings
    /// (".UTF-8") and modifiers ("@euro") are cut, "_" becomes "-"; "C" and "POSIX" prefer nothing.
    static std::vector<std::string> systemLanguages(const L10nEnvironment& environment);

    std::filesystem::path domainFile() const;

    /// The stored choice: the first language of the key, if it names a choice. A domain that
    /// is missing or can't be read holds no choice: `system`.
    LanguageChoice choice() const;

    /// Stores `choice`: `system` removes the key, any other sets it to its one language. The
    /// domain is replaced atomically, and removed when nothing is left in it. A domain that
    /// can't be read is replaced. Throws `PosixError` when the file can't be written or removed.
    void setChoice(LanguageChoice choice) const;
};

} // namespace ovik
