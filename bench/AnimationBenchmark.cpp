// Evaluating every object of a 2,000-object draft at one moment, against a plain loop that
// only reads the stored values of each object that evaluation reads.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "NumberedID.h"

#include "OvikModel/Draft.h"
#include "OvikModel/animation/DraftAppearance.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/time/DraftTiming.h"

namespace {

using namespace ovik;

template <class ID>
ID numberedID(std::uint64_t n) {
    return bench::numberedID<ID>(n, 0xA0);
}

ActionCurve linear() { return ActionCurve{{}, ActionCurve::linear{}}; }

// A fade in over its opening, a move between two moments, and a gentle swing.
std::vector<Action> actionsFor(int i) {
    Action fade;
    fade.property = PropertyKey::opacity();
    fade.mode = ActionMode{{}, ActionMode::to{ActionValue::makeNumber(0), ActionValue::makeNumber(1)}};
    fade.curve = ActionCurve{};
    fade.range = ActionRange{{}, ActionRange::opening{MediaDuration{}, MediaDuration{500'000}}};
    Action move = fade;
    move.property = PropertyKey::position();
    move.mode = ActionMode{{}, ActionMode::to{std::nullopt, ActionValue::makeVector(40 + i % 7, -20)}};
    move.curve = linear();
    move.range = ActionRange{{}, ActionRange::between{SourceTime{1'000'000}, SourceTime{3'000'000}}};
    Action swing = fade;
    swing.property = PropertyKey::rotation();
    swing.mode = ActionMode{{}, ActionMode::oscillate{ActionValue::makeNumber(5), 0.5, 0.1}};
    swing.range = ActionRange{{}, ActionRange::whole{}};
    return {fade, move, swing};
}

Draft animatedDraft(int objectCount) {
    const AnnotationDefaults defaults = AnnotationDefaults::standard();
    Canvas canvas;
    canvas.pixelSize = PixelSize{1920, 1080};
    Draft draft = Draft::newAnimation(canvas, MediaDuration{10'000'000}, Date{0}, numberedID<DraftID>(1), TimeZone{0});
    std::vector<ObjectNode> nodes;
    for (int i = 0; i < objectCount; ++i) {
        ObjectNode node;
        node.id = numberedID<ObjectID>(100 + std::uint64_t(i));
        node.name = "对象 " + std::to_string(i);
        node.content = ObjectContent::makeAnnotation(
            defaults.rectangle(CGRect{{double(i % 40) * 30, double(i / 40) * 20}, {24, 16}}));
        node.actions = actionsFor(i);
        nodes.push_back(std::move(node));
    }
    draft.objects = CowList<ObjectNode>(std::move(nodes));
    return draft;
}

const Draft& sample() {
    static const Draft draft = animatedDraft(2000);
    return draft;
}

// A stored value's numbers, read.
double storedOf(const ActionValue& value) {
    if (const auto* n = std::get_if<ActionValue::number>(&value.cases)) return n->value;
    if (const auto* v = std::get_if<ActionValue::vector>(&value.cases)) return v->dx + v->dy;
    return double(value.cases.index());
}

// What one action stores and evaluation reads: its property, scope and term, its range's
// moments, its mode's values and numbers, its curve's kind.
double storedOf(const Action& action) {
    double sum = double(action.property.id) + double(action.range.cases.index()) + double(action.scope) +
                 double(action.term.has_value()) + double(action.curve.cases.index());
    if (const auto* o = std::get_if<ActionRange::opening>(&action.range.cases))
        sum += double((o->delay + o->length).microseconds);
    if (const auto* b = std::get_if<ActionRange::between>(&action.range.cases))
        sum += double((b->end - b->start).microseconds);
    if (const auto* to = std::get_if<ActionMode::to>(&action.mode.cases))
        sum += storedOf(to->to) + (to->from ? storedOf(*to->from) : 0);
    if (const auto* o = std::get_if<ActionMode::oscillate>(&action.mode.cases))
        sum += storedOf(o->amplitude) + o->frequency + o->decay;
    return sum;
}

// The floor: read each object's stored values that evaluation reads (where it stands in time,
// its kind, its actions), and compute nothing.
double readStored(const Draft& draft) {
    double sum = 0;
    for (const ObjectNode& node : draft.objects) {
        sum += double(node.isHidden) + (node.opacity ? *node.opacity : 1.0) + double(node.timing.has_value()) +
               double(node.section.has_value()) + double(node.span.has_value()) + double(node.content.cases.index());
        if (const Annotation* annotation = node.annotation()) sum += double(annotation->kind());
        for (const Action& action : node.actions) sum += storedOf(action);
    }
    return sum;
}

// As a frame is composed: the timeline looked up once, every object evaluated against it.
double evaluateEvery(const Draft& draft, OutputTime moment) {
    const auto line = timeline(draft);
    double sum = 0;
    for (const ObjectNode& node : draft.objects)
        if (const auto look = rawAppearance(draft, line, node, moment)) sum += look->opacity + look->offset.dx;
    return sum;
}

constexpr OutputTime moment{2'000'000};

void BaselineReadStored(benchmark::State& state) {
    const Draft& draft = sample();
    for (auto _ : state) benchmark::DoNotOptimize(readStored(draft));
    state.SetItemsProcessed(state.iterations() * std::int64_t(draft.objects.size()));
}

void EvaluateEveryObject(benchmark::State& state) {
    const Draft& draft = sample();
    for (auto _ : state) benchmark::DoNotOptimize(evaluateEvery(draft, moment));
    state.SetItemsProcessed(state.iterations() * std::int64_t(draft.objects.size()));
}

// Both in turn within each iteration, so that a slow spell of a shared machine weighs on both
// alike. The counter is the median of the iterations' quotients, evaluation time over the
// floor's: a spell that slows one side of a few pairs moves the median little.
void EvaluateOverFloorPaired(benchmark::State& state) {
    const Draft& draft = sample();
    std::vector<double> quotients;
    double floorSeconds = 0, evaluationSeconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(readStored(draft));
        const auto read = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(evaluateEvery(draft, moment));
        const auto evaluated = std::chrono::steady_clock::now();
        const double floor = std::chrono::duration<double>(read - start).count();
        const double evaluation = std::chrono::duration<double>(evaluated - read).count();
        quotients.push_back(evaluation / floor);
        floorSeconds += floor;
        evaluationSeconds += evaluation;
    }
    std::nth_element(quotients.begin(), quotients.begin() + std::ptrdiff_t(quotients.size() / 2), quotients.end());
    state.counters["evaluation/floor"] = quotients[quotients.size() / 2];
    state.counters["floor µs"] = 1e6 * floorSeconds / double(state.iterations());
    state.counters["evaluation µs"] = 1e6 * evaluationSeconds / double(state.iterations());
}

} // namespace

BENCHMARK(BaselineReadStored);
BENCHMARK(EvaluateEveryObject)->Unit(benchmark::kMillisecond);
BENCHMARK(EvaluateOverFloorPaired)->Unit(benchmark::kMillisecond)->MinTime(2);
