#pragma once
// The one door through which stills, filmstrips and thumbnails are asked of a draft. It
// prepares a draft once per call, reads the video frames a moment shows, lets the frame graph
// compose the picture, and renders it; finished stills are kept (48) so that asking again
// costs nothing, and decoded package pictures are kept between drafts (16). Every frame it
// renders is counted in its frame statistics, stills and filmstrips on `still`.
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <tuple>
#include <vector>

#include "OvikCompositor/FrameGraph.h"
#include "OvikCompositor/FrameStatistics.h"
#include "OvikCompositor/PictureCache.h"
#include "OvikCompositor/PreparedDraft.h"

namespace ovik {

struct FrameScene;

/// How big a still comes out: fitting within a long side (never enlarged; none is the canvas
/// size), or at exactly a long side.
struct StillSize {
    enum class Kind { fitting, longSide };
    Kind kind = Kind::fitting;
    std::optional<std::int64_t> pixels;

    static StillSize fitting(std::optional<std::int64_t> pixels) { return {Kind::fitting, pixels}; }
    static StillSize longSide(std::int64_t pixels) { return {Kind::longSide, pixels}; }
    bool operator==(const StillSize&) const = default;
};

class LiveRendering {
public:
    /// The budgets of the frame graph's caches.
    static constexpr std::int64_t cacheBudgetBytes = 167'772'160;
    static constexpr std::size_t thumbnailCapacity = 48;

    explicit LiveRendering(FrameGraph::Wallpaper wallpaper = {});
    /// The renderer hosts share, with no wallpaper (a desktop picture isn't reachable here).
    static LiveRendering& shared();

    /// The picture at the film moment `at`, or at the draft's poster moment; its long side at
    /// most `maxPixel`. Throws `RenderFailure`.
    ImageBox still(const DraftDocument& document, std::optional<OutputTime> at, std::optional<std::int64_t> maxPixel);
    /// One picture per moment, in their order; the draft is prepared once.
    std::vector<ImageBox> stills(const DraftDocument& document, const std::vector<std::optional<OutputTime>>& moments,
                                 StillSize size);
    /// `count` pictures of the recording (or the screenshot, repeated) at evenly spaced moments,
    /// each `height` pixels high, without the style, objects or crop.
    std::vector<ImageBox> filmstrip(const DraftDocument& document, std::int64_t count, std::int64_t height);

    PreparedDraft prepare(const DraftDocument& document, const std::optional<Style>& style = std::nullopt);
    /// The moment a still of the draft shows when none is asked for: a tenth into a timed draft
    /// (past openings and fades, as a file browser picks a movie's frame), else the start.
    static OutputTime posterTime(const Draft& draft);
    /// What a still at `at` is drawn from, its frames read. Without `at` the frames may start
    /// up to 10 s early (the key frame before the poster moment, not decoded up to it), and the
    /// moment drawn is where the film shows the front one from its start, so that objects,
    /// cursor and zoom match the picture.
    FrameMoment stillMoment(const DraftDocument& document, const FrameScene& scene, std::optional<OutputTime> at);
    /// The scale at which the canvas comes out at `size`.
    static double canvasScale(const CanvasLayout& layout, StillSize size);

    FrameGraph& graph() { return graph_; }
    const FrameStatistics& statistics() const { return statistics_; }

private:
    using ThumbnailKey = std::tuple<DraftID, std::string, std::optional<std::int64_t>, int, std::optional<std::int64_t>>;
    struct Kept {
        ImageBox image;
        std::int64_t lastUse = 0;
    };

    /// The picture of `moment` in pixels, counted on `still`.
    ImageBox finished(const FrameScene& scene, const FrameMoment& moment);
    std::optional<ImageBox> kept(const ThumbnailKey& key);
    void keep(const ThumbnailKey& key, ImageBox image);

    FrameGraph graph_;
    FrameStatistics statistics_;
    PictureCache pictures_;
    std::mutex lock_;
    std::map<ThumbnailKey, Kept> thumbnails_;
    std::int64_t clock_ = 0;
};

} // namespace ovik
