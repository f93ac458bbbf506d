// `ovik-examples OUT MOVIE PHOTO`: makes the sample packages that the demo and the docs use.
// Every run writes the same bytes: fixed ids, a fixed date, drawn pictures, and media files
// that the build made with fixed settings (MOVIE, an H.264 movie, and PHOTO, a JPEG).
//   kept.ovikwork     a screenshot draft whose kept thumbnails match its render key
//   stale.ovikwork    the same picture, but its kept thumbnails belong to an earlier edit
//   outside.ovikwork  a draft whose media file leads outside the package: unreadable
//   animation.ovikwork  an animation of a canvas and two objects, without kept renders: the
//                     text fades in over its first half second, the ellipse moves from 1 s to 3 s
//   timed.ovikwork    two canvas sections: the first eased from 1× to 2× with a hold, the second
//                     coming in over a transition
//   picture.ovikwork  the drawn screenshot framed on a solid backdrop, without kept renders
//   recording.ovikwork  a recording of MOVIE as its one segment, framed on a gradient
//   photo.ovikwork    PHOTO imported as the draft's still, framed on a gradient
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>

#include "ExampleParts.h"
#include "MediaExamples.h"
#include "OvikDrafts/DraftPackage.h"
#include "OvikModel/animation/Action.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/AtomicFile.h"
#include "OvikPlatform/paint/CGContext.h"

namespace fs = std::filesystem;
using namespace ovik;
using namespace ovik::examples;

namespace {

// A desktop-like picture: a vertical gradient, a window with a title bar and a few lines of text.
CGImage screenshotPicture(std::int64_t width, std::int64_t height) {
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4));
    for (std::int64_t y = 0; y < height; ++y) {
        for (std::int64_t x = 0; x < width; ++x) {
            std::uint8_t* p = pixels.data() + (y * width + x) * 4;
            const double t = double(y) / double(height);
            std::uint8_t r = std::uint8_t(40 + 60 * t), g = std::uint8_t(90 + 80 * t), b = std::uint8_t(160 + 70 * t);
            const bool window = x > width / 8 && x < width * 7 / 8 && y > height / 8 && y < height * 7 / 8;
            if (window) {
                const bool titleBar = y < height / 8 + height / 16;
                const bool textLine = !titleBar && (y / 24) % 2 == 0 && x < width * 5 / 8 && x > width / 8 + 32;
                r = g = b = titleBar ? 220 : (textLine ? 120 : 250);
            }
            p[0] = r, p[1] = g, p[2] = b, p[3] = 255;
        }
    }
    return CGImage(width, height, width * 4, std::move(pixels));
}

CGImage fitted(const CGImage& picture, std::int64_t longSide) {
    const double scale = double(longSide) / double(std::max(picture.width(), picture.height()));
    const auto width = std::max<std::int64_t>(1, std::llround(double(picture.width()) * scale));
    const auto height = std::max<std::int64_t>(1, std::llround(double(picture.height()) * scale));
    CGContext context(width, height);
    context.setInterpolationQuality(CGContext::InterpolationQuality::high);
    context.draw(picture, CGRect{{0, 0}, {double(width), double(height)}});
    return context.makeImage();
}

ObjectNode leaf(int n, std::string name, Annotation annotation) {
    ObjectNode node;
    node.id = fixedID<ObjectID>(n);
    node.name = std::move(name);
    node.content = ObjectContent::makeAnnotation(std::move(annotation));
    return node;
}

// An action that moves `property` from one value to another at an even pace.
Action linearAction(PropertyKey property, ActionValue from, ActionValue to, ActionRange range) {
    Action action;
    action.property = property;
    action.mode.cases = ActionMode::to{std::move(from), std::move(to)};
    action.curve.cases = ActionCurve::linear{};
    action.range = std::move(range);
    return action;
}

Draft screenshotDraft(const std::string& imagePath) {
    const AnnotationDefaults defaults = AnnotationDefaults::standard();
    Draft draft;
    draft.id = fixedID<DraftID>(1);
    draft.name = "2026-01-15 截图 10.30";
    draft.createdAt = exampleDate;
    Media media;
    media.id = fixedID<MediaID>(2);
    media.source = MediaSource::makeScreenshot(Screenshot{PackagePath{imagePath}, PixelSize{1280, 800}, 2, "sRGB", {}, {}});
    draft.media = CowList<Media>{media};
    Section section;
    section.id = fixedID<SectionID>(3);
    section.media = media.id;
    section.length = Section::Length::makeStill(Screenshot::defaultAnimationLength);
    draft.sections = CowList<Section>{section};
    draft.objects = CowList<ObjectNode>{leaf(4, "矩形 1", defaults.rectangle(CGRect{{180, 140}, {420, 260}})),
                                        leaf(5, "箭头 1", defaults.arrow(CGPoint{900, 640}, CGPoint{620, 420}))};
    return draft;
}

