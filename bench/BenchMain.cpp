// Runs the benchmarks of one program, then prints each one's time as a ratio to the program's
// baseline (the benchmark whose name starts with "Baseline"): absolute times on shared machines
// are noise, ratios measured in one run are not. With --benchmark_repetitions=N each one's
// fastest repetition counts: a neighbour on a shared machine only ever makes a run slower.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0) {
                const double time = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
                const auto [at, added] = times_.emplace(run.run_name.str(), time);
                if (!added && time < at->second) at->second = time;
            }
    }

    void printRatios() const {
        double baseline = 0;
        std::string baselineName;
        for (const auto& [name, time] : times_)
            if (name.rfind("Baseline", 0) == 0) baseline = time, baselineName = name;
        if (baseline <= 0) return;
        std::printf("\nRatio to %s:\n", baselineName.c_str());
        for (const auto& [name, time] : times_) std::printf("  %-40s %8.2fx\n", name.c_str(), time / baseline);
    }

private:
    std::map<std::string, double> times_;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    benchmark::Shutdown();
    return 0;
}
