#include "OvikModel/animation/ActionEvaluator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory_resource>
#include <numbers>

#include "OvikModel/animation/ActionAccumulator.h"
#include "OvikModel/animation/ActionRows.h"
#include "OvikModel/animation/PathSampling.h"
#include "OvikModel/values/NumberText.h"

namespace ovik {
namespace {

constexpr double tolerance = 1e-9;

double overshoot(double t) {
    const double u = t <= 0 ? -1.0 : std::min(t, 1.0) - 1.0;
    return 1 + 2.70158 * u * u * u + 1.70158 * u * u;
}

double smoothstep(double t) { return t * t * (3 - 2 * t); }

// One coordinate of the cubic with ends 0 and 1 and control values a, b, at parameter s.
double cubic(double s, double a, double b) {
    const double r = 1 - s;
    return 3 * r * r * s * a + 3 * r * s * s * b + s * s * s;
}
double cubicSlope(double s, double a, double b) {
    const double r = 1 - s;
    return 3 * r * r * a + 6 * r * s * (b - a) + 3 * s * s * (1 - b);
}

// The parameter whose x is `t`: Newton from s = t, then bisection where Newton stalls.
double bezierParameter(double t, double x1, double x2) {
    double s = t;
    for (int step = 0; step < 8; ++step) {
        const double error = cubic(s, x1, x2) - t;
        if (std::fabs(error) < tolerance) return s;
        const double slope = cubicSlope(s, x1, x2);
        if (std::fabs(slope) < tolerance) break;
        s = std::clamp(s - error / slope, 0.0, 1.0);
    }
    double lo = 0, hi = 1;
    for (int step = 0; step < 60; ++step) {
        s = (lo + hi) / 2;
        const double error = cubic(s, x1, x2) - t;
        if (std::fabs(error) < tolerance) return s;
        (error < 0 ? lo : hi) = s;
    }
    return s;
}

constexpr std::uint64_t golden = 0x9E3779B97F4A7C15ull;

std::uint64_t mixed(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

// A gradient in -1...1 for a lattice hash.
double gradient(std::uint64_t hash, std::uint64_t seed) {
    return 2 * (double(mixed((hash ^ seed) + golden) >> 11) * 0x1p-53) - 1;
}

// The tangents of the keyframe spline, flattened where `monotone` asks.
std::vector<double> tangents(const std::vector<double>& h, const std::vector<double>& d, bool monotone) {
    std::vector<double> m(d.size() + 1, 0.0);
    for (std::size_t i = 1; i < d.size(); ++i) m[i] = (d[i - 1] * h[i] + d[i] * h[i - 1]) / (h[i - 1] + h[i]);
    if (!monotone) return m;
    for (std::size_t i = 0; i < d.size(); ++i) {
        if (d[i] == 0) {
            m[i] = m[i + 1] = 0;
            continue;
        }
        if (m[i] * d[i] < 0) m[i] = 0;
        if (m[i + 1] * d[i] < 0) m[i + 1] = 0;
        const double a = m[i] / d[i], b = m[i + 1] / d[i];
        if (a * a + b * b > 9) {
            const double k = 3 / std::sqrt(a * a + b * b);
            m[i] *= k;
            m[i + 1] *= k;
        }
    }
    return m;
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\n\r\f\v");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\n\r\f\v") - first + 1);
}

// A plain finite number of digits, signs and points, with its count of decimals.
std::optional<std::pair<double, int>> numberText(const std::string& raw) {
    const std::string text = trimmed(raw);
    if (text.empty() || text.find_first_not_of("0123456789.-+") != std::string::npos) return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size() || !std::isfinite(value)) return std::nullopt;
    const auto point = text.find('.');
    return std::pair{value, point == std::string::npos ? 0 : int(text.size() - point - 1)};
}

RGBA blendedColor(RGBA a, const RGBA& b, double t) {
    if (a.alpha == 0) a = RGBA{b.red, b.green, b.blue, a.alpha};
    const auto lerp = [t](double x, double y) { return x + t * (y - x); };
    return RGBA{lerp(a.red, b.red), lerp(a.green, b.green), lerp(a.blue, b.blue), lerp(a.alpha, b.alpha)};
}

} // namespace

