#include "OvikL10n/LanguagePreference.h"

#include <algorithm>
#include <cerrno>

#include "OvikL10n/L10n.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/files/PosixError.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikPlatform/json/JSONValue.h"

namespace ovik {
namespace {

constexpr std::string_view languagesKey = "AppleLanguages";

/// "en_US.UTF-8@euro" -> "en-US"; none for "C", "POSIX" and empty names.
std::optional<std::string> localeLanguage(std::string_view name) {
    std::string language(name.substr(0, name.find_first_of(".@")));
    std::replace(language.begin(), language.end(), '_', '-');
    if (language.empty() || language == "C" || language == "POSIX") return std::nullopt;
    return language;
}

std::vector<std::string> splitAtColons(std::string_view list) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t end = std::min(list.find(':', start), list.size());
        parts.emplace_back(list.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

/// The domain's object; an empty one when the file is missing or isn't a JSON object.
JSONValue::Object readDomain(const std::filesystem::path& file) {
    try {
        JSONValue value = JSONValue::parse(readFile(file));
        if (auto* object = value.object()) return std::move(*object);
    } catch (const Error&) {
        // Missing or unreadable: no settings.
    }
    return {};
}

void removeDomain(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::remove(file, error);
    if (error) throw PosixError(error.value(), file);
}

void writeDomain(const std::filesystem::path& file, const JSONValue::Object& domain) {
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (error) throw PosixError(error.value(), file.parent_path());
    AtomicFile::write(JSONValue(domain).prettyPrinted(), file);
}

} // namespace

LanguagePreference LanguagePreference::standard(const L10nEnvironment& environment) {
    std::filesystem::path defaults;
    if (const auto config = nonEmptyValue(environment, "XDG_CONFIG_HOME"); config && config->starts_with('/')) {
        defaults = *config;
    } else if (const auto home = nonEmptyValue(environment, "HOME")) {
        defaults = std::filesystem::path(*home) / ".config";
    }
    return {std::move(defaults), "com.tarnel.ovik"};
}

std::vector<std::string> LanguagePreference::systemLanguages(const L10nEnvironment& environment) {
    std::vector<std::string> languages;
    const auto add = [&](std::string_view name) {
        if (auto language = localeLanguage(name)) languages.push_back(std::move(*language));
    };
    if (const auto list = nonEmptyValue(environment, "LANGUAGE")) {
        for (const auto& name : splitAtColons(*list)) add(name);
    }
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const auto name = nonEmptyValue(environment, variable)) {
            add(*name);
            break;
        }
    }
    return languages;
}

std::filesystem::path LanguagePreference::domainFile() const { return defaults / domain / "defaults.json"; }

LanguageChoice LanguagePreference::choice() const {
    if (defaults.empty()) return LanguageChoice::system;
    const JSONValue::Object domainValues = readDomain(domainFile());
    const auto found = domainValues.find(languagesKey);
    if (found == domainValues.end()) return LanguageChoice::system;
    const auto* languages = found->second.array();
    if (!languages || languages->empty() || !languages->front().string()) return LanguageChoice::system;
    LanguageChoice choice = LanguageChoice::system;
    enumCases(&choice).find(L10n::preferredLanguage(*languages->front().string(), std::nullopt, {}), choice);
    return choice;
}

void LanguagePreference::setChoice(LanguageChoice choice) const {
    if (defaults.empty()) throw PosixError(ENOENT, domainFile());
    const std::filesystem::path file = domainFile();
    JSONValue::Object domainValues = readDomain(file);
    if (const auto language = ovik::language(choice)) {
        domainValues.insert_or_assign(std::string(languagesKey), JSONValue(JSONValue::Array{*language}));
    } else {
        domainValues.erase(std::string(languagesKey));
    }
    if (domainValues.empty()) removeDomain(file);
    else writeDomain(file, domainValues);
}

} // namespace ovik

