#include "OvikCompositor/LiveRendering.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/FrameScene.h"
#include "OvikCompositor/RecordingFrames.h"
#include "OvikCompositor/RenderError.h"
#include "OvikCompositor/RenderedFrame.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/media/ReadFlags.h"

namespace ovik {
namespace {

// A poster moment may take the key frame before it, as far back as this.
constexpr std::int64_t posterTolerance = 10'000'000;

// Frames are read no larger than the capture is drawn.
std::int64_t frameLongSide(const CanvasLayout& layout, double scale) {
    const double side = double(std::max(layout.capturePixels.width, layout.capturePixels.height)) * scale;
    return std::max<std::int64_t>(std::llround(std::ceil(side)), 1);
}

// The long side a still's pictures need: the capture as drawn, or the whole output for a
// background that covers it.
std::int64_t pictureLongSide(const CanvasLayout& layout, double scale) {
    const PixelSize output = layout.pixelSize(scale, false);
    return std::max({frameLongSide(layout, scale), output.width, output.height});
}

// A reader of the frames a scene draws, taking a frame up to `tolerance` µs early.
RecordingFrames framesOf(const FrameScene& scene, std::int64_t tolerance) {
    RecordingFrames reader;
    reader.maxLongSide = frameLongSide(scene.draft.layout, scene.canvasScale);
    reader.toleranceMicroseconds = tolerance;
    reader.flags = std::make_shared<ReadFlags>();
    return reader;
}

} // namespace

LiveRendering::LiveRendering(FrameGraph::Wallpaper wallpaper) : graph_(std::move(wallpaper), cacheBudgetBytes) {}

LiveRendering& LiveRendering::shared() {
    static LiveRendering rendering;
    return rendering;
}

OutputTime LiveRendering::posterTime(const Draft& draft) {
    if (!draft.isTimed()) return OutputTime{};
    const auto shown = timeline(draft);
    return shown ? OutputTime{shown->duration().microseconds / 10} : OutputTime{};
}

double LiveRendering::canvasScale(const CanvasLayout& layout, StillSize size) {
    const double longSide = std::max(layout.canvasSize.width, layout.canvasSize.height);
    if (!size.pixels || *size.pixels <= 0 || !(longSide > 0)) return 1;
    const double n = double(*size.pixels);
    if (size.kind == StillSize::Kind::longSide) return n / longSide;
    return longSide > n ? n / longSide : 1;
}

PreparedDraft LiveRendering::prepare(const DraftDocument& document, const std::optional<Style>& style) {
    return PreparedDraft::prepare(document, pictures_, style);
}

ImageBox LiveRendering::still(const DraftDocument& document, std::optional<OutputTime> at,
                              std::optional<std::int64_t> maxPixel) {
    return stills(document, {at}, StillSize::fitting(maxPixel)).front();
}

std::vector<ImageBox> LiveRendering::stills(const DraftDocument& document,
                                            const std::vector<std::optional<OutputTime>>& moments, StillSize size) {
    std::optional<PreparedDraft> prepared;
    std::optional<FrameScene> scene;
    std::vector<ImageBox> out;
    const std::string draftKey = thumbnailKey(document.draft, size.pixels.value_or(0)).rawValue;
    for (const auto& at : moments) {
        const ThumbnailKey key{document.draft.id, draftKey, at ? std::optional(at->microseconds) : std::nullopt,
                               int(size.kind), size.pixels};
        const bool cached = size.pixels.has_value();
        if (auto found = cached ? kept(key) : std::nullopt) {
            out.push_back(*found);
            continue;
        }
        if (!scene) {
            // A still of a given size decodes its pictures no larger than it draws them.
            const CanvasLayout layout = CanvasLayout::make(document.draft);
            const double scale = canvasScale(layout, size);
            prepared = PreparedDraft::prepare(document, pictures_, std::nullopt,
                                              size.pixels ? std::optional(pictureLongSide(layout, scale)) : std::nullopt);
            scene.emplace(graph_, *prepared, scale, FrameColors::pictures);
        }
        out.push_back(finished(*scene, stillMoment(document, *scene, at)));
        if (cached) keep(key, out.back());
    }
    return out;
}

FrameMoment LiveRendering::stillMoment(const DraftDocument& document, const FrameScene& scene,
                                       std::optional<OutputTime> at) {
    RecordingFrames exact = framesOf(scene, 0);
    const auto readExact = [&](const Recording& recording, SourceTime time) {
        return exact.frame(document, recording, time);
    };
    if (at) return scene.moment(*at, readExact);
    RecordingFrames early = framesOf(scene, posterTolerance);
    const auto readEarly = [&](const Recording& recording, SourceTime time) {
        return early.frame(document, recording, time);
    };
    const FrameMoment poster = scene.moment(posterTime(scene.draft.draft), readEarly);
    if (auto moved = scene.atFrameStart(poster, readEarly)) return std::move(*moved);
    // The key frame lies in a part the film cuts away: the frame of the moment itself.
    return scene.moment(poster.output, readExact);
}

ImageBox LiveRendering::finished(const FrameScene& scene, const FrameMoment& moment) {
    const PixelSize size = scene.size();
    const RenderedFrame frame = RenderedFrame::render(
        scene.picture(moment), CGRect{{0, 0}, {double(size.width), double(size.height)}}, RenderPath::still);
    statistics_.record(frame.info);
    return frame.image;
}

std::vector<ImageBox> LiveRendering::filmstrip(const DraftDocument& document, std::int64_t count, std::int64_t height) {
    if (count < 1 || height < 1) throw RenderFailure(RenderError::failed{"a filmstrip needs at least one picture"});
    if (document.draft.media.empty()) throw RenderFailure(RenderError::sourceUnreadable{"the draft has no media"});
    // The capture alone: no style, objects, crop, sections or timing of the draft.
    DraftDocument plain = document;
    Draft& draft = plain.draft;
    Media bare = draft.media[draft.primaryMediaIndex()];
    bare.crop.reset();
    draft.media = CowList<Media>({bare});
    draft.objects = {};
    draft.style = Style::original();
    draft.isAnimation = false;
    draft.frame.reset();
    const PreparedDraft prepared = prepare(plain);
    const double scale = double(height) / std::max(1.0, prepared.layout.canvasSize.height);
    const auto* recording = std::get_if<MediaSource::recording>(&bare.source.cases);
    std::vector<ImageBox> out;
    if (!recording) {
        const ImageBox picture = finished(FrameScene(graph_, prepared, scale, FrameColors::pictures), FrameMoment{});
        return std::vector<ImageBox>(std::size_t(count), picture);
    }
    std::int64_t length = 0;
    for (const Segment& segment : recording->value.segments) length += segment.duration.microseconds;
    RecordingFrames reader;
    reader.maxLongSide = frameLongSide(prepared.layout, scale);
    reader.flags = std::make_shared<ReadFlags>();
    for (std::int64_t i = 0; i < count; ++i) {
        // The middle of each of `count` equal stretches.
        const SourceTime at{length * (2 * i + 1) / (2 * count)};
        Image frame = reader.frame(plain, recording->value, at).image;
        PreparedDraft framed = prepared;
        framed.mediaPictures[bare.id] = std::move(frame);
        out.push_back(finished(FrameScene(graph_, framed, scale, FrameColors::pictures), FrameMoment{}));
    }
    return out;
}

std::optional<ImageBox> LiveRendering::kept(const ThumbnailKey& key) {
    const std::lock_guard guard(lock_);
    const auto found = thumbnails_.find(key);
    if (found == thumbnails_.end()) return std::nullopt;
    found->second.lastUse = ++clock_;
    return found->second.image;
}

void LiveRendering::keep(const ThumbnailKey& key, ImageBox image) {
    const std::lock_guard guard(lock_);
    thumbnails_.insert_or_assign(key, Kept{std::move(image), ++clock_});
    if (thumbnails_.size() <= thumbnailCapacity) return;
    const auto oldest = std::min_element(thumbnails_.begin(), thumbnails_.end(), [](const auto& a, const auto& b) {
        return a.second.lastUse < b.second.lastUse;
    });
    thumbnails_.erase(oldest);
}

} // namespace ovik
