#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <string>

#include "Command.h"
#include "CommandLine.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/animation/DraftAppearance.h"
#include "OvikModel/objects/ObjectWalks.h"
#include "OvikModel/scene/PropertyTable.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik::cli {
namespace {

struct StateOptions {
    std::string package;
    std::string object;
    std::string at;
    bool json = false;
};

const ObjectNode& objectNamed(const Draft& draft, const std::string& text) {
    const ObjectNode* found = nullptr;
    forEachNode(draft.objects, std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        if (!found && (node.id.description() == text || node.name == text)) found = &node;
    });
    if (!found) throw Error(L10n::format("model.property.object.notFound", {text}));
    return *found;
}

// The numbers of settings that actions moved away from rest, by property name.
JSONValue settingsJSON(const ActionState& settings) {
    JSONValue::Object out;
    for (const PropertyKey key : PropertyTable::animatable()) {
        const PropertySlot& slot = key.slot();
        if (slot.store.kind != PropertyStore::Kind::number || slot.domain == PropertyDomain::motion) continue;
        const auto index = std::size_t(slot.store.index);
        if (settings.numbers[index] != PropertyTable::restNumbers()[index]) out.insert_or_assign(key.name(), JSONValue(settings.numbers[index]));
    }
    return JSONValue(std::move(out));
}

// The appearance with its fields under their own names; absent ones are left out. A colour is
// hex text for a person to read, and the model's own record at full precision for a program.
JSONValue appearanceJSON(const ObjectAppearance& look, bool forPeople) {
    JSONValue::Object out{{"opacity", look.opacity},     {"scale", look.scale},
                          {"offset", JSONValue(JSONValue::Array{look.offset.dx, look.offset.dy})},
                          {"drawn", look.drawn},         {"stretchX", look.stretchX},
                          {"stretchY", look.stretchY},   {"skew", look.skew},
                          {"rotation", look.rotation},   {"blur", look.blur},
                          {"depth", look.depth},         {"rotationX", look.rotationX},
                          {"rotationY", look.rotationY}, {"reveal", look.reveal},
                          {"strokeStart", look.strokeStart}, {"strokeOffset", look.strokeOffset},
                          {"settings", settingsJSON(look.settingsState())}, {"become", look.become}};
    if (look.color)
        out.insert_or_assign("color", forPeople ? JSONValue(look.color->hexAlphaText()) : encodeJSON(*look.color));
    if (look.revealShape) out.insert_or_assign("revealShape", encodeJSON(*look.revealShape));
    if (look.text) out.insert_or_assign("text", JSONValue(*look.text));
    if (look.number) out.insert_or_assign("number", JSONValue(*look.number));
    if (look.path) out.insert_or_assign("path", encodeJSON(*look.path));
    if (look.age) out.insert_or_assign("age", JSONValue(*look.age));
    JSONValue::Object axes;
    for (const auto& [tag, value] : look.fontAxes) axes.insert_or_assign(tag, JSONValue(value));
    if (!axes.empty()) out.insert_or_assign("fontAxes", JSONValue(std::move(axes)));
    return JSONValue(std::move(out));
}

void run(const StateOptions& options) {
    const std::int64_t at = momentArgument("--at", options.at);
    const Draft draft = FileDraftStore::readDraft(options.package);
    const ObjectNode& node = objectNamed(draft, options.object);
    const auto look = rawAppearance(draft, node, OutputTime{at});
    if (!look) throw Error(L10n::format("cli.state.notShown", {node.name, std::to_string(at)}));
    const JSONValue json = appearanceJSON(*look, !options.json);
    if (options.json) {
        std::printf("%s\n", JSONWriter::write(json).c_str());
        return;
    }
    for (const auto& [name, value] : *json.object()) std::printf("%-13s %s\n", name.c_str(), value.compact().c_str());
}

} // namespace

void addStateCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("state", "Print what an object is at a moment of the film");
    auto options = std::make_shared<StateOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    command->add_option("OBJECT", options->object, "The object's id or name")->required();
    command->add_option("--at", options->at, "The film moment in microseconds")->required();
    command->add_flag("--json", options->json, "Print the appearance as one JSON object");
    command->callback([options] { run(*options); });
}

} // namespace ovik::cli
