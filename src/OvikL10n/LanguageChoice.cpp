#include "OvikL10n/LanguageChoice.h"

#include "OvikL10n/L10n.h"

namespace ovik {

std::optional<std::string> language(LanguageChoice choice) {
    if (choice == LanguageChoice::system) return std::nullopt;
    return std::string(caseName(choice));
}

std::string title(LanguageChoice choice) {
    switch (choice) {
    case LanguageChoice::system: return L10n::text("settings.general.language.system");
    case LanguageChoice::chinese: return "简体中文";
    case LanguageChoice::english: return "English";
    case LanguageChoice::japanese: return "日本語";
    case LanguageChoice::korean: return "한국어";
    }
    return {};
}

} // namespace ovik
