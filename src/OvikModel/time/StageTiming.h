#pragma once
// A stopwatch of the program's own, for diagnostics: it starts when made, and `end` writes
// "<name> <milliseconds> ms" to the system log (ident "ovik", debug level). With the
// environment variable OVIK_TIMING_STDOUT set to "1" it also prints
// "TIMING <name> <milliseconds> ms" on a line of its own, for a harness that reads timings.
#include <chrono>
#include <cstdio>
#include <string>

namespace ovik {

struct StageTiming {
    std::string name;
    std::chrono::steady_clock::time_point start;

    explicit StageTiming(std::string name);

    /// Logs the time since the start, and prints it to standard output when `prints()`.
    void end() const;
    /// The same, printing to `out`.
    void end(std::FILE* out) const;

    /// Writes one line to the system log.
    static void log(const std::string& name, double milliseconds);
    /// Whether OVIK_TIMING_STDOUT asks for printed timings; read at each call.
    static bool prints();
};

} // namespace ovik
