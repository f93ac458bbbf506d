#pragma once
// Draws one draft again and again, as it is edited, without a timeline of its own: a canvas
// on screen. It draws still pictures (screenshots, canvases, package pictures); a recording's
// frames aren't read. The package's pictures are decoded once and kept for the session, so
// an edit that leaves them alone reads no file; the prepared form of the last few draft
// values is kept too. Used from any thread: one lock guards the kept pictures, the prepared drafts, the
// package's place and the watermark, and is held only to look up or store; files are read
// and pictures composed outside it.
//
// `draw` renders into a caller's `RenderDestination` (8-bit premultiplied sRGB rows, the
// layout `RenderContext` makes) and returns when the pixels are there.
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "OvikCompositor/FrameGraph.h"
#include "OvikCompositor/FrameRenderInfo.h"
#include "OvikCompositor/PreparedDraft.h"
#include "OvikModel/keys/Watermark.h"

namespace ovik {

class RenderDestination;

class CanvasSession {
public:
    /// How many draft values keep their prepared form.
    static constexpr std::size_t preparedCapacity = 4;

    /// Reads the document's pictures by preparing its draft; throws `RenderFailure`
    /// (`sourceUnreadable`) when its screenshot can't be read.
    explicit CanvasSession(const DraftDocument& document, FrameGraph::Wallpaper wallpaper = {});
    /// `frozen` is the screenshot of the draft's primary media, already in memory: it is drawn
    /// instead of the screenshot's file, which need not exist.
    CanvasSession(const DraftDocument& document, ImageBox frozen);

    static CanvasLayout layout(const Draft& draft);
    /// The draft made ready for drawing, the same object while the draft value and the
    /// watermark stay the same. Throws as preparing does.
    std::shared_ptr<const PreparedDraft> prepared(const Draft& draft);
    /// The picture of the draft at `at` (a moment of its first section; none: its poster
    /// moment), the canvas at `canvasScale` with its corner at the origin. Throws
    /// `RenderFailure`.
    Image render(const Draft& draft, double canvasScale, std::optional<SourceTime> at);
    /// Renders the picture into `destination`, whose lower left corner shows the picture's
    /// point `origin` (rounded down to whole pixels); every pixel is replaced. Throws
    /// `RenderFailure`.
    FrameRenderInfo draw(const Draft& draft, double canvasScale, std::optional<SourceTime> at,
                         const RenderDestination& destination, CGPoint origin = {});

    /// The package now lies at `location`: pictures not read yet are read from there, and
    /// drafts are prepared again (the pictures already read are kept).
    void relocate(const std::filesystem::path& location);

    std::optional<Watermark> watermark() const;
    /// Carried in the options of the drafts prepared from now on.
    void setWatermark(std::optional<Watermark> watermark);

private:
    CanvasSession(const DraftDocument& document, FrameGraph::Wallpaper wallpaper, std::optional<ImageBox> frozen);
    /// A package picture: the kept one, else read from the package's place and kept.
    ImageBox picture(const PackagePath& path);

    FrameGraph graph_;
    mutable std::mutex lock_;
    std::filesystem::path location_;
    std::map<PackagePath, ImageBox> pictures_;
    /// The newest first.
    std::vector<std::shared_ptr<const PreparedDraft>> prepared_;
    std::optional<Watermark> watermark_;
};

} // namespace ovik