double ActionEvaluator::ease(const ActionCurve& curve, double t) {
    if (curve.is<ActionCurve::overshoot>()) return overshoot(t);
    if (t <= 0) return 0;
    if (t >= 1) return 1;
    if (const auto* s = std::get_if<ActionCurve::spring>(&curve.cases)) return spring(t, s->stiffness, s->damping);
    if (const auto* s = std::get_if<ActionCurve::steps>(&curve.cases)) {
        const double m = double(std::max<std::int64_t>(s->count, 1));
        return std::floor(t * m) / m;
    }
    if (const auto* b = std::get_if<ActionCurve::bezier>(&curve.cases)) return bezier(t, b->x1, b->y1, b->x2, b->y2);
    if (curve.is<ActionCurve::linear>()) return t;
    return smoothstep(t);
}

double ActionEvaluator::spring(double t, double stiffness, double damping) {
    const double w = std::sqrt(std::max(stiffness, 1e-9));
    const double z = std::max(damping, 0.0) / (2 * w);
    if (z < 1) {
        const double wd = std::sqrt(1 - z * z);
        return 1 - std::exp(-z * w * t) * (std::cos(w * wd * t) + (z / wd) * std::sin(w * wd * t));
    }
    if (z == 1) return 1 - std::exp(-w * t) * (1 + w * t);
    const double s = std::sqrt(z * z - 1);
    const double r1 = -w * (z - s), r2 = -w * (z + s);
    return 1 + (r2 * std::exp(r1 * t) - r1 * std::exp(r2 * t)) / (r1 - r2);
}

double ActionEvaluator::bezier(double t, double x1, double y1, double x2, double y2) {
    return cubic(bezierParameter(t, x1, x2), y1, y2);
}

} // namespace ovik

namespace ovik {

double ActionEvaluator::continuous(const std::vector<double>& times, const std::vector<double>& values,
                                   std::size_t segment, double t, bool monotone) {
    if (values.empty()) return 0;
    if (values.size() == 1 || times.size() < values.size()) return values.front();
    const std::size_t n = values.size();
    std::vector<double> h(n - 1), d(n - 1);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        h[i] = times[i + 1] - times[i];
        // Two keys at one moment make a jump, not a slope.
        d[i] = h[i] > 0 ? (values[i + 1] - values[i]) / h[i] : 0;
    }
    const std::vector<double> m = tangents(h, d, monotone);
    const std::size_t i = std::min(segment, n - 2);
    const double t2 = t * t, t3 = t2 * t;
    return (2 * t3 - 3 * t2 + 1) * values[i] + (t3 - 2 * t2 + t) * h[i] * m[i] + (-2 * t3 + 3 * t2) * values[i + 1] +
           (t3 - t2) * h[i] * m[i + 1];
}

double ActionEvaluator::noise(double x, std::uint64_t seed) {
    if (!std::isfinite(x)) return 0;
    const double floored = std::floor(x);
    const double f = x - floored;
    const auto i = std::int64_t(std::clamp(floored, -9e15, 9e15));
    const std::uint64_t h0 = std::uint64_t(i) * golden;
    const std::uint64_t h1 = h0 + golden;
    const double a = f * gradient(h0, seed);
    const double b = (f - 1) * gradient(h1, seed);
    const double fade = f * f * f * (f * (6 * f - 15) + 10);
    return 2 * (a + fade * (b - a));
}

std::uint64_t ActionEvaluator::secondSeed(std::uint64_t seed) { return mixed(seed + golden); }

