#include "OvikModel/animation/DraftAppearance.h"

#include <algorithm>
#include <memory>

#include "OvikModel/Draft.h"
#include "OvikModel/animation/ActionEvaluator.h"
#include "OvikModel/time/DraftTiming.h"

namespace ovik {
namespace {

// One range from the first start to the last end.
std::optional<OutputRange> hull(const std::vector<OutputRange>& ranges) {
    if (ranges.empty()) return std::nullopt;
    OutputRange out = ranges.front();
    for (const OutputRange& range : ranges) {
        out.start = std::min(out.start, range.start);
        out.end = std::max(out.end, range.end);
    }
    return out;
}

SourceTime sourceAt(const DraftTimeline::Entry& entry, OutputTime output) {
    return entry.map.source(OutputTime{} + (output - entry.output.start));
}

// The section's clock at `now`. `timeline` must outlive the clock, unless `kept` holds it.
ActionClock sectionClock(const DraftTimeline& timeline, const DraftTimeline::Entry& entry, OutputTime now,
                         std::optional<OutputRange> life, std::shared_ptr<const DraftTimeline> kept = nullptr) {
    ActionClock clock{now, sourceAt(entry, now), life, {}, {}};
    if (kept) {
        clock.span = [&entry, kept](const SourceRange& range) { return hull(kept->outputRanges(range, entry.section)); };
        clock.source = [&entry, kept](OutputTime output) { return sourceAt(entry, output); };
    } else {
        // Two references fit in the function's own storage: no allocation per evaluation.
        clock.span = [&timeline, &entry](const SourceRange& range) {
            return hull(timeline.outputRanges(range, entry.section));
        };
        clock.source = [&entry](OutputTime output) { return sourceAt(entry, output); };
    }
    return clock;
}

SourceRange sourceSpan(const TimeMap& map) {
    const auto& kept = map.keptRanges();
    if (kept.empty()) return SourceRange{};
    SourceRange out = kept.front();
    for (const SourceRange& range : kept) {
        out.start = std::min(out.start, range.start);
        out.end = std::max(out.end, range.end);
    }
    return out;
}

// An object belongs to its section, a spanning one to the whole draft; one that names no
// section belongs to the section on screen.
const DraftTimeline::Entry* entryOf(const DraftTimeline& timeline, const ObjectNode& node, OutputTime time) {
    if (node.span) return timeline.entry(SectionID::wholeDraft());
    if (node.section) return timeline.entry(*node.section);
    const auto index = timeline.entryIndex(time);
    return index ? &timeline.entries()[*index] : nullptr;
}

struct Placement {
    std::optional<OutputRange> life;
    bool shown = false;
};

Placement placement(const DraftTimeline& timeline, const DraftTimeline::Entry& entry, const ObjectNode& node,
                    OutputTime time) {
    if (!node.timing) {
        const OutputRange life = entry.output;
        return {life, life.start <= time && (time < life.end || time == timeline.end())};
    }
    const SourceRange span = sourceSpan(entry.map);
    const SourceRange range{std::max(node.timing->start, span.start), std::min(node.timing->end.value_or(span.end), span.end)};
    const auto life = hull(timeline.outputRanges(range, entry.section));
    return {life, life && entry.output.contains(time) && range.contains(sourceAt(entry, time))};
}

// Objects that animate by themselves count their age from their appearing.
double ageOf(const ObjectNode& node, const std::optional<OutputRange>& life, OutputTime time) {
    const Annotation* annotation = node.annotation();
    if (!life || !annotation || annotation->kind() != AnnotationKind::generator) return 0;
    return (time - life->start).seconds();
}

struct Placed {
    ObjectMotion motion;
    double age = 0;
    bool shown = false;
};

// Strokes of shapes, lines and paths draw along their length; any other outline fades in.
bool drawsOutline(const ObjectNode& node) {
    const Annotation* annotation = node.annotation();
    if (!annotation) return false;
    switch (annotation->kind()) {
    case AnnotationKind::rectangle:
    case AnnotationKind::ellipse:
    case AnnotationKind::arrow:
    case AnnotationKind::line:
    case AnnotationKind::pen:
    case AnnotationKind::path: return true;
    default: return false;
    }
}

// The object on its section's clock at `time`. With `keeps`, the clock holds the timeline so
// that the motion may outlive the caller's hold on it.
std::optional<Placed> placed(const Draft& draft, const std::shared_ptr<const DraftTimeline>& timeline,
                             const ObjectNode& node, OutputTime time, bool keeps) {
    const bool outlineFades = !drawsOutline(node);
    if (!draft.isTimed()) return Placed{ObjectMotion{&node, std::nullopt, outlineFades}, 0, true};
    if (!timeline) return std::nullopt;
    const DraftTimeline::Entry* entry = entryOf(*timeline, node, time);
    if (!entry) return std::nullopt;
    const Placement place = placement(*timeline, *entry, node, time);
    ActionClock clock = sectionClock(*timeline, *entry, time, place.life, keeps ? timeline : nullptr);
    return Placed{ObjectMotion{&node, std::move(clock), outlineFades}, ageOf(node, place.life, time), place.shown};
}

} // namespace

std::optional<ObjectMotion> rawMotion(const Draft& draft, const ObjectNode& node, OutputTime time, bool away) {
    auto found = placed(draft, timeline(draft), node, time, true);
    if (!found || (!found->shown && !away)) return std::nullopt;
    return std::move(found->motion);
}

std::optional<ObjectAppearance> rawAppearance(const Draft& draft, const ObjectNode& node, OutputTime time) {
    return rawAppearance(draft, timeline(draft), node, time); // the timeline is held for the call
}

std::optional<ObjectAppearance> rawAppearance(const Draft& draft, const std::shared_ptr<const DraftTimeline>& timeline,
                                              const ObjectNode& node, OutputTime time) {
    const auto found = placed(draft, timeline, node, time, false);
    if (!found || !found->shown) return std::nullopt;
    // Made in place: an appearance is large, and moving it costs a copy of most of it.
    const ObjectMotion& motion = found->motion;
    std::optional<ObjectAppearance> look;
    if (motion.moves())
        look.emplace(motion.own(motion.node->actions, motion.clock->now), !motion.outlineFades);
    else
        look.emplace(ObjectAppearance::full());
    look->age = found->age;
    return look;
}

ActionState timelineState(const DraftTimeline& timeline, const std::vector<Action>& actions, SectionID section,
                          OutputTime output, SourceTime source) {
    if (actions.empty()) return ActionState::rest();
    const DraftTimeline::Entry* entry = timeline.entry(section);
    if (!entry) return ActionEvaluator::state(actions, ActionClock::still(source), false, std::nullopt, ActionOwn::none());
    ActionClock clock = sectionClock(timeline, *entry, output, entry->output);
    clock.time = source;
    return ActionEvaluator::state(actions, clock, false, std::nullopt, ActionOwn::none());
}

ActionState mediaState(const DraftTimeline& timeline, const Media& media, SectionID section, OutputTime output,
                       SourceTime source) {
    return timelineState(timeline, media.actions, section, output, source);
}

} // namespace ovik
