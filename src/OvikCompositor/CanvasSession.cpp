#include "OvikCompositor/CanvasSession.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/FrameScene.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikCompositor/RenderedFrame.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/image/RenderDestination.h"

namespace ovik {
namespace {

// The film moment of a moment of the draft's first section; its poster moment when none is
// asked or the draft has no timing.
OutputTime outputOf(const PreparedDraft& prepared, std::optional<SourceTime> at) {
    if (!at || !prepared.timeline || prepared.timeline->entries().empty())
        return LiveRendering::posterTime(prepared.draft);
    const DraftTimeline::Entry& first = prepared.timeline->entries().front();
    return first.output.start + (first.map.outputOrCut(*at) - OutputTime{});
}

const Screenshot* screenshotOf(const Draft& draft) {
    if (draft.media.empty()) return nullptr;
    const auto* shot = std::get_if<MediaSource::screenshot>(&draft.source().cases);
    return shot ? &shot->value : nullptr;
}

} // namespace

CanvasSession::CanvasSession(const DraftDocument& document, FrameGraph::Wallpaper wallpaper)
    : CanvasSession(document, std::move(wallpaper), std::nullopt) {}

CanvasSession::CanvasSession(const DraftDocument& document, ImageBox frozen)
    : CanvasSession(document, {}, std::move(frozen)) {}

CanvasSession::CanvasSession(const DraftDocument& document, FrameGraph::Wallpaper wallpaper,
                             std::optional<ImageBox> frozen)
    : graph_(std::move(wallpaper), LiveRendering::cacheBudgetBytes), location_(document.packageURL) {
    if (const Screenshot* shot = screenshotOf(document.draft); shot && frozen) pictures_.emplace(shot->image, *frozen);
    prepared(document.draft);
}

CanvasLayout CanvasSession::layout(const Draft& draft) { return CanvasLayout::make(draft); }

std::shared_ptr<const PreparedDraft> CanvasSession::prepared(const Draft& draft) {
    std::vector<std::shared_ptr<const PreparedDraft>> kept;
    std::optional<Watermark> watermark;
    {
        const std::lock_guard guard(lock_);
        kept = prepared_;
        watermark = watermark_;
    }
    // Drafts are compared outside the lock: a deep comparison may take a while.
    for (const auto& each : kept)
        if (each->options.watermark == watermark && each->draft == draft) return each;
    PreparedDraft made = PreparedDraft::prepare(draft, [this](const PackagePath& path) { return picture(path); });
    made.options.watermark = std::move(watermark);
    auto shared = std::make_shared<const PreparedDraft>(std::move(made));
    const std::lock_guard guard(lock_);
    prepared_.insert(prepared_.begin(), shared);
    if (prepared_.size() > preparedCapacity) prepared_.pop_back();
    return shared;
}

ImageBox CanvasSession::picture(const PackagePath& path) {
    std::filesystem::path location;
    {
        const std::lock_guard guard(lock_);
        if (const auto found = pictures_.find(path); found != pictures_.end()) return found->second;
        location = location_;
    }
    ImageBox read{std::make_shared<const CGImage>(ImageDecoder::read(DraftDocument{{}, location}.url(path)))};
    const std::lock_guard guard(lock_);
    // Another thread may have read it meanwhile; the first kept stays.
    return pictures_.emplace(path, std::move(read)).first->second;
}

Image CanvasSession::render(const Draft& draft, double canvasScale, std::optional<SourceTime> at) {
    const std::shared_ptr<const PreparedDraft> ready = prepared(draft);
    const FrameScene scene(graph_, *ready, canvasScale, FrameColors::pictures);
    return scene.picture(scene.moment(outputOf(*ready, at)));
}

FrameRenderInfo CanvasSession::draw(const Draft& draft, double canvasScale, std::optional<SourceTime> at,
                                    const RenderDestination& destination, CGPoint origin) {
    const CGRect rect{{std::floor(origin.x), std::floor(origin.y)},
                      {double(destination.width()), double(destination.height())}};
    const RenderedFrame frame = RenderedFrame::render(render(draft, canvasScale, at), rect, RenderPath::other);
    destination.write(*frame.image.cgImage);
    return frame.info;
}

void CanvasSession::relocate(const std::filesystem::path& location) {
    const std::lock_guard guard(lock_);
    location_ = location;
    // A prepared draft may lack a picture that couldn't be read where the package was.
    prepared_.clear();
}

std::optional<Watermark> CanvasSession::watermark() const {
    const std::lock_guard guard(lock_);
    return watermark_;
}

void CanvasSession::setWatermark(std::optional<Watermark> watermark) {
    const std::lock_guard guard(lock_);
    watermark_ = std::move(watermark);
}

} // namespace ovik
