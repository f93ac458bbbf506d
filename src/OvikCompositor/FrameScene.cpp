#include "OvikCompositor/FrameScene.h"

#include <algorithm>

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

FrameMoment FrameScene::moment(OutputTime at, const FrameReader& read) const { return laid(at, read, nullptr); }

FrameMoment FrameScene::laid(OutputTime at, const FrameReader& read, const FrameMoment* held) const {
    FrameMoment moment;
    moment.output = at;
    if (!map) return moment;
    moment.sections.emplace();
    for (const VisibleSection& shown : map->visible(at)) {
        moment.sections->push_back(shown.section);
        moment.sources.emplace(shown.section, shown.time);
        if (shown.transition) moment.phases.emplace(shown.section, *shown.transition);
        if (held && held->frames.contains(shown.section)) {
            moment.frames.emplace(shown.section, held->frames.at(shown.section));
            moment.frameStarts.emplace(shown.section, held->frameStarts.at(shown.section));
        } else if (const Recording* recording = read ? recordingOf(draft.draft, shown.media) : nullptr) {
            RecordingFrame frame = read(*recording, shown.time);
            moment.frames.emplace(shown.section, std::move(frame.image));
            moment.frameStarts.emplace(shown.section, frame.start);
        }
    }
    return moment;
}

std::optional<FrameMoment> FrameScene::atFrameStart(const FrameMoment& moment, const FrameReader& read) const {
    if (!map || !moment.sections) return moment;
    const auto& sections = *moment.sections;
    const auto front = std::find_if(sections.rbegin(), sections.rend(),
                                    [&](SectionID section) { return moment.frameStarts.contains(section); });
    if (front == sections.rend()) return moment;
    const SourceTime start = moment.frameStarts.at(*front);
    if (start == moment.sources.at(*front)) return moment;
    const auto shown = map->output(AnchoredTime{*front, start});
    if (!shown) return std::nullopt;
    return laid(*shown, read, &moment);
}

Image FrameScene::picture(const FrameMoment& moment) const {
    const PixelSize out = size();
    const Image frame = graph.render(draft, moment, canvasScale, out);
    return colors == FrameColors::video ? opaque(frame, out) : frame;
}

} // namespace ovik
