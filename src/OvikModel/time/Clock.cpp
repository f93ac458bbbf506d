#include "OvikModel/time/Clock.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "OvikL10n/L10n.h"
#include "OvikModel/time/Speed.h"
#include "OvikModel/values/NumberText.h"

namespace ovik {
namespace {

const ClockLoop::count* counted(const ClockLoop& loop) { return std::get_if<ClockLoop::count>(&loop.cases); }

double passes(const ClockLoop::count& count) { return double(std::max<std::int64_t>(count.value, 1)); }

// Where a clock with a known length starts in itself: its offset, unless that lies at or
// past the end, when it starts from the beginning.
double startWithin(double offset, double length) { return length <= offset ? 0 : std::max(offset, 0.0); }

// Seconds as a person reads them in a summary: hundredths are as fine as an edit goes.
std::string secondsText(MediaDuration duration) { return NumberText::format(duration.seconds(), 2, false); }

std::optional<std::string> curveProblem(const std::vector<ClockKey>& keys) {
    if (keys.empty()) return L10n::text("model.clock.validation.curveEmpty");
    const auto sound = [](double seconds) { return std::isfinite(seconds) && seconds >= 0; };
    if (!std::all_of(keys.begin(), keys.end(), [&](const ClockKey& key) { return sound(key.at) && sound(key.own); }))
        return L10n::text("model.clock.validation.curveTimes");
    if (std::adjacent_find(keys.begin(), keys.end(),
                           [](const ClockKey& a, const ClockKey& b) { return b.at <= a.at; }) != keys.end())
        return L10n::text("model.clock.validation.curveOrder");
    return std::nullopt;
}

// The clock sampled every `step` outer seconds up to `over`, cut into straight runs. The count
// of steps saturates below the 64-bit range.
class RunSampler {
public:
    RunSampler(const Clock& clock, double over, std::optional<double> length, double step)
        : clock_(clock), over_(over), length_(length), step_(step), tolerance_(step * 0.001),
          steps_(std::int64_t(std::min(std::trunc(over / step), 9.0e18))) {}

    std::vector<ClockRun> runs() const {
        std::vector<ClockRun> out;
        for (std::int64_t i = 0; i < steps_ && out.size() < Clock::mostRuns;) {
            const std::int64_t end = runEnd(i);
            out.push_back(run(i, end));
            i = end;
        }
        return out;
    }

private:
    double time(std::int64_t i) const { return std::min(step_ * double(i), over_); }
    double value(std::int64_t i) const { return clock_.own(time(i), length_); }

    // A step that falls is a jump or a reverse, and stands alone; otherwise the run goes on
    // while each step changes as much as the first, in proportion to its time.
    std::int64_t runEnd(std::int64_t i) const {
        const double first = value(i + 1) - value(i);
        if (first < -tolerance_) return i + 1;
        std::int64_t end = i + 1;
        for (double at = value(end); end < steps_; ++end) {
            const double next = value(end + 1);
            const double expected = first * (time(end + 1) - time(end)) / step_;
            if (std::abs((next - at) - expected) > tolerance_) break;
            at = next;
        }
        return end;
    }

    ClockRun run(std::int64_t i, std::int64_t end) const {
        ClockRun run{time(i), time(end), value(i), value(end)};
        run.to = std::max(run.to, run.from);
        // A step that stands still where a pass ended (sampling skipped over the end) plays
        // on at the clock's rate up to the end of the thing.
        if (end == i + 1 && length_ && run.to == run.from) {
            const double playedOn = std::min(run.from + (run.end - run.start) * clock_.rate, *length_);
            if (playedOn > run.from) run.to = playedOn;
        }
        return run;
    }

