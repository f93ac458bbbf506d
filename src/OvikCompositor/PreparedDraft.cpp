#include "OvikCompositor/PreparedDraft.h"

#include "OvikCompositor/PictureCache.h"
#include "OvikCompositor/PictureColor.h"
#include "OvikCompositor/RenderError.h"
#include "OvikCompositor/SourceProblem.h"
#include "OvikModel/draft/PicturePaths.h"
#include "OvikModel/time/DraftTiming.h"
#include "OvikPlatform/codecs/ImageDecoder.h"
#include "OvikPlatform/codecs/ImageLimits.h"
#include "OvikPlatform/image/ImageColor.h"

namespace ovik {
namespace {

// A picture of the package, through the cache; throws what decoding throws.
ImageBox picture(const PictureCache::Key& key, PictureCache& cache) {
    if (auto kept = cache.value(key)) return *kept;
    ImageBox box{std::make_shared<const CGImage>(ImageDecoder::read(key.first, key.second))};
    cache.insert(key, box);
    return box;
}

std::map<PackagePath, ImageBox> readPictures(const Draft& draft, const PreparedDraft::PictureReader& read) {
    std::map<PackagePath, ImageBox> out;
    for (const PackagePath& path : picturePaths(draft)) {
        try {
            out.emplace(path, read(path));
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

Image screenshotPicture(const Screenshot& shot, const PreparedDraft::PictureReader& read) {
    try {
        return Image::fromCGImage(read(shot.image).cgImage);
    } catch (const std::exception& error) {
        throw RenderFailure(RenderError::sourceUnreadable{sourceProblem(shot.image, error)});
    }
}

std::map<MediaID, Image> readMedia(const Draft& draft, const PreparedDraft::PictureReader& read) {
    std::map<MediaID, Image> out;
    for (const Media& media : draft.media.items()) {
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&media.source.cases))
            out.emplace(media.id, screenshotPicture(shot->value, read));
        else if (const auto* canvas = std::get_if<MediaSource::canvas>(&media.source.cases))
            out.emplace(media.id, canvasPicture(canvas->value));
    }
    return out;
}

} // namespace

PreparedDraft PreparedDraft::prepare(const DraftDocument& document, PictureCache& cache, const std::optional<Style>& style,
                                     std::optional<std::int64_t> pictureLongSide) {
    Draft draft = document.draft;
    if (style) draft.style = *style;
    const std::int64_t longSide = pictureLongSide.value_or(ImageLimits::maximumSide);
    return prepare(std::move(draft), [&](const PackagePath& path) { return picture({document.url(path), longSide}, cache); });
}

PreparedDraft PreparedDraft::prepare(Draft draft, const PictureReader& read) {
    std::map<PackagePath, ImageBox> pictures = readPictures(draft, read);
    std::optional<ImageBox> background;
    if (const auto path = draft.style.background.picture(); path && pictures.count(*path)) background = pictures.at(*path);
    std::map<MediaID, Image> media = readMedia(draft, read);
    const CanvasLayout layout = CanvasLayout::make(draft);
    std::shared_ptr<const DraftTimeline> shown = draft.isTimed() ? ovik::timeline(draft) : nullptr;
    return PreparedDraft{std::move(draft), std::move(background), std::move(pictures), layout, std::move(shown),
                         std::move(media), RenderOptions::none()};
}

} // namespace ovik
