#pragma once
// What stays the same while one call renders several moments of a draft: the graph, the
// prepared draft, the canvas scale, what the frames come out as, and the timeline the moments
// are read on. Made once per call; each moment then becomes a `FrameMoment` and a picture.
#include <functional>
#include <memory>

#include "OvikCompositor/FrameColors.h"
#include "OvikCompositor/FrameMoment.h"
#include "OvikCompositor/RecordingFrame.h"
#include "OvikModel/values/PixelSize.h"

namespace ovik {

class DraftTimeline;
class FrameGraph;
struct PreparedDraft;
struct Recording;

struct FrameScene {
    /// The video frame a recording shows at a source moment, and where that frame starts.
    using FrameReader = std::function<RecordingFrame(const Recording&, SourceTime)>;

    /// The moments are read on the prepared draft's own timeline.
    FrameScene(FrameGraph& graph, const PreparedDraft& draft, double canvasScale, FrameColors colors);

    FrameGraph& graph;
    const PreparedDraft& draft;
    double canvasScale;
    FrameColors colors;
    /// None for a draft without timing.
    std::shared_ptr<const DraftTimeline> map;

    /// The output size: the canvas at the scene's scale.
    PixelSize size() const;
    /// What shows at `at`: the sections on screen, back to front, with their source moments
    /// and transitions, and the frame `read` gives of each that shows a recording (none read
    /// without a reader). A draft without timing has no sections.
    FrameMoment moment(OutputTime at, const FrameReader& read = {}) const;
    /// `moment` moved to where the film shows its front frame from that frame's start, so that
    /// what is drawn over a frame taken early (a key frame before the moment) matches it. The
    /// frames of the sections still on screen there are kept, the others read. The moment as
    /// it is when its frames start where it stands; none when the film never shows that frame.
    std::optional<FrameMoment> atFrameStart(const FrameMoment& moment, const FrameReader& read) const;
    /// The finished picture of `moment`, of `size()` with its corner at the origin.
    Image picture(const FrameMoment& moment) const;

private:
    /// As `moment`, keeping the frames that `held` has of the sections on screen.
    FrameMoment laid(OutputTime at, const FrameReader& read, const FrameMoment* held) const;
};

} // namespace ovik
