#pragma once
// A moment a person names on a draft's film: it must lie on the film, from 0 to its length.
#include <cstdint>

#include "OvikModel/values/Times.h"

namespace ovik {
struct Draft;
}

namespace ovik::cli {

/// The length of the draft's film. Throws `Error` when its sections can't be laid out in time.
MediaDuration filmLength(const Draft& draft);

/// Throws `Error` when `time` (microseconds) lies outside 0...`length`.
void requireOnFilm(std::int64_t time, MediaDuration length);

} // namespace ovik::cli
