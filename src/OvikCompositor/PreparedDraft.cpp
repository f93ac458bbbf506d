#include "OvikCompositor/PreparedDraft.h"

#include "OvikCompositor/PictureCache.h"
#include "OvikCompositor/PictureColor.h"
#include "OvikCompositor/RenderError.h"
#include "OvikModel/draft/PicturePaths.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {
namespace {

// A picture of the package, through the cache; throws what decoding throws.
ImageBox picture(const std::filesystem::path& url, PictureCache& cache) {
    if (auto kept = cache.value(url)) return *kept;
    ImageBox box{std::make_shared<const CGImage>(ImageDecoder::read(url))};
    cache.insert(url, box);
    return box;
}

std::map<PackagePath, ImageBox> readPictures(const DraftDocument& document, const Draft& draft, PictureCache& cache) {
    std::map<PackagePath, ImageBox> out;
    for (const PackagePath& path : picturePaths(draft)) {
        try {
            out.emplace(path, picture(document.url(path), cache));
        } catch (const std::exception&) {
            // A missing picture leaves its object with a placeholder, not the frame unmade.
        }
    }
    return out;
}

Image canvasPicture(const Canvas& canvas) {
    const ImageColor color = canvas.isTransparent ? ImageColor::clear() : pictureColor(canvas.color);
    const CGRect size{{0, 0}, {double(canvas.pixelSize.width), double(canvas.pixelSize.height)}};
    return Image::fromColor(color).cropped(size);
}

Image screenshotPicture(const DraftDocument& document, const Screenshot& shot, PictureCache& cache) {
    try {
        return Image::fromCGImage(picture(document.url(shot.image), cache).cgImage);
    } catch (const std::exception& error) {
        throw RenderFailure(RenderError::sourceUnreadable{shot.image.relative + ": " + error.what()});
    }
}

std::map<MediaID, Image> readMedia(const DraftDocument& document, const Draft& draft, PictureCache& cache) {
    std::map<MediaID, Image> out;
    for (const Media& media : draft.media.items()) {
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&media.source.cases))
            out.emplace(media.id, screenshotPicture(document, shot->value, cache));
        else if (const auto* canvas = std::get_if<MediaSource::canvas>(&media.source.cases))
            out.emplace(media.id, canvasPicture(canvas->value));
    }
    return out;
}

} // namespace

PreparedDraft PreparedDraft::prepare(const DraftDocument& document, PictureCache& cache, const std::optional<Style>& style) {
    Draft draft = document.draft;
    if (style) draft.style = *style;
    std::map<PackagePath, ImageBox> pictures = readPictures(document, draft, cache);
    std::optional<ImageBox> background;
    if (const auto path = draft.style.background.picture(); path && pictures.count(*path)) background = pictures.at(*path);
    std::map<MediaID, Image> media = readMedia(document, draft, cache);
    const CanvasLayout layout = CanvasLayout::make(draft);
    std::shared_ptr<const DraftTimeline> shown = draft.isTimed() ? ovik::timeline(draft) : nullptr;
    return PreparedDraft{std::move(draft), std::move(background), std::move(pictures), layout, std::move(shown),
                         std::move(media), RenderOptions::none()};
}

} // namespace ovik
