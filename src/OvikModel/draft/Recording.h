#pragma once
// A recorded movie in one or more segment files, with what the recorder knew about it.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/PackagePath.h"
#include "OvikModel/draft/CaptureArea.h"
#include "OvikModel/draft/ImportedFile.h"
#include "OvikModel/draft/RecordedDevice.h"
#include "OvikModel/draft/RecordingEndReason.h"
#include "OvikModel/draft/TrackRole.h"
#include "OvikModel/values/PixelSize.h"
#include "OvikModel/values/Times.h"

namespace ovik {

/// One track of a segment file.
struct TrackRef {
    TrackRole role = TrackRole::screen;
    std::int32_t trackID = 0;
    /// How late the track really started against the segment's start.
    MediaDuration measuredStartOffset;

    bool operator==(const TrackRef&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("role", &TrackRef::role), required("trackID", &TrackRef::trackID),
                          required("measuredStartOffset", &TrackRef::measuredStartOffset)};
    }
};

/// One movie file of a recording.
struct Segment {
    PackagePath movie;
    std::vector<TrackRef> tracks;
    /// The host clock at the start of the segment.
    std::int64_t hostStart = 0;
    MediaDuration duration;

    bool operator==(const Segment&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("movie", &Segment::movie), required("tracks", &Segment::tracks),
                          required("hostStart", &Segment::hostStart), required("duration", &Segment::duration)};
    }
};

struct Recording {
    std::vector<Segment> segments;
    PixelSize pixelSize;
    double frameRate = 0;
    CaptureArea area;
    std::optional<PackagePath> events;
    std::optional<RecordingEndReason> endReason;
    std::optional<RecordedDevice> device;
    /// Set when the movie was imported rather than recorded.
    std::optional<ImportedFile> imported;
    std::optional<std::string> contentSHA;

    bool operator==(const Recording&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("segments", &Recording::segments),   required("pixelSize", &Recording::pixelSize),
                          required("frameRate", &Recording::frameRate), required("area", &Recording::area),
                          optional("events", &Recording::events),       optional("endReason", &Recording::endReason),
                          optional("device", &Recording::device),       optional("imported", &Recording::imported),
                          optional("contentSHA", &Recording::contentSHA)};
    }
};

} // namespace ovik
