#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "Command.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/json/JSONDocument.h"

namespace ovik::cli {
namespace {

struct PropertyOptions {
    std::string package;
    std::string path;
    std::string value;
};

// A value as typed: JSON when it reads as JSON (1.5, true, "x", [1, 2]), else the text itself.
JSONValue typedValue(const std::string& text) {
    try {
        return decodeJSON<JSONValue>(std::string_view(text));
    } catch (const Error&) {
        return JSONValue(text);
    }
}

void get(const PropertyOptions& options) {
    const Draft draft = FileDraftStore::readDraft(options.package);
    const auto value = propertyValue(draft, PropertyPath::parse(options.path, draft));
    if (!value) throw Error(L10n::format("cli.property.noValue", {options.path}));
    std::printf("%s\n", value->compact().c_str());
}

// Read, changed and written under the package's writer lock: a `set` running at the same
// time in another process waits for this one, and neither change is lost.
void set(const PropertyOptions& options) {
    std::optional<std::string> undo;
    FileDraftStore::update(options.package, [&](Draft& draft) {
        undo = setProperty(draft, typedValue(options.value), PropertyPath::parse(options.path, draft));
        return undo.has_value();
    });
    std::printf("%s\n", undo ? undo->c_str() : L10n::text("cli.property.unchanged").c_str());
}

} // namespace

void addPropertyCommands(CLI::App& app) {
    auto options = std::make_shared<PropertyOptions>();
    CLI::App* getter = app.add_subcommand("get", "Print one property of a draft");
    getter->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    getter->add_option("PATH", options->path, "OBJECT.property, SECTION.space.fog.near, SECTION.space.objects.0.material.roughness, or a draft property such as style.padding")->required();
    getter->callback([options] { get(*options); });
    CLI::App* setter = app.add_subcommand("set", "Write one property of a draft into its draft.json");
    setter->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    setter->add_option("PATH", options->path, "OBJECT.property, SECTION.space.fog.near, SECTION.space.objects.0.material.roughness, or a draft property such as style.padding")->required();
    setter->add_option("VALUE", options->value, "The new value: a number, true/false, a word, #RRGGBB")->required();
    setter->callback([options] { set(*options); });
}

} // namespace ovik::cli