ActionValue ActionEvaluator::blend(const ActionValue& a, const ActionValue& b, double t) {
    using V = ActionValue;
    if (t == 0) return a;
    if (a.kind() == b.kind()) {
        if (const auto* x = std::get_if<V::number>(&a.cases))
            return V::makeNumber(x->value + t * (std::get<V::number>(b.cases).value - x->value));
        if (const auto* x = std::get_if<V::vector>(&a.cases)) {
            const auto& y = std::get<V::vector>(b.cases);
            return V::makeVector(x->dx + t * (y.dx - x->dx), x->dy + t * (y.dy - x->dy));
        }
        if (const auto* x = std::get_if<V::color>(&a.cases))
            return V::makeColor(blendedColor(x->value, std::get<V::color>(b.cases).value, t));
        if (const auto* x = std::get_if<V::text>(&a.cases)) {
            if (auto counted = counting(x->value, std::get<V::text>(b.cases).value, t)) return V::makeText(*counted);
            return t >= 1 ? b : a;
        }
    }
    // Paths do not morph yet: like any other pair they swap halfway.
    return t < 0.5 ? a : b;
}

std::optional<std::string> ActionEvaluator::counting(const std::string& from, const std::string& to, double t) {
    const auto a = numberText(from);
    const auto b = numberText(to);
    if (!a || !b) return std::nullopt;
    return NumberText::format(a->first + t * (b->first - a->first), std::min(std::max(a->second, b->second), 6), false);
}

} // namespace ovik

