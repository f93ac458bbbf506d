// Thumbnails answered by kept renders of large dimensions.
//
// The file browser asks `ovik thumbnail --size 256` of a package whose 320-pixel kept render is
// a PNG of some size; each benchmark runs the command as a program and reports its peak memory
// (from wait4) beside its time. The baseline is the same thumbnail of a 1920x1080 kept render.
//
// Huge (16000x16000, a 1 MB file) is refused from its header: 256 pixels can't show it.
// LargestAllowed (5792x5792) is the largest picture a 256-pixel thumbnail decodes, row by
// row. The paired benchmarks run subject and baseline in turn inside each iteration and report
// the medians of the quotients of time and of peak memory.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path workFolder = fs::temp_directory_path() / "ovik-bench-kept";

struct Measured {
    double seconds = 0;
    double megabytes = 0;
};

// One run of `ovik thumbnail` on `package`, its output thrown away.
Measured thumbnail(const fs::path& package) {
    const std::string packageText = package.string(), output = (workFolder / "out.png").string();
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const int null = ::open("/dev/null", O_RDWR);
        ::dup2(null, 0), ::dup2(null, 1), ::dup2(null, 2);
        ::execl(OVIK_COMMAND, OVIK_COMMAND, "thumbnail", packageText.c_str(), "--size", "256", "--output",
                output.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1) std::abort();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            double(usage.ru_maxrss) / 1024};
}

// The example package that keeps thumbnails, with its 320-pixel one replaced by the picture of
// an ffmpeg `source`; made once per run.
fs::path keptPackage(const std::string& name, const std::string& source) {
    const fs::path root = workFolder / (name + ".ovikwork");
    fs::remove_all(root);
    fs::create_directories(workFolder);
    fs::copy(fs::path(OVIK_EXAMPLES) / "kept.ovikwork", root, fs::copy_options::recursive);
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().filename() != "thumbnail-320.png") continue;
        const std::string command = "ffmpeg -nostdin -v error -y -f lavfi -i " + source + " -frames:v 1 " +
                                    entry.path().string() + " </dev/null";
        if (std::system(command.c_str()) != 0) std::abort();
        return root;
    }
    std::abort();
}

const fs::path& hdPackage() {
    static const fs::path package = keptPackage("hd", "testsrc2=s=1920x1080");
    return package;
}
const fs::path& hugePackage() {
    static const fs::path package = keptPackage("huge", "color=c=red:s=16000x16000");
    return package;
}
const fs::path& largestAllowedPackage() {
    static const fs::path package = keptPackage("largest", "testsrc2=s=5792x5792");
    return package;
}

void runAlone(benchmark::State& state, const fs::path& package) {
    double megabytes = 0;
    for (auto _ : state) megabytes = std::max(megabytes, thumbnail(package).megabytes);
    state.counters["peak MB"] = megabytes;
}

void pairedWithHD(benchmark::State& state, const fs::path& package) {
    std::vector<double> times, memories;
    for (auto _ : state) {
        const Measured subject = thumbnail(package), baseline = thumbnail(hdPackage());
        times.push_back(subject.seconds / baseline.seconds);
        memories.push_back(subject.megabytes / baseline.megabytes);
    }
    std::sort(times.begin(), times.end());
    std::sort(memories.begin(), memories.end());
    state.counters["time/hd"] = times[times.size() / 2];
    state.counters["memory/hd"] = memories[memories.size() / 2];
}

void BaselineHDKeptThumbnail(benchmark::State& state) { runAlone(state, hdPackage()); }
BENCHMARK(BaselineHDKeptThumbnail)->Iterations(15)->Unit(benchmark::kMillisecond);

void HugeKeptThumbnail(benchmark::State& state) { runAlone(state, hugePackage()); }
BENCHMARK(HugeKeptThumbnail)->Iterations(15)->Unit(benchmark::kMillisecond);

void LargestAllowedKeptThumbnail(benchmark::State& state) { runAlone(state, largestAllowedPackage()); }
BENCHMARK(LargestAllowedKeptThumbnail)->Iterations(15)->Unit(benchmark::kMillisecond);

void HugeOverHDPaired(benchmark::State& state) { pairedWithHD(state, hugePackage()); }
BENCHMARK(HugeOverHDPaired)->Iterations(15)->Unit(benchmark::kMillisecond);

void LargestAllowedOverHDPaired(benchmark::State& state) { pairedWithHD(state, largestAllowedPackage()); }
BENCHMARK(LargestAllowedOverHDPaired)->Iterations(15)->Unit(benchmark::kMillisecond);

} // namespace
