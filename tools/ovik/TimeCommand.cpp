#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "Command.h"
#include "OvikDrafts/FileDraftStore.h"
#include "OvikL10n/L10n.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/SpanClock.h"
#include "TimeTable.h"
#include "OvikPlatform/Error.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik::cli {
namespace {

struct TimeOptions {
    std::string package;
    std::optional<std::int64_t> output, played, source;
    std::string section;
    bool json = false;
    bool table = false;
};

// One moment on the three clocks; each is absent where the moment has none.
struct Moment {
    std::optional<OutputTime> output;
    std::optional<OutputTime> played;
    std::optional<SourceTime> source;
    std::optional<SectionID> section;
};

std::string number(std::int64_t microseconds) { return std::to_string(microseconds); }

void requireWithin(std::int64_t time, MediaDuration length) {
    if (time < 0 || time > length.microseconds)
        throw Error(L10n::format("cli.time.outside", {number(time), number(length.microseconds)}));
}

// The played moment of a film moment: the film's own where no section changes speed.
OutputTime playedAt(const Draft& draft, OutputTime output) {
    const auto moment = playedMoment(draft, output);
    return moment ? moment->output : output;
}

Moment atOutput(const Draft& draft, const DraftTimeline& line, OutputTime output) {
    const auto anchored = line.anchored(output);
    return {output, playedAt(draft, output), anchored->time, anchored->section};
}

Moment atPlayed(const Draft& draft, const DraftTimeline& line, OutputTime played) {
    const auto plain = playedTimeline(draft);
    requireWithin(played.microseconds, plain ? plain->duration() : MediaDuration{});
    Moment moment = atOutput(draft, line, SpanClock(draft, OutputTime{}, OutputTime{}, false).film(played));
    moment.played = played;
    return moment;
}

SectionID sectionNamed(const Draft& draft, const std::string& text) {
    if (text.empty()) return draft.sections[0].id;
    const auto uuid = UUID::parse(text);
    for (const Section& section : draft.sections)
        if (uuid && section.id.rawValue == *uuid) return section.id;
    throw Error(L10n::format("cli.time.unknownSection", {text}));
}

Moment atSource(const Draft& draft, const DraftTimeline& line, SourceTime source, const std::string& section) {
    const SectionID id = sectionNamed(draft, section);
    const auto output = line.output(AnchoredTime{id, source});
    return {output, output ? std::optional(playedAt(draft, *output)) : std::nullopt, source, id};
}

template <class Time>
JSONValue jsonTime(const std::optional<Time>& time) {
    return time ? JSONValue(time->microseconds) : JSONValue();
}

void print(const Moment& moment, bool json) {
    if (json) {
        JSONValue::Object object{{"output", jsonTime(moment.output)},
                                 {"played", jsonTime(moment.played)},
                                 {"source", jsonTime(moment.source)},
                                 {"section", moment.section ? JSONValue(moment.section->description()) : JSONValue()}};
        std::printf("%s\n", JSONWriter::write(JSONValue(std::move(object))).c_str());
        return;
    }
    const std::string none = L10n::text("cli.time.none");
    const auto text = [&](const auto& time) { return time ? number(time->microseconds) + " µs" : none; };
    std::printf("%s\n", L10n::format("cli.time.moment", {text(moment.output), text(moment.played), text(moment.source),
                                                         moment.section ? moment.section->description() : none})
                            .c_str());
}

void run(const TimeOptions& options) {
    const Draft draft = FileDraftStore::readDraft(options.package);
    const auto line = timeline(draft);
    if (!line || line->entries().empty()) throw Error(L10n::text("cli.time.noTimeline"));
    if (options.table) {
        std::printf("%s", TimeTable::text(draft, *line).c_str());
        return;
    }
    if (options.output) {
        requireWithin(*options.output, line->duration());
        print(atOutput(draft, *line, OutputTime{*options.output}), options.json);
    } else if (options.played) {
        print(atPlayed(draft, *line, OutputTime{*options.played}), options.json);
    } else {
        print(atSource(draft, *line, SourceTime{*options.source}, options.section), options.json);
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
            throw CLI::ValidationError("--output", L10n::text("cli.time.nothing"));
        run(*options);
    });
}

} // namespace ovik::cli