Draft animationDraft() {
    const AnnotationDefaults defaults = AnnotationDefaults::standard();
    Canvas canvas;
    canvas.pixelSize = PixelSize{1920, 1080};
    canvas.color = RGBA{0.07, 0.09, 0.15, 1};
    Draft draft = Draft::newAnimation(canvas, MediaDuration::fromSeconds(6), exampleDate,
                                      fixedID<DraftID>(10), TimeZone{0});
    draft.media.mutableItems()[0].id = fixedID<MediaID>(11);
    draft.sections.mutableItems()[0].id = fixedID<SectionID>(12);
    draft.sections.mutableItems()[0].media = fixedID<MediaID>(11);
    ObjectNode text = leaf(13, "文字 1", defaults.text(CGPoint{160, 160}, "Ovik"));
    text.actions = {linearAction(PropertyKey::opacity(), ActionValue::makeNumber(0), ActionValue::makeNumber(1),
                                 ActionRange{{}, ActionRange::opening{MediaDuration{}, MediaDuration{500'000}}})};
    ObjectNode ellipse = leaf(14, "椭圆 1", defaults.ellipse(CGRect{{700, 300}, {520, 520}}));
    ellipse.actions = {linearAction(PropertyKey::position(), ActionValue::makeVector(0, 0), ActionValue::makeVector(400, 0),
                                    ActionRange{{}, ActionRange::between{SourceTime{1'000'000}, SourceTime{3'000'000}}})};
    draft.objects = CowList<ObjectNode>{text, ellipse};
    return draft;
}

// A transition whose outgoing section fades out over all of it.
Transition fade(MediaDuration length) {
    Transition transition;
    transition.duration = length;
    Action fadeOut = linearAction(PropertyKey::opacity(), ActionValue::makeNumber(1), ActionValue::makeNumber(0),
                                  ActionRange{{}, ActionRange::opening{MediaDuration{}, length}});
    fadeOut.mode.cases = ActionMode::to{std::nullopt, ActionValue::makeNumber(0)};
    transition.outgoing.push_back(fadeOut);
    return transition;
}

Draft timedDraft() {
    Draft draft = animationDraft();
    draft.id = fixedID<DraftID>(20);
    Section eased = draft.sections[0];
    eased.length = Section::Length::makeStill(MediaDuration::fromSeconds(4));
    SectionSpeed speed = SectionSpeed::ramp(1, 2, MediaDuration::fromSeconds(2), ActionCurve{});
    speed.holds.push_back({MediaDuration::fromSeconds(1), MediaDuration::fromMilliseconds(500)});
    eased.speed = speed;
    Section after = draft.sections[0];
    after.id = fixedID<SectionID>(21);
    after.length = Section::Length::makeStill(MediaDuration::fromSeconds(3));
    after.transitionIn = fade(MediaDuration::fromMilliseconds(800));
    draft.sections = CowList<Section>{eased, after};
    return draft;
}

// The drawn screenshot on a plain light backdrop, inset with round corners and a shadow.
Draft pictureDraft() {
    Draft draft = screenshotDraft(std::string(DraftPackage::screenshotPath));
    draft.id = fixedID<DraftID>(40);
    draft.style = framedStyle(Background::makeSolid(RGBA{0.92, 0.93, 0.95, 1}), 48, 12, 40);
    return draft;
}

void writeThumbnails(const fs::path& package, const Draft& keyedDraft, const CGImage& picture) {
    for (std::int64_t size : {320, 520, 1400}) {
        const fs::path folder = package / "renders" / thumbnailKey(keyedDraft, size).rawValue;
        fs::create_directories(folder);
        AtomicFile::write(PNGCodec::encode(fitted(picture, size)), folder / RenderKey::thumbnailFileName(size));
    }
}

void makeExamples(const fs::path& out, const fs::path& movie, const fs::path& photo) {
    const CGImage picture = screenshotPicture(1280, 800);
    const std::string shot = PNGCodec::encode(picture);

    const Draft kept = screenshotDraft("media/screenshot.png");
    writePackage(out / "kept.ovikwork", kept);
    AtomicFile::write(shot, out / "kept.ovikwork/media/screenshot.png");
    writeThumbnails(out / "kept.ovikwork", kept, picture);

    // Kept renders of the draft before its arrow was moved: no key leads to them any more.
    Draft earlier = kept;
    earlier.objects.mutableItems()[1] = leaf(5, "箭头 1", AnnotationDefaults::standard().arrow(CGPoint{900, 640}, CGPoint{700, 500}));
    writePackage(out / "stale.ovikwork", kept);
    AtomicFile::write(shot, out / "stale.ovikwork/media/screenshot.png");
    writeThumbnails(out / "stale.ovikwork", earlier, picture);

    writePackage(out / "outside.ovikwork", screenshotDraft("../screenshot.png"));
    AtomicFile::write(shot, out / "screenshot.png");

    writePackage(out / "animation.ovikwork", animationDraft());
    writePackage(out / "timed.ovikwork", timedDraft());

    writePackage(out / "picture.ovikwork", pictureDraft());
    AtomicFile::write(shot, out / "picture.ovikwork" / DraftPackage::screenshotPath);
    writeRecordingPackage(out / "recording.ovikwork", movie);
    writePhotoPackage(out / "photo.ovikwork", photo);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: ovik-examples OUT-FOLDER MOVIE PHOTO\n");
        return 2;
    }
    try {
        fs::create_directories(argv[1]);
        makeExamples(argv[1], argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ovik-examples: %s\n", error.what());
        return 1;
    }
    return 0;
}
