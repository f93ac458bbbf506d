#include "OvikQuickLook/QuickLookDraft.h"

#include <algorithm>

#include "OvikCompositor/CanvasLayout.h"
#include "OvikCompositor/LiveRendering.h"
#include "OvikDrafts/LocalizedDescription.h"
#include "OvikModel/keys/BuiltInFormats.h"
#include "OvikModel/keys/DraftRenderKey.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikQuickLook/QuickLookError.h"
#include "OvikQuickLook/QuickLookPackage.h"

namespace ovik::QuickLookDraft {
namespace {

// The one place where a picture is composed from the draft, at its poster moment.
ImageBox composeStill(const DraftDocument& document, std::int64_t maxPixel) {
    return LiveRendering::shared().still(document, std::nullopt, maxPixel);
}

std::optional<std::filesystem::path> keptThumbnail(const QuickLookPackage& package, std::int64_t size) {
    return package.render(ovik::thumbnailKey(package.document.draft, size), "png", thumbnailFileName(size));
}

Thumbnail fileAnswer(std::filesystem::path url) { return Thumbnail{{}, Thumbnail::file{std::move(url)}}; }

// A composed preview is shown in the capture's points; the layout's scale is never below or at
// 0 (a scale that is not positive counts as 1).
CGSize points(const ImageBox& image, const Draft& draft) {
    const double scale = CanvasLayout::make(draft).sourceScale;
    const PixelSize size = image.pixelSize();
    return {double(size.width) / scale, double(size.height) / scale};
}

} // namespace

Thumbnail thumbnail(const std::filesystem::path& url, std::int64_t maxPixel) {
    const QuickLookPackage package = QuickLookPackage::open(url);
    // Up the ladder from the smallest kept size that is not smaller than the request.
    for (std::int64_t size : keptThumbnailPixels)
        if (maxPixel <= size)
            if (auto file = keptThumbnail(package, size)) return fileAnswer(std::move(*file));
    try {
        return Thumbnail{{}, Thumbnail::picture{composeStill(package.document, std::min(maxPixel, renderingLimit))}};
    } catch (const std::exception& error) {
        // Any kept size will do now, the largest first.
        for (auto size = keptThumbnailPixels.rbegin(); size != keptThumbnailPixels.rend(); ++size)
            if (auto file = keptThumbnail(package, *size)) return fileAnswer(std::move(*file));
        throw QuickLookFailure(localizedDescription(error));
    }
}

Preview preview(const std::filesystem::path& url, std::int64_t maxPixel) {
    const QuickLookPackage package = QuickLookPackage::open(url);
    const Draft& draft = package.document.draft;
    const OutputKind kind = draft.outputKind();
    const ExportRequest request = BuiltInFormats::defaultRequest(kind);
    const std::string extension = BuiltInFormats::fileExtension(request.format);
    if (auto file = package.render(renderKey(draft, request, std::nullopt), extension, std::nullopt))
        return Preview{{}, Preview::file{std::move(*file)}};
    if (kind == OutputKind::screenshot && draft.isCaptureAsIs()) {
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&draft.source().cases)) {
            const std::filesystem::path image = package.root / shot->value.image.relative;
            std::error_code error;
            if (QuickLookPackage::isInside(image, package.root) && std::filesystem::exists(image, error))
                return Preview{{}, Preview::file{image}};
        }
    }
    try {
        const ImageBox image = composeStill(package.document, maxPixel);
        return Preview{{}, Preview::picture{image, points(image, draft)}};
    } catch (const std::exception&) {
        throw QuickLookFailure();
    }
}

std::optional<Draft> draft(const std::filesystem::path& url) {
    try {
        return QuickLookPackage::open(url).document.draft;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

RenderKey thumbnailKey(const Draft& draft, std::int64_t maxPixel) { return ovik::thumbnailKey(draft, maxPixel); }

std::string thumbnailFileName(std::int64_t maxPixel) { return RenderKey::thumbnailFileName(maxPixel); }

std::string pngData(const ImageBox& image) {
    if (!image.cgImage) throw QuickLookFailure();
    try {
        return PNGCodec::encode(*image.cgImage);
    } catch (const Error&) {
        throw QuickLookFailure();
    }
}

} // namespace ovik::QuickLookDraft
