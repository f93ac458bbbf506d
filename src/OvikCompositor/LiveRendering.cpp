#include "OvikCompositor/LiveRendering.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/RecordingFrames.h"
#include "OvikCompositor/RenderError.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/RenderContext.h"
#include "OvikPlatform/media/ReadFlags.h"

namespace ovik {
namespace {

// A poster moment may take the key frame before it, as far back as this.
constexpr std::int64_t posterTolerance = 10'000'000;

const Recording* recordingOf(const Draft& draft, MediaID id) {
    for (const Media& media : draft.media.items())
        if (media.id == id)
            if (const auto* recording = std::get_if<MediaSource::recording>(&media.source.cases)) return &recording->value;
    return nullptr;
}

// Frames are read no larger than the capture is drawn.
std::int64_t frameLongSide(const CanvasLayout& layout, double scale) {
    const double side = double(std::max(layout.capturePixels.width, layout.capturePixels.height)) * scale;
    return std::max<std::int64_t>(std::llround(std::ceil(side)), 1);
}

ImageBox pixels(const Image& image, PixelSize size) {
    try {
        const CGRect rect{{0, 0}, {double(size.width), double(size.height)}};
        return ImageBox{std::make_shared<const CGImage>(FrameGraph::context().createCGImage(image, rect))};
    } catch (const ImageError& error) {
        throw RenderFailure(RenderError::failed{error.what()});
    }
}

// The sections on screen at `at`, with the video frame of each that shows a recording.
FrameMoment momentAt(const DraftDocument& document, const PreparedDraft& prepared, OutputTime at,
                     const RecordingFrames& reader) {
    FrameMoment moment;
    moment.output = at;
    if (!prepared.timeline) return moment;
    moment.sections.emplace();
    for (const VisibleSection& shown : prepared.timeline->visible(at)) {
        moment.sections->push_back(shown.section);
        moment.sources.emplace(shown.section, shown.time);
        if (shown.transition) moment.phases.emplace(shown.section, *shown.transition);
        if (const Recording* recording = recordingOf(prepared.draft, shown.media))
            moment.frames.emplace(shown.section, reader.frame(document, *recording, shown.time));
    }
    return moment;
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
        if (!prepared) prepared = prepare(document);
        out.push_back(render(document, *prepared, at, canvasScale(prepared->layout, size)));
        if (cached) keep(key, out.back());
    }
    return out;
}

ImageBox LiveRendering::render(const DraftDocument& document, const PreparedDraft& prepared,
                               std::optional<OutputTime> at, double scale) {
    RecordingFrames reader;
    reader.maxLongSide = frameLongSide(prepared.layout, scale);
    reader.toleranceMicroseconds = at ? 0 : posterTolerance;
    reader.flags = std::make_shared<ReadFlags>();
    const FrameMoment moment = momentAt(document, prepared, at.value_or(posterTime(prepared.draft)), reader);
    const PixelSize size = prepared.layout.pixelSize(scale, false);
    return pixels(graph_.render(prepared, moment, scale, size), size);
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
    const PixelSize size = prepared.layout.pixelSize(scale, false);
    const auto* recording = std::get_if<MediaSource::recording>(&bare.source.cases);
    std::vector<ImageBox> out;
    if (!recording) {
        const ImageBox picture = pixels(graph_.render(prepared, FrameMoment{}, scale, size), size);
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
        Image frame = reader.frame(plain, recording->value, at);
        PreparedDraft framed = prepared;
        framed.mediaPictures[bare.id] = std::move(frame);
        out.push_back(pixels(graph_.render(framed, FrameMoment{}, scale, size), size));
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
