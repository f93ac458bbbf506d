#include "OvikCompositor/FrameScene.h"

#include "OvikCompositor/FrameGraph.h"
#include "OvikCompositor/PreparedDraft.h"
#include "OvikModel/time/DraftTimeline.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {
namespace {

const Recording* recordingOf(const Draft& draft, MediaID id) {
    for (const Media& media : draft.media.items())
        if (media.id == id)
            if (const auto* recording = std::get_if<MediaSource::recording>(&media.source.cases)) return &recording->value;
    return nullptr;
}

// A video without alpha shows the premultiplied colour as it is: the frame over opaque black.
Image opaque(const Image& frame, PixelSize size) {
    const CGRect whole{{0, 0}, {double(size.width), double(size.height)}};
    return frame.composited(Image::fromColor(ImageColor::black())).cropped(whole);
}

} // namespace

FrameScene::FrameScene(FrameGraph& graph, const PreparedDraft& draft, double canvasScale, FrameColors colors)
    : graph(graph), draft(draft), canvasScale(canvasScale), colors(colors), map(draft.timeline) {}

PixelSize FrameScene::size() const { return draft.layout.pixelSize(canvasScale, false); }

FrameMoment FrameScene::moment(OutputTime at, const FrameReader& read) const {
    FrameMoment moment;
    moment.output = at;
    if (!map) return moment;
    moment.sections.emplace();
    for (const VisibleSection& shown : map->visible(at)) {
        moment.sections->push_back(shown.section);
        moment.sources.emplace(shown.section, shown.time);
        if (shown.transition) moment.phases.emplace(shown.section, *shown.transition);
        if (const Recording* recording = read ? recordingOf(draft.draft, shown.media) : nullptr)
            moment.frames.emplace(shown.section, read(*recording, shown.time));
    }
    return moment;
}

Image FrameScene::picture(const FrameMoment& moment) const {
    const PixelSize out = size();
    const Image frame = graph.render(draft, moment, canvasScale, out);
    return colors == FrameColors::video ? opaque(frame, out) : frame;
}

} // namespace ovik