    const Clock& clock_;
    double over_;
    std::optional<double> length_;
    double step_;
    double tolerance_;
    std::int64_t steps_;
};

} // namespace

const std::vector<ClockKey>* Clock::keys() const { return curve && !curve->empty() ? &*curve : nullptr; }

double Clock::own(double at, std::optional<double> length) const {
    if (freeze) at = std::min(at, freeze->seconds());
    const double a = std::max(at, 0.0);
    if (const auto* curveKeys = keys()) {
        const double value = std::max(curveOwn(*curveKeys, a), 0.0);
        return length ? std::min(value, *length) : value;
    }
    const double p = a * rate;
    return length ? loopedOwn(p, *length) : p + offset.seconds();
}

double Clock::curveOwn(const std::vector<ClockKey>& curveKeys, double a) const {
    const ClockKey& first = curveKeys.front();
    const ClockKey& last = curveKeys.back();
    if (a <= first.at) return first.own;
    if (a >= last.at) return a > last.at && !stops() ? 0 : last.own;
    const auto next = std::find_if(curveKeys.begin(), curveKeys.end(), [a](const ClockKey& key) { return key.at > a; });
    const ClockKey& before = *std::prev(next);
    return before.own + (next->own - before.own) * (a - before.at) / (next->at - before.at);
}

double Clock::loopedOwn(double p, double length) const {
    const double start = startWithin(offset.seconds(), length);
    const double span = length - start;
    if (span <= 0) return start;
    if (const ClockLoop::count* count = counted(loop); count && p >= span * passes(*count)) {
        if (!stops() && p > span * passes(*count)) return 0;
        // An even number of bouncing passes ends where it began.
        const bool endsAtStart = bounce && count->value > 1 && count->value % 2 == 0;
        return endsAtStart ? start : length;
    }
    const double k = std::trunc(p / span);
    const double r = p - span * k;
    return start + (bounce && std::fmod(k, 2) != 0 ? span - r : r);
}

double Clock::natural(std::optional<double> length) const {
    if (stops()) return 0;
    if (const auto* curveKeys = keys()) return curveKeys->back().at;
    const ClockLoop::count* count = counted(loop);
    if (!count || !length) return 0;
    const double played = (*length - startWithin(offset.seconds(), *length)) * passes(*count) / rate;
    return std::isfinite(played) ? played : 0;
}

std::vector<ClockRun> Clock::runs(double over, std::optional<double> length, double step) const {
    if (!(std::isfinite(over) && over > 0 && step > 0)) return {};
    return RunSampler(*this, over, length, step).runs();
}

std::optional<std::string> Clock::problem() const {
    if (!(std::isfinite(rate) && rate >= slowest && rate <= fastest)) return L10n::text("model.clock.validation.rate");
    if (const ClockLoop::count* count = counted(loop); count && (count->value < 1 || count->value > mostPasses))
        return L10n::format("model.clock.validation.loopRange", {mostPasses});
    if (offset < MediaDuration::zero()) return L10n::text("model.clock.validation.offset");
    if (freeze && *freeze < MediaDuration::zero()) return L10n::text("model.clock.validation.freeze");
    if (curve) return curveProblem(*curve);
    return std::nullopt;
}

std::string Clock::summary() const {
    std::vector<std::string> parts{Speed::text(rate)};
    if (const ClockLoop::count* count = counted(loop)) {
        if (count->value != 1)
            parts.push_back(
                L10n::format("model.clock.summary.loop", {L10n::format("model.clock.loop.count", {count->value})}));
    } else {
        parts.push_back(L10n::text("model.clock.summary.forever"));
    }
    if (offset != MediaDuration::zero())
        parts.push_back(L10n::format("model.clock.summary.offset", {secondsText(offset)}));
    if (bounce) parts.push_back(L10n::text("model.clock.summary.bounce"));
    if (hold) parts.push_back(L10n::text("model.clock.summary.hold"));
    if (freeze) parts.push_back(L10n::format("model.clock.summary.freeze", {secondsText(*freeze)}));
    if (keys()) parts.push_back(L10n::text("model.clock.summary.curve"));
    return L10n::list(parts);
}

} // namespace ovik