namespace ovik {
namespace {

using Phase = ActionEvaluator::Phase;
using Contribution = ActionEvaluator::Contribution;

double seconds(MediaDuration duration) { return duration.seconds(); }

Phase wholePhase(double elapsed, double length, std::optional<double> progress = std::nullopt) {
    if (elapsed < 0) return Phase::before();
    if (length <= elapsed) return Phase::done(length);
    return Phase::during(progress.value_or(elapsed / length), elapsed, length);
}

Phase closingPhase(double remaining, double length) {
    if (length <= 0) return remaining <= 0 ? Phase::done(0) : Phase::before();
    if (remaining >= length) return Phase::before();
    if (remaining <= 0) return Phase::done(length);
    const double q = remaining / length;
    return Phase{Phase::Kind::during, 1 - q, q, length - remaining, length};
}

Phase betweenPhase(const Action& action, const ActionRange::between& range, const ActionClock& clock) {
    const auto span = clock.spanOf(SourceRange{range.start, range.end});
    const bool onFilm = clock.now && span;
    const double length = onFilm ? seconds(span->duration()) : 0;
    const double elapsed = onFilm ? seconds(*clock.now - span->start) : 0;
    const auto kind = action.mode.kind();
    if (kind == ActionMode::Kind::to || kind == ActionMode::Kind::alongPath) {
        if (clock.time < range.start) return Phase::before();
        if (clock.time >= range.end) return Phase::done(length);
        const double p = seconds(clock.time - range.start) / seconds(range.end - range.start);
        return Phase{Phase::Kind::during, p, 1 - p, elapsed, length};
    }
    if (!clock.now) return clock.time >= range.end ? Phase::done(length) : Phase::before();
    return wholePhase(elapsed, length);
}

// `amplitude` times `x`; a vector's second component takes `y`. Other kinds stand unchanged.
ActionValue scaled(const ActionValue& amplitude, double x, double y) {
    if (const auto* n = std::get_if<ActionValue::number>(&amplitude.cases)) return ActionValue::makeNumber(n->value * x);
    if (const auto* v = std::get_if<ActionValue::vector>(&amplitude.cases))
        return ActionValue::makeVector(v->dx * x, v->dy * y);
    return amplitude;
}

Contribution offset(ActionValue value) { return Contribution{Contribution::Kind::offset, std::move(value)}; }
Contribution value(ActionValue value) { return Contribution{Contribution::Kind::value, std::move(value)}; }

std::optional<Contribution> toContribution(const Action& action, const ActionMode::to& mode, const Phase& phase,
                                           const ActionOwn& own) {
    const ActionValue from = ActionEvaluator::start(action, own, std::nullopt);
    switch (phase.kind) {
    case Phase::Kind::before: return value(from);
    case Phase::Kind::done: return value(mode.to);
    case Phase::Kind::during: break;
    }
    // A closing runs its curve backwards from the end of the life.
    if (action.range.is<ActionRange::closing>())
        return value(ActionEvaluator::blend(mode.to, from, ActionEvaluator::ease(action.curve, phase.remaining)));
    return value(ActionEvaluator::blend(from, mode.to, ActionEvaluator::ease(action.curve, phase.progress)));
}

std::optional<Contribution> pathContribution(const Action& action, const BezierPath& path, const Phase& phase) {
    const PathSampling sampling(path);
    if (sampling.isEmpty()) return std::nullopt;
    const double f = phase.kind == Phase::Kind::before  ? 0
                     : phase.kind == Phase::Kind::done ? 1
                                                       : ActionEvaluator::ease(action.curve, phase.progress);
    const CGPoint first = path.anchors.front().point;
    const CGPoint point = sampling.point(f * sampling.length());
    return offset(ActionValue::makeVector(point.x - first.x, point.y - first.y));
}

std::optional<Contribution> moveContribution(const Action& action, const Phase& phase) {
    const double e = phase.elapsed;
    if (const auto* m = std::get_if<ActionMode::oscillate>(&action.mode.cases)) {
        if (phase.kind != Phase::Kind::during) return std::nullopt;
        const double x = std::sin(2 * std::numbers::pi * m->frequency * e) * std::exp(-m->decay * e);
        return offset(scaled(m->amplitude, x, x));
    }
    if (const auto* m = std::get_if<ActionMode::noise>(&action.mode.cases)) {
        if (phase.kind != Phase::Kind::during) return std::nullopt;
        const double envelope = m->decay && *m->decay != 0 ? std::exp(-*m->decay * e) : 1;
        const double x = m->frequency * e;
        return offset(scaled(m->amplitude, ActionEvaluator::noise(x, m->seed) * envelope,
                             ActionEvaluator::noise(x, ActionEvaluator::secondSeed(m->seed)) * envelope));
    }
    const auto& m = std::get<ActionMode::continuous>(action.mode.cases);
    if (phase.kind == Phase::Kind::before) return std::nullopt;
    const double eased = phase.kind == Phase::Kind::done ? 1 : ActionEvaluator::ease(action.curve, phase.progress);
    const double amount = phase.length * eased;
    return offset(scaled(m.rate, amount, amount));
}

// Without a term, an object's own motion skips what is meant for one term of a formula.
// The actions of one term (none given: those of no term, when any has one), in sort order.
// Evaluation works on pointers into the caller's list: nothing is copied per frame.
std::pmr::vector<const Action*> orderedOfTerm(const std::vector<Action>& actions, const std::optional<std::string>& term,
                                              std::pmr::memory_resource* memory) {
    const bool anyTerm = std::any_of(actions.begin(), actions.end(), [](const Action& a) { return a.term.has_value(); });
    std::pmr::vector<const Action*> out(memory);
    out.reserve(actions.size());
    for (const Action& action : actions)
        if ((!term && !anyTerm) || action.term == term) out.push_back(&action);
    ActionEvaluator::order(out);
    return out;
}

bool isBetweenTo(const Action& action) {
    return action.mode.is<ActionMode::to>() && action.range.is<ActionRange::between>();
}

std::optional<SourceTime> startOf(const Action& action) {
    if (const auto* range = std::get_if<ActionRange::between>(&action.range.cases)) return range->start;
    return std::nullopt;
}

} // namespace

namespace {

// The first numbers of an action's sort key: range kind and moments, property rank, mode kind.
// They decide most comparisons without building the whole key.
struct SortPrefix {
    std::array<double, 5> numbers;
    std::size_t count = 0;

