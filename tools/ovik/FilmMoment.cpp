#include "FilmMoment.h"

#include <string>

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/Error.h"

namespace ovik::cli {

MediaDuration filmLength(const Draft& draft) {
    const auto line = timeline(draft);
    if (!line || line->entries().empty()) throw Error(L10n::text("cli.time.noTimeline"));
    return line->duration();
}

void requireOnFilm(std::int64_t time, MediaDuration length) {
    if (time < 0 || time > length.microseconds)
        throw Error(L10n::format("cli.time.outside", {std::to_string(time), std::to_string(length.microseconds)}));
}

} // namespace ovik::cli
