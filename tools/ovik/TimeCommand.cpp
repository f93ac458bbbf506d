#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "Command.h"
#include "CommandLine.h"
#include "FilmMoment.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/time/ClockReading.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/json/JSONWriter.h"
#include "TimeTable.h"
#include "UsageError.h"

namespace ovik::cli {
namespace {

struct TimeOptions {
    std::string package;
    std::optional<std::string> output, played, source;
    std::string section;
    bool json = false;
    bool table = false;
};

std::string number(std::int64_t microseconds) { return std::to_string(microseconds); }

SectionID sectionNamed(const Draft& draft, const std::string& text) {
    if (text.empty()) return draft.sections[0].id;
    const auto uuid = UUID::parse(text);
    for (const Section& section : draft.sections)
        if (uuid && section.id.rawValue == *uuid) return section.id;
    throw Error(L10n::format("cli.time.unknownSection", {text}));
}

JSONValue jsonTime(std::optional<std::int64_t> microseconds) {
    return microseconds ? JSONValue(*microseconds) : JSONValue();
}

void print(const ClockReading& moment, bool json) {
    const auto count = [](const auto& time) { return time ? std::optional(time->microseconds) : std::nullopt; };
    const std::optional<std::int64_t> source =
        moment.source ? std::optional(moment.source->time.microseconds) : std::nullopt;
    const auto section = moment.source ? std::optional(moment.source->section.description()) : std::nullopt;
    if (json) {
        JSONValue::Object object{{"output", jsonTime(count(moment.output))},
                                 {"played", jsonTime(count(moment.played))},
                                 {"source", jsonTime(source)},
                                 {"section", section ? JSONValue(*section) : JSONValue()}};
        std::printf("%s\n", JSONWriter::write(JSONValue(std::move(object))).c_str());
        return;
    }
    const std::string none = L10n::text("cli.time.none");
    const auto text = [&](std::optional<std::int64_t> time) { return time ? number(*time) + " µs" : none; };
    std::printf("%s\n", L10n::format("cli.time.moment", {text(count(moment.output)), text(count(moment.played)),
                                                         text(source), section.value_or(none)})
                            .c_str());
}

void run(const TimeOptions& options) {
    const auto moment = [](const char* option, const std::optional<std::string>& text) {
        return text ? std::optional(momentArgument(option, *text)) : std::nullopt;
    };
    const auto output = moment("--output", options.output), played = moment("--played", options.played),
               source = moment("--source", options.source);
    const Draft draft = FileDraftStore::readDraft(options.package);
    const MediaDuration length = filmLength(draft);
    if (options.table) {
        std::printf("%s", TimeTable::text(draft, *timeline(draft)).c_str());
        return;
    }
    if (output) {
        requireOnFilm(*output, length);
        print(ClockReading::atOutput(draft, OutputTime{*output}), options.json);
    } else if (played) {
        const auto plain = playedTimeline(draft);
        requireOnFilm(*played, plain ? plain->duration() : MediaDuration{});
        print(ClockReading::atPlayed(draft, OutputTime{*played}), options.json);
    } else {
        const AnchoredTime anchored{sectionNamed(draft, options.section), SourceTime{*source}};
        print(ClockReading::atSource(draft, anchored), options.json);
    }
}

} // namespace

void addTimeCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("time", "Tell where a moment falls on the output, played and source clocks");
    auto options = std::make_shared<TimeOptions>();
    command->add_option("PACKAGE", options->package, "An .ovikwork package folder")->required();
    CLI::Option* output = command->add_option("--output", options->output, "A film moment in microseconds");
    CLI::Option* played = command->add_option("--played", options->played, "A moment of the film without speed curves");
    CLI::Option* source = command->add_option("--source", options->source, "A source moment of a section");
    CLI::Option* section =
        command->add_option("--section", options->section, "The section of --source (the first when not given)");
    CLI::Option* table = command->add_flag("--table", options->table, "Print the whole map of the draft");
    CLI::Option* json = command->add_flag("--json", options->json, "Print the moment as one JSON object");
    output->excludes(played, source, table);
    played->excludes(source, table);
    source->excludes(table);
    section->needs(source);
    json->excludes(table);
    command->callback([options] {
        if (!options->output && !options->played && !options->source && !options->table)
            throw UsageError(L10n::text("cli.time.nothing"));
        run(*options);
    });
}

} // namespace ovik::cli
