// Mapping moments between the output, played and source clocks of a draft whose sections all
// change speed, against a plain binary search over as many piece ends. Sizes of 25, 200 and
// 1600 sections show how a mapping grows with the draft; the million-moment run compares its
// first and last tenth, which differ only if mapping keeps state between calls.
#include <benchmark/benchmark.h>

#include "NumberedID.h"

#include <algorithm>
#include <chrono>
#include <random>

#include "OvikModel/time/DraftTiming.h"
#include "OvikModel/time/SpanClock.h"

namespace {

using namespace ovik;

template <class ID>
ID numberedID(std::uint64_t n) {
    return bench::numberedID<ID>(n, 0xB0);
}

Action fadeOut() {
    Action fade;
    fade.property = PropertyKey::opacity();
    fade.mode = ActionMode{{}, ActionMode::to{std::nullopt, ActionValue::makeNumber(0)}};
    fade.range = ActionRange{{}, ActionRange::whole{}};
    return fade;
}

// A recording section of three stretches at different rates and a freeze, eased from 1× to
// 1.5× over its first second with a short hold; each comes in over a transition.
Section retimedSection(std::uint64_t n, MediaID media) {
    const std::int64_t base = std::int64_t(n) * 10'000'000;
    std::vector<KeptStretch> stretches(3);
    const double rates[] = {1, 1.5, 2};
    for (int i = 0; i < 3; ++i) {
        stretches[i].range = {SourceTime{base + i * 2'000'000}, SourceTime{base + i * 2'000'000 + 1'500'000}};
        stretches[i].rate = rates[i];
    }
    insertFreeze(stretches, KeptStretch::freeze(SourceTime{base + 2'500'000}, MediaDuration{400'000}));
    Section section;
    section.id = numberedID<SectionID>(n + 1);
    section.media = media;
    section.length = Section::Length::makeKept(stretches);
    SectionSpeed speed = SectionSpeed::ramp(1, 1.5, MediaDuration{1'000'000}, std::nullopt);
    speed.holds.push_back({MediaDuration{1'500'000}, MediaDuration{200'000}});
    section.speed = speed;
    if (n > 0) section.transitionIn = Transition{MediaDuration{300'000}, {fadeOut()}, {}, false, {}};
    return section;
}

Draft retimedDraft(std::int64_t sectionCount) {
    Draft draft;
    Media media;
    media.id = numberedID<MediaID>(1u << 30);
    media.source = MediaSource::makeRecording(Recording{});
    draft.media = CowList<Media>{media};
    std::vector<Section> sections;
    for (std::int64_t i = 0; i < sectionCount; ++i) sections.push_back(retimedSection(std::uint64_t(i), media.id));
    draft.sections = CowList<Section>(std::move(sections));
    return draft;
}

std::vector<OutputTime> randomMoments(MediaDuration length, std::size_t count) {
    std::mt19937_64 random(42);
    std::vector<OutputTime> out(count);
    for (OutputTime& t : out) t = OutputTime{std::int64_t(random() % std::uint64_t(length.microseconds))};
    return out;
}

std::size_t pieceCount(const DraftTimeline& line) {
    std::size_t count = 0;
    for (const auto& entry : line.entries()) count += entry.map.pieces().size();
    return count;
}

// The floor: one binary search over as many sorted ends as the draft has pieces.
void BaselineBinarySearch(benchmark::State& state) {
    const Draft draft = retimedDraft(state.range(0));
    const auto line = timeline(draft);
    std::vector<std::int64_t> ends(pieceCount(*line));
    for (std::size_t i = 0; i < ends.size(); ++i) ends[i] = std::int64_t(i + 1) * 10'000;
    const auto moments = randomMoments(MediaDuration{ends.back()}, 4096);
    std::size_t i = 0;
    for (auto _ : state) {
        const OutputTime t = moments[i++ & 4095];
        benchmark::DoNotOptimize(std::upper_bound(ends.begin(), ends.end(), t.microseconds));
    }
    state.counters["pieces"] = double(ends.size());
}

void OutputToSource(benchmark::State& state) {
    const Draft draft = retimedDraft(state.range(0));
    const auto line = timeline(draft);
    const auto moments = randomMoments(line->duration(), 4096);
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(line->anchored(moments[i++ & 4095]));
}

void OutputToPlayed(benchmark::State& state) {
    const Draft draft = retimedDraft(state.range(0));
    const auto moments = randomMoments(timeline(draft)->duration(), 4096);
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(playedMoment(draft, moments[i++ & 4095]));
}

void PlayedToOutput(benchmark::State& state) {
    const Draft draft = retimedDraft(state.range(0));
    const SpanClock clock(draft, OutputTime{}, OutputTime{}, false);
    const auto moments = randomMoments(playedTimeline(draft)->duration(), 4096);
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(clock.film(moments[i++ & 4095]));
}

// A million moments through all three mappings; the first and the last tenth are timed apart.
void MillionMoments(benchmark::State& state) {
    const Draft draft = retimedDraft(200);
    const auto line = timeline(draft);
    const SpanClock clock(draft, OutputTime{}, OutputTime{}, false);
    const auto moments = randomMoments(line->duration(), 1'000'000);
    const auto tenth = [&](std::size_t from) {
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t k = from; k < from + 100'000; ++k) {
            benchmark::DoNotOptimize(line->anchored(moments[k]));
            benchmark::DoNotOptimize(clock.film(playedMoment(draft, moments[k])->output));
        }
        return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count() / 100'000;
    };
    double first = 0, last = 0;
    for (auto _ : state) {
        first = tenth(0);
        for (std::size_t k = 100'000; k < 900'000; ++k) benchmark::DoNotOptimize(line->anchored(moments[k]));
        last = tenth(900'000);
    }
    state.counters["firstTenth_ns"] = first;
    state.counters["lastTenth_ns"] = last;
    state.counters["lastOverFirst"] = last / first;
}

} // namespace

BENCHMARK(BaselineBinarySearch)->Arg(200);
BENCHMARK(OutputToSource)->Arg(25)->Arg(200)->Arg(1600);
BENCHMARK(OutputToPlayed)->Arg(25)->Arg(200)->Arg(1600);
BENCHMARK(PlayedToOutput)->Arg(25)->Arg(200)->Arg(1600);
BENCHMARK(MillionMoments)->Unit(benchmark::kMillisecond)->Iterations(3);
