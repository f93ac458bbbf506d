#include <CLI/CLI.hpp>

#include <cstdio>
#include <optional>
#include <memory>
#include <string>

#include "Command.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyTable.h"
#include "OvikPlatform/json/JSONValue.h"
#include "UsageError.h"

namespace ovik::cli {
namespace {

std::string rangeText(const PropertySpec& spec) {
    if (!spec.words.empty()) {
        std::string words;
        for (const std::string& word : spec.words) words += (words.empty() ? "" : "|") + word;
        return words;
    }
    if (!spec.range) return "-";
    return JSONValue(spec.range->first).compact() + "..." + JSONValue(spec.range->second).compact();
}

std::string targetsText(const PropertySpec& spec) {
    std::string out;
    for (const PropertyTargetKind target : spec.targets) out += (out.empty() ? "" : ",") + std::string(caseName(target));
    return out.empty() ? "-" : out;
}

// One line a row: name, value type (with "animated" for rows that actions move), range or
// choice words, the targets it stands on, and its title. With a target, only the rows that
// can be written there.
void run(const std::string& prefix, const std::optional<PropertyTargetKind>& writable) {
    const std::vector<PropertyKey> keys = writable ? PropertyTable::writableKeys(*writable) : PropertyTable::allKeys();
    for (const PropertyKey key : keys) {
        const PropertySpec& spec = key.spec();
        if (spec.name.rfind(prefix, 0) != 0) continue;
        std::string type(caseName(spec.type));
        if (spec.motion) type += ",animated";
        std::printf("%-36s %-16s %-28s %-28s %s\n", spec.name.c_str(), type.c_str(), rangeText(spec).c_str(),
                    targetsText(spec).c_str(), spec.title().c_str());
    }
}

PropertyTargetKind targetKind(const std::string& word) {
    std::string words;
    for (const auto& [kind, name] : enumCases(static_cast<PropertyTargetKind*>(nullptr)).cases) {
        if (name == word) return kind;
        words += (words.empty() ? "" : ", ") + std::string(name);
    }
    throw UsageError(L10n::format("cli.props.unknownTarget", {word, words}));
}

} // namespace

void addPropsCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("props", "List the properties of the table: name, value, range, targets");
    auto prefix = std::make_shared<std::string>();
    auto writable = std::make_shared<std::optional<std::string>>();
    command->add_option("PREFIX", *prefix, "Only the names that begin with this");
    command->add_option("--writable", *writable, "Only the rows that can be written on this kind of target");
    command->callback([prefix, writable] { run(*prefix, *writable ? std::optional(targetKind(**writable)) : std::nullopt); });
}

} // namespace ovik::cli
