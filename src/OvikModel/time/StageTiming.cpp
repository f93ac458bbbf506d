#include "OvikModel/time/StageTiming.h"

#include <syslog.h>

#include <cstdlib>
#include <mutex>
#include <string_view>

namespace ovik {

StageTiming::StageTiming(std::string name) : name(std::move(name)), start(std::chrono::steady_clock::now()) {}

void StageTiming::end() const { end(stdout); }

void StageTiming::end(std::FILE* out) const {
    const double milliseconds =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    log(name, milliseconds);
    if (!prints()) return;
    std::fprintf(out, "TIMING %s %.3f ms\n", name.c_str(), milliseconds);
    std::fflush(out);
}

void StageTiming::log(const std::string& name, double milliseconds) {
    static std::once_flag opened;
    std::call_once(opened, [] { openlog("ovik", LOG_PID, LOG_USER); });
    syslog(LOG_DEBUG, "%s %.*f ms", name.c_str(), 3, milliseconds);
}

bool StageTiming::prints() {
    const char* value = std::getenv("OVIK_TIMING_STDOUT");
    return value != nullptr && std::string_view(value) == "1";
}

} // namespace ovik