    SortPrefix() = default; // for a buffer whose entries are written before they are read
    explicit SortPrefix(const Action& action) {
        const auto add = [this](double x) { numbers[count++] = x; };
        if (const auto* o = std::get_if<ActionRange::opening>(&action.range.cases)) {
            add(0), add(double(o->delay.microseconds)), add(double(o->length.microseconds));
        } else if (const auto* c = std::get_if<ActionRange::closing>(&action.range.cases)) {
            add(1), add(double(c->advance.microseconds)), add(double(c->length.microseconds));
        } else if (const auto* b = std::get_if<ActionRange::between>(&action.range.cases)) {
            add(3), add(double(b->start.microseconds)), add(double(b->end.microseconds));
        } else {
            add(2);
        }
        add(double(action.property.slot().rank));
        add(double(action.mode.cases.index()));
    }
    bool operator==(const SortPrefix& other) const {
        return std::equal(numbers.begin(), numbers.begin() + std::ptrdiff_t(count), other.numbers.begin(),
                          other.numbers.begin() + std::ptrdiff_t(other.count));
    }
    bool operator<(const SortPrefix& other) const {
        return std::lexicographical_compare(numbers.begin(), numbers.begin() + std::ptrdiff_t(count),
                                            other.numbers.begin(), other.numbers.begin() + std::ptrdiff_t(other.count));
    }
};

constexpr std::size_t shortList = 16;

} // namespace

std::vector<const Action*> ActionEvaluator::ordered(std::vector<const Action*> actions) {
    order(actions);
    return actions;
}

void ActionEvaluator::order(std::span<const Action*> actions) {
    if (actions.size() < 2) return;
    // Entries are plain values, cheap to make and swap; whole keys are built only when two
    // prefixes tie, which is rare.
    struct Entry {
        const Action* action;
        SortPrefix prefix;
    };
    const auto before = [](const Entry& a, const Entry& b) {
        if (!(a.prefix == b.prefix)) return a.prefix < b.prefix;
        return a.action->sortKey() < b.action->sortKey();
    };
    const auto sortInto = [&](std::span<Entry> entries) {
        for (std::size_t i = 0; i < actions.size(); ++i) entries[i] = Entry{actions[i], SortPrefix(*actions[i])};
        // Lists are short: an insertion sort is stable and needs no buffer.
        if (entries.size() <= shortList) {
            for (std::size_t i = 1; i < entries.size(); ++i)
                for (std::size_t j = i; j > 0 && before(entries[j], entries[j - 1]); --j) std::swap(entries[j], entries[j - 1]);
        } else {
            std::stable_sort(entries.begin(), entries.end(), before);
        }
        for (std::size_t i = 0; i < entries.size(); ++i) actions[i] = entries[i].action;
    };
    if (actions.size() <= shortList) {
        std::array<Entry, shortList> entries; // left unset: each is written before it is read
        return sortInto(std::span(entries).first(actions.size()));
    }
    std::vector<Entry> entries(actions.size());
    sortInto(entries);
}

double ActionEvaluator::reach(std::span<const Action* const> actions) {
    MediaDuration entrance, exit;
    for (const Action* action : actions) {
        if (const auto* o = std::get_if<ActionRange::opening>(&action->range.cases))
            entrance = std::max(entrance, o->delay + o->length);
        if (const auto* c = std::get_if<ActionRange::closing>(&action->range.cases))
            exit = std::max(exit, c->advance + c->length);
    }
    return seconds(entrance) + seconds(exit);
}

std::optional<double> ActionEvaluator::squeeze(std::span<const Action* const> actions,
                                               const std::optional<OutputRange>& life) {
    if (!life) return std::nullopt;
    const double d = seconds(life->duration());
    const double r = reach(actions);
    if (d < r && r > 0) return d / r;
    return std::nullopt;
}

std::optional<ActionEvaluator::Phase> ActionEvaluator::phase(const Action& action, const ActionClock& clock,
                                                             std::optional<double> squeeze) {
    const double k = squeeze.value_or(1);
    if (const auto* range = std::get_if<ActionRange::between>(&action.range.cases))
        return betweenPhase(action, *range, clock);
    if (!clock.now || !clock.life) return std::nullopt;
    const OutputRange& life = *clock.life;
    if (const auto* o = std::get_if<ActionRange::opening>(&action.range.cases))
        return wholePhase(seconds(*clock.now - life.start) - k * seconds(o->delay), k * seconds(o->length));
    if (const auto* c = std::get_if<ActionRange::closing>(&action.range.cases))
        return closingPhase(seconds(life.end - *clock.now) - k * seconds(c->advance), k * seconds(c->length));
    return wholePhase(seconds(*clock.now - life.start), seconds(life.duration()));
}

ActionValue ActionEvaluator::start(const Action& action, const ActionOwn& own, const std::optional<ActionValue>& running) {
    const auto& mode = std::get<ActionMode::to>(action.mode.cases);
    if (mode.from) return *mode.from;
    if (running) return *running;
    if (auto rest = action.rest(own)) return *rest;
    if (const auto* c = std::get_if<ActionValue::color>(&mode.to.cases))
        return ActionValue::makeColor(RGBA{c->value.red, c->value.green, c->value.blue, 0});
    return mode.to;
}

std::optional<ActionEvaluator::Contribution> ActionEvaluator::contribution(const Action& action, const Phase& phase,
                                                                           const ActionOwn& own) {
    if (const auto* m = std::get_if<ActionMode::to>(&action.mode.cases)) return toContribution(action, *m, phase, own);
    if (const auto* m = std::get_if<ActionMode::alongPath>(&action.mode.cases))
        return pathContribution(action, m->path, phase);
    return moveContribution(action, phase);
}

ActionState ActionEvaluator::state(const std::vector<Action>& actions, const ActionClock& clock, bool outlineFades,
                                   const std::optional<std::string>& term, const ActionOwn& own) {
    if (actions.empty()) return ActionState::rest();
    // Scratch lists of one evaluation live on the stack unless they outgrow it.
    std::array<std::byte, 4096> scratch;
    std::pmr::monotonic_buffer_resource memory(scratch.data(), scratch.size());
    const std::pmr::vector<const Action*> sorted = orderedOfTerm(actions, term, &memory);
    if (sorted.empty()) return ActionState::rest();
    const auto k = squeeze(sorted, clock.life);
    ActionState out; // at rest: made, which costs less than a copy of `rest()`
    Accumulator accumulator{out, outlineFades, own};
    // Few rows: found by a walk, then put in key order once.
    std::pmr::vector<std::pair<RowKey, Rows>> rows(&memory);
    for (const Action* action : sorted) {
        if (isBetweenTo(*action)) {
            const RowKey key(*action);
            auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& entry) { return entry.first == key; });
            if (row == rows.end()) row = rows.insert(rows.end(), {key, Rows{&memory}});
            row->second.take(*action, own);
            continue;
        }
        const auto at = phase(*action, clock, k);
        if (!at) continue;
        if (const auto given = contribution(*action, *at, own)) accumulator.add(*given, *action);
    }
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [key, row] : rows) {
        for (std::size_t i = 0; i < row.tracks.size(); ++i) {
            const Track& track = row.tracks[i];
            // A track that jumps away waits for its own start.
            if (i > 0 && startOf(*track.actions.front()) > clock.time) continue;
            if (auto reached = track.value(clock.time, own))
                accumulator.add(Contribution{Contribution::Kind::track, std::move(*reached)}, *track.actions.front());
        }
    }
    accumulator.finish();
    return out;
}

ActionState ActionEvaluator::stateOfTransition(const std::vector<Action>& actions, double progress, MediaDuration length) {
    if (actions.empty()) return ActionState::rest();
    const MediaDuration elapsed = MediaDuration::rounded(progress * double(length.microseconds));
    std::vector<const Action*> sorted;
    for (const Action& action : actions) sorted.push_back(&action);
    order(sorted);
    // The transition stands for the life: opening and closing count against its length.
    const OutputRange life{OutputTime{}, OutputTime{} + length};
    const ActionClock clock{OutputTime{} + elapsed, SourceTime{elapsed.microseconds}, life, {}, {}};
    const auto k = squeeze(sorted, life);
    ActionState out; // at rest: made, which costs less than a copy of `rest()`
    Accumulator accumulator{out, false, ActionOwn::none()};
    for (const Action* action : sorted) {
        const bool counted = action->range.is<ActionRange::opening>() || action->range.is<ActionRange::closing>();
        const auto at = counted ? phase(*action, clock, k) : wholePhase(seconds(elapsed), seconds(length), progress);
        if (!at) continue;
        if (const auto given = contribution(*action, *at, ActionOwn::none())) accumulator.add(*given, *action);
    }
    accumulator.finish();
    return out;
}

} // namespace ovik
