#include "OvikModel/draft/SectionSpeed.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "OvikModel/animation/ActionEvaluator.h"

namespace ovik {
namespace {

// The output length of played length `length` at a steady `rate`.
MediaDuration steadyOutput(MediaDuration length, double rate) {
    if (rate == 1) return length;
    return std::max(MediaDuration::rounded(double(length.microseconds) / rate), MediaDuration{1});
}

// A hold's place on played time of length `played`.
MediaDuration holdPosition(const SectionSpeed::Hold& hold, MediaDuration played) {
    return hold.at.microseconds < 1 ? MediaDuration{} : std::min(played, hold.at);
}

MediaDuration holdOutput(const SectionSpeed::Hold& hold) {
    const double seconds = hold.duration.seconds();
    if (seconds <= 0.05) return MediaDuration{50'000};
    return MediaDuration::fromSeconds(std::min(seconds, 60.0));
}

} // namespace

SectionSpeed SectionSpeed::make(std::vector<Key> keys, std::vector<Hold> holds, bool reversed) {
    const auto byAt = [](const auto& a, const auto& b) { return a.at < b.at; };
    std::stable_sort(keys.begin(), keys.end(), byAt);
    std::stable_sort(holds.begin(), holds.end(), byAt);
    return SectionSpeed{std::move(keys), std::move(holds), reversed};
}

SectionSpeed SectionSpeed::ramp(double from, double to, MediaDuration over, std::optional<ActionCurve> curve) {
    std::vector<Key> keys{{MediaDuration{}, from, std::move(curve)}};
    if (from != to) keys.push_back({over, to, std::nullopt});
    return make(std::move(keys), {}, false);
}

double SectionSpeed::clamped(double rate) {
    if (!std::isfinite(rate)) return 1.0;
    if (rate <= slowest) return slowest;
    return std::round(std::min(rate, fastest) * 1000) / 1000;
}

bool SectionSpeed::isIdentity() const {
    const auto plain = [](const Key& key) { return key.rate == 1.0; };
    return holds.empty() && !reversed && std::all_of(keys.begin(), keys.end(), plain);
}

double SectionSpeed::rate(double position) const {
    if (keys.empty()) return 1.0;
    if (position <= double(keys.front().at.microseconds)) return clamped(keys.front().rate);
    const auto next = std::upper_bound(keys.begin(), keys.end(), position,
                                       [](double p, const Key& key) { return p < double(key.at.microseconds); });
    if (next == keys.end()) return clamped(keys.back().rate);
    // Keys sharing one `at` make a jump: the search lands after the later of them, so the
    // span below is never empty.
    const Key& a = *std::prev(next);
    const Key& b = *next;
    const double span = (b.at - a.at).seconds();
    const double progress = ((position - double(a.at.microseconds)) / 1e6) / span;
    const double eased = ActionEvaluator::ease(a.curve.value_or(ActionCurve{}), progress);
    return std::clamp(a.rate + (b.rate - a.rate) * eased, slowest, fastest);
}

namespace {

// The steps of a ramp from `a` to `b` whose end rates differ.
void appendRamp(const SectionSpeed& speed, MediaDuration a, MediaDuration b, bool framed,
                std::vector<SectionSpeed::Piece>& out) {
    const double length = double((b - a).microseconds);
    const double middle = (double(a.microseconds) + double(b.microseconds)) / 2;
    const double lowest = std::max({std::min({speed.rate(double(a.microseconds)), speed.rate(double(b.microseconds)),
                                              speed.rate(middle)}),
                                    SectionSpeed::slowest});
    const auto want = std::max<std::int64_t>(std::int64_t(std::ceil((length / 1e6 / lowest) / 0.033333)), 2);
    std::int64_t n = want;
    if (framed) n = std::min(want, std::max<std::int64_t>(std::int64_t(std::floor((length / 1e6) / 0.1)), 1));
    n = std::min(n, SectionSpeed::maximumSteps);
    MediaDuration u = a;
    for (std::int64_t i = 1; i <= n; ++i) {
        const MediaDuration v = i == n ? b : a + MediaDuration::rounded(length * double(i) / double(n));
        if (v == u) continue;
        const double rate = speed.rate((double(u.microseconds) + double(v.microseconds)) / 2);
        out.push_back({steadyOutput(v - u, rate), u, v});
        u = v;
    }
}

} // namespace

std::vector<SectionSpeed::Piece> SectionSpeed::pieces(MediaDuration played, bool framed) const {
    std::vector<Piece> out;
    if (played.microseconds < 1) return out;
    std::set<MediaDuration> bounds{MediaDuration{}, played};
    const auto inside = [&](MediaDuration at) { return at.microseconds > 0 && at < played; };
    for (const Key& key : keys)
        if (inside(key.at)) bounds.insert(key.at);
    for (const Hold& hold : holds)
        if (inside(hold.at)) bounds.insert(hold.at);
    const auto emitHolds = [&](MediaDuration at) {
        for (const Hold& hold : holds)
            if (holdPosition(hold, played) == at) out.push_back({holdOutput(hold), at, at});
    };
    for (auto it = bounds.begin(); std::next(it) != bounds.end(); ++it) {
        const MediaDuration a = *it, b = *std::next(it);
        emitHolds(a);
        const double ra = rate(double(a.microseconds)), rb = rate(double(b.microseconds));
        if (std::fabs(ra - rb) <= 1e-9)
            out.push_back({steadyOutput(b - a, ra), a, b});
        else
            appendRamp(*this, a, b, framed, out);
    }
    emitHolds(played);
    if (reversed) {
        std::reverse(out.begin(), out.end());
        for (Piece& piece : out) std::swap(piece.from, piece.to);
    }
    return out;
}

std::optional<SectionSpeed> SectionSpeed::excerpt(MediaDuration from, MediaDuration to) const {
    std::vector<Key> part;
    const Key* atOrBefore = nullptr;
    const Key* firstAfter = nullptr;
    for (const Key& key : keys) {
        if (key.at <= from) atOrBefore = &key;
        if (from < key.at && key.at < to) part.push_back({key.at - from, key.rate, key.curve});
        if (key.at >= to && !firstAfter) firstAfter = &key;
    }
    const auto curveOf = [](const Key* key) { return key ? key->curve : std::nullopt; };
    part.insert(part.begin(), Key{MediaDuration{}, rate(double(from.microseconds)), curveOf(atOrBefore)});
    if (firstAfter) part.push_back({to - from, rate(double(to.microseconds)), firstAfter->curve});
    std::vector<Hold> kept;
    for (const Hold& hold : holds)
        if (from <= hold.at && hold.at <= to) kept.push_back({hold.at - from, hold.duration});
    SectionSpeed out = make(std::move(part), std::move(kept), reversed);
    if (out.isIdentity()) return std::nullopt;
    return out;
}

std::optional<SectionSpeed> normalized(std::optional<SectionSpeed> speed) {
    if (!speed || speed->isIdentity()) return std::nullopt;
    return SectionSpeed::make(std::move(speed->keys), std::move(speed->holds), speed->reversed);
}

} // namespace ovik
