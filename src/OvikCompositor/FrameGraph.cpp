#include "OvikCompositor/FrameGraph.h"

#include <algorithm>
#include <cmath>

#include "OvikCompositor/DeviceFrameDrawing.h"
#include "OvikCompositor/DeviceGeometry.h"
#include "OvikCompositor/FramePieces.h"
#include "OvikCompositor/PictureColor.h"
#include "OvikCompositor/PreparedDraft.h"
#include "OvikModel/style/OvikBackgrounds.h"
#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/ImageExtent.h"
#include "OvikPlatform/image/ImageRegistry.h"
#include "OvikPlatform/image/RenderContext.h"

namespace ovik {

struct FrameGraph::Side {
    MediaID media;
    /// The section's decoded video frame, or the media's still.
    Image picture;
};

namespace {

double positiveOr1(double x) { return x > 0 && std::isfinite(x) ? x : 1; }

CGRect sizeRect(PixelSize size) { return CGRect{{0, 0}, {double(size.width), double(size.height)}}; }

Image moved(const Image& image, double dx, double dy) {
    return image.transformed(CGAffineTransform::translation(dx, dy), ImageSampler::nearest);
}

// Renders `rect` of `image` once and keeps the working pixels: what a cache holds. Kept
// unencoded, they are read back exactly and with no decoding.
BakedImageCache<int>::Baked baked(const Image& image, const CGRect& rect) {
    auto bitmap = std::make_shared<const BitmapFloat>(FrameGraph::context().renderFloat(image, rect));
    const auto bytes = std::int64_t(bitmap->pixels.size() * sizeof(float));
    return {moved(Image::fromBitmap(std::move(bitmap)), rect.minX(), rect.minY()), bytes};
}

template <class Key>
typename BakedImageCache<Key>::Baked rekeyed(BakedImageCache<int>::Baked made) {
    return {std::move(made.image), made.bytes};
}

// Linear from `from` to `to` along the angle, its ends where the angle's line leaves the
// rectangle's middle by half the width and half the height.
Image gradient(const GradientSpec& spec, PixelSize size) {
    const double w = double(size.width), h = double(size.height);
    const double angle = spec.angleDegrees * M_PI / 180;
    const double dx = w / 2 * std::cos(angle), dy = h / 2 * std::sin(angle);
    const FilterInputs inputs{{"inputPoint0", CGPoint{w / 2 - dx, h / 2 - dy}},
                              {"inputPoint1", CGPoint{w / 2 + dx, h / 2 + dy}},
                              {"inputColor0", pictureColor(spec.from)},
                              {"inputColor1", pictureColor(spec.to)}};
    return ImageRegistry::shared().applyFilter("CILinearGradient", inputs).cropped(sizeRect(size));
}

Image masked(const Image& image, const Image& background, const Image& mask) {
    return image.applyingFilter("CIBlendWithRedMask", {{"inputBackgroundImage", background}, {"inputMaskImage", mask}});
}

// The part of the capture a side shows, in the picture's own pixels (y up): the crop of a
// draft of one media, all of it otherwise.
CGRect shownPart(const PreparedDraft& prepared, const Image& picture) {
    const CGRect extent = picture.extent();
    if (prepared.draft.media.size() != 1) return extent;
    const CanvasLayout& layout = prepared.layout;
    const double capW = double(layout.capturePixels.width), capH = double(layout.capturePixels.height);
    const double fx = extent.width() / capW, fy = extent.height() / capH;
    const CGRect& s = layout.sourceRect;
    return CGRect{{extent.minX() + s.minX() * fx, extent.minY() + (capH - s.maxY()) * fy},
                  {s.width() * fx, s.height() * fy}};
}

// The shown part of a picture scaled onto the card. A part that covers the card with less than
// a pixel to spare (a frame read at the size it is drawn) is moved onto it by whole pixels
// instead, its spare edge cut: resampling by less than a pixel would cost a filter pass over
// the card and only soften the picture.
Image placed(const Image& picture, const CGRect& part, const CGRect& card) {
    const double dx = card.minX() - part.minX(), dy = card.minY() - part.minY();
    const auto covers = [](double part, double card) { return part >= card && part - card < 1; };
    if (covers(part.width(), card.width()) && covers(part.height(), card.height()) && dx == std::round(dx) &&
        dy == std::round(dy))
        return moved(picture.cropped(part), dx, dy).cropped(card);
    const double sx = card.width() / part.width(), sy = card.height() / part.height();
    const CGAffineTransform place{sx, 0, 0, sy, card.minX() - part.minX() * sx, card.minY() - part.minY() * sy};
    return picture.cropped(part).transformed(place, ImageSampler::lanczos).cropped(card);
}

// Where a media's card lands in the output, y up, on whole pixels.
CGRect cardRect(const PreparedDraft& prepared, MediaID media, double scale, PixelSize size) {
    const CanvasLayout& layout = prepared.layout;
    if (prepared.draft.media.size() == 1) return layout.renderedContentRect(scale, size);
    const auto landed = CanvasLayout::landed(prepared.draft);
    const auto found = landed.find(media);
    if (found == landed.end()) return ImageExtent::null();
    const CGAffineTransform t = layout.objectTransform(scale, size);
    const CGPoint top = t.apply({found->second.minX(), found->second.minY()});
    const CGPoint bottom = t.apply({found->second.maxX(), found->second.maxY()});
    return CGRect{{std::round(top.x), std::round(double(size.height) - bottom.y)},
                  {std::round(bottom.x) - std::round(top.x), std::round(bottom.y) - std::round(top.y)}};
}

// The outlines that cast a card's shadow: its device's, or its own rounded rectangle.
std::vector<RoundedOutline> outlines(const PreparedDraft& prepared, const CGRect& card, double radius) {
    const CanvasLayout& layout = prepared.layout;
    const double W = double(layout.contentPixels.width), H = double(layout.contentPixels.height);
    const DeviceGeometry device{layout.deviceFrame, W, H, layout.sourceScale, layout.cornerRadius};
    std::vector<RoundedOutline> out = device.silhouette();
    if (out.empty()) return {{card, radius}};
    const double k = card.width() / W;
    for (RoundedOutline& outline : out)
        outline = {CGRect{{card.minX() + outline.rect.minX() * k, card.minY() + outline.rect.minY() * k},
                          {outline.rect.width() * k, outline.rect.height() * k}},
                   outline.radius * k};
    return out;
}

} // namespace

FrameGraph::FrameGraph(Wallpaper wallpaper, std::int64_t budget)
    : wallpaper_(std::move(wallpaper)), backgrounds_(budget / 2), shadows_(budget / 4), frames_(budget / 8) {}

RenderContext& FrameGraph::context() { return RenderContext::shared(); }

std::int64_t FrameGraph::bakes() const {
    return backgrounds_.bakes() + shadows_.bakes() + frames_.bakes();
}

Image FrameGraph::render(const PreparedDraft& prepared, const FrameMoment& moment, double canvasScale,
                         std::optional<PixelSize> outputSize) {
    const double scale = positiveOr1(canvasScale);
    const PixelSize size = outputSize.value_or(prepared.layout.pixelSize(scale, false));
    // The layers, back to front. A layer not drawn yet is a `pending:` line where its step goes.
    Image picture = background(prepared, size);
    // pending: the look on the background (`Style.lookScope` background), with effect stacks.
    // The media sides: each its shadow, content, device, hosted objects and camera. Transitions
    // between sections (offsets, dissolves, posed sides) wait for the section looks: during
    // one, the incoming side lies on top.
    for (const Side& each : sides(prepared, moment)) picture = side(prepared, each, scale, size, picture);
    // pending: the objects that have no host, in tree order, with the object painter.
    // pending: the front lens blur merged over the back, with lens blur.
    // pending: the look on the whole picture (`Style.lookScope` all), with effect stacks.
    // pending: the letterbox bars (`Draft.letterbox`).
    // pending: the objects above the letterbox (the lifted leaves), with the object painter.
    // pending: the caption, then the key chip, with the overlays.
    // pending: the watermark (`prepared.options.watermark`).
    // The output rectangle.
    return picture.cropped(sizeRect(size));
}

// What shows at the moment, back to front: each section on screen with its media, or the
// draft's one capture. A side shows its section's video frame, else its media's still.
std::vector<FrameGraph::Side> FrameGraph::sides(const PreparedDraft& prepared, const FrameMoment& moment) {
    const auto still = [&](MediaID media) {
        const auto found = prepared.mediaPictures.find(media);
        return found != prepared.mediaPictures.end() ? found->second : Image();
    };
    std::vector<Side> out;
    if (!moment.sections) {
        if (!prepared.draft.media.empty()) {
            const MediaID media = prepared.draft.media[prepared.draft.primaryMediaIndex()].id;
            out.push_back({media, still(media)});
        }
        return out;
    }
    for (const SectionID id : *moment.sections)
        for (const Section& section : prepared.draft.sections.items()) {
            if (section.id != id) continue;
            const auto frame = moment.frames.find(id);
            out.push_back({section.media, frame != moment.frames.end() ? frame->second : still(section.media)});
        }
    return out;
}

Image FrameGraph::background(const PreparedDraft& prepared, PixelSize size) {
    using B = Background;
    const Style& style = prepared.draft.style;
    const Background& background = style.background;
    if (const auto* ramp = std::get_if<B::gradient>(&background.cases)) return gradient(ramp->value, size);
    if (const auto* solid = std::get_if<B::solid>(&background.cases))
        return Image::fromColor(pictureColor(solid->value)).cropped(sizeRect(size));
    if (background.is<B::image>() || background.is<B::catalog>()) {
        if (!prepared.backgroundImage) return Image();
        return bakedFill(*prepared.backgroundImage, "image:" + background.picture()->relative, size, style.backgroundBlur);
    }
    if (background.is<B::wallpaper>()) {
        if (const auto picture = wallpaper_ ? wallpaper_() : std::nullopt)
            return bakedFill(*picture, "wallpaper", size, style.backgroundBlur);
        return gradient(OvikBackgrounds::gradients().front().spec, size);
    }
    return Image();
}

// The picture scaled to cover the output and centred, blurred when asked, baked once.
Image FrameGraph::bakedFill(const ImageBox& picture, const std::string& identity, PixelSize size, double blur) {
    const BackgroundKey key{identity, size.width, size.height, blur};
    const auto made = backgrounds_.value(key, [&]() -> std::optional<BakedImageCache<BackgroundKey>::Baked> {
        if (!picture.cgImage || picture.cgImage->width() < 1 || picture.cgImage->height() < 1) return std::nullopt;
        const double W = double(size.width), H = double(size.height);
        const double w = double(picture.cgImage->width()), h = double(picture.cgImage->height());
        const double k = std::max(W / w, H / h);
        const CGAffineTransform fit{k, 0, 0, k, (W - w * k) / 2, (H - h * k) / 2};
        Image filled = Image::fromCGImage(picture.cgImage).transformed(fit, ImageSampler::lanczos);
        if (blur > 0)
            filled = filled.cropped(sizeRect(size))
                         .clampedToExtent()
                         .applyingGaussianBlur(std::min(blur, 40.0) * std::min(W, H) / 1080);
        return rekeyed<BackgroundKey>(baked(filled, sizeRect(size)));
    });
    return made.value_or(Image());
}

Image FrameGraph::side(const PreparedDraft& prepared, const Side& shown, double scale, PixelSize size,
                       const Image& over) {
    const Image* source = &shown.picture;
    if (source->isEmpty()) return over;
    const CGRect card = cardRect(prepared, shown.media, scale, size);
    if (ImageExtent::isNull(card) || card.width() < 1 || card.height() < 1) return over;
    const CanvasLayout& layout = prepared.layout;
    const double radius = layout.cornerRadius * card.width() / std::max(1.0, double(layout.contentPixels.width));
    Image picture = over;
    if (const auto spec = ShadowSpec::make(prepared.draft.style.shadow, layout.sourceScale * scale))
        picture = shadowed(outlines(prepared, card, radius), *spec, size, picture);
    Image content = placed(*source, shownPart(prepared, *source), card);
    if (radius > 0) content = cornered(content, card, radius, layout.deviceFrame == DeviceFrame::browser);
    const DeviceGeometry device{layout.deviceFrame, card.width(), card.height(), layout.sourceScale * scale, radius};
    if (DeviceFrameDrawing::isDrawable(device)) content = framed(content, device, card);
    // pending: the objects hosted on this card, in its object space, with the object painter.
    const Image laid = content.composited(picture);
    // pending: the camera (`FrameMoment::cameras` of the side's section) over the laid card.
    return laid;
}

// Solid black over the picture so far, through a mask of the outlines blurred and offset
// down: white of the shadow's opacity, pieces added together.
Image FrameGraph::shadowed(const std::vector<RoundedOutline>& pieces, const ShadowSpec& spec, PixelSize size,
                           const Image& over) {
    ShadowKey key;
    std::get<1>(key) = spec;
    for (const RoundedOutline& piece : pieces)
        std::get<0>(key).emplace_back(piece.rect.minX(), piece.rect.minY(), piece.rect.width(), piece.rect.height(),
                                      piece.radius);
    const auto mask = shadows_.value(key, [&]() -> std::optional<BakedImageCache<ShadowKey>::Baked> {
        // A wide blur is smooth: it is baked at a fraction of the output's resolution, so
        // that a sigma still spans at least `finest` baked pixels, and stretched back up.
        constexpr double finest = 4;
        const double k = std::exp2(std::max(0.0, std::floor(std::log2(spec.sigma / finest))));
        const CGAffineTransform down = CGAffineTransform::scale(1 / k, 1 / k);
        Image sum;
        CGRect reach = ImageExtent::null();
        for (const RoundedOutline& piece : pieces) {
            const CGRect rect{{piece.rect.minX(), piece.rect.minY() - spec.offset}, piece.rect.size};
            const Image blurred = ImageRegistry::shared().applyFilter(
                "blurredRoundedRectangleGenerator", {{"inputExtent", ImageExtent::transformed(rect, down)},
                                                     {"inputRadius", piece.radius / k},
                                                     {"inputSigma", spec.sigma / k},
                                                     {"inputColor", ImageColor{1, 1, 1, spec.opacity}}});
            sum = sum.isEmpty() ? blurred
                                : blurred.applyingFilter("CIAdditionCompositing", {{"inputBackgroundImage", sum}});
            reach = ImageExtent::unionOf(reach, ImageExtent::grown(rect, 3 * spec.sigma + 2, 3 * spec.sigma + 2));
        }
        const CGRect whole = ImageExtent::fromEdges(std::floor(reach.minX()), std::floor(reach.minY()),
                                                    std::ceil(reach.maxX()), std::ceil(reach.maxY()));
        if (ImageExtent::isNull(whole)) return std::nullopt;
        const CGRect small = ImageExtent::transformed(whole, down);
        const CGRect bakedRect = ImageExtent::fromEdges(std::floor(small.minX()), std::floor(small.minY()),
                                                        std::ceil(small.maxX()), std::ceil(small.maxY()));
        auto made = rekeyed<ShadowKey>(baked(sum, bakedRect));
        made.image = made.image.transformed(CGAffineTransform::scale(k, k), ImageSampler::linear).cropped(whole);
        return made;
    });
    if (!mask) return over;
    const CGRect shown = ImageExtent::intersection(mask->extent(), ImageExtent::grown(sizeRect(size), 2, 2));
    // A card so small or far out that its shadow misses the output casts none.
    if (ImageExtent::isNull(shown)) return over;
    return masked(Image::fromColor(ImageColor::black()), over, mask->cropped(shown));
}

// The device drawn under the content in pieces around its screen, each baked once, and the
// phone's island over it.
Image FrameGraph::framed(const Image& content, const DeviceGeometry& device, const CGRect& card) {
    const auto key = [&](int piece) {
        return FrameKey{int(device.kind), device.width, device.height, device.pixelsPerPoint, device.windowRadius, piece};
    };
    const FramePieces cut = framePieces(device);
    Image drawing;
    for (std::size_t i = 0; i < cut.pieces.size(); ++i) {
        const CGRect piece = cut.pieces[i];
        const auto baked = frames_.value(key(int(i)), [&]() -> std::optional<BakedImageCache<FrameKey>::Baked> {
            auto bitmap = std::make_shared<const CGImage>(DeviceFrameDrawing::rasterizePiece(device, piece));
            const std::int64_t bytes = bitmap->bytesPerRow() * bitmap->height();
            return BakedImageCache<FrameKey>::Baked{moved(Image::fromCGImage(std::move(bitmap)), piece.minX(), piece.minY()),
                                                    bytes};
        });
        if (baked) drawing = drawing.isEmpty() ? *baked : baked->composited(drawing);
    }
    Image out = content.composited(moved(drawing, card.minX(), card.minY()));
    const auto island = frames_.value(key(-1), [&]() -> std::optional<BakedImageCache<FrameKey>::Baked> {
        auto shape = DeviceFrameDrawing::island(device);
        if (!shape) return std::nullopt;
        const std::int64_t bytes = shape->second.bytesPerRow() * shape->second.height();
        return BakedImageCache<FrameKey>::Baked{
            moved(Image::fromCGImage(std::make_shared<const CGImage>(std::move(shape->second))), shape->first.minX(),
                  shape->first.minY()),
            bytes};
    });
    return island ? moved(*island, card.minX(), card.minY()).composited(out) : out;
}

// The content inside the card's round corners. Under a browser's bar the top corners stay
// square. The mask is worked out per pixel where it is read rather than baked: its coverage
// is a few operations a pixel, cheaper than reading back working pixels of the whole card.
Image FrameGraph::cornered(const Image& content, const CGRect& card, double radius, bool squareTop) {
    const CGRect rect{{card.minX(), card.minY()}, {card.width(), card.height() + (squareTop ? radius + 1 : 0)}};
    const Image mask = ImageRegistry::shared()
                           .applyFilter("roundedRectangleGenerator", {{"inputExtent", rect},
                                                                     {"inputRadius", radius},
                                                                     {"inputColor", ImageColor::white()}})
                           .cropped(card);
    return masked(content, Image(), mask);
}

} // namespace ovik
