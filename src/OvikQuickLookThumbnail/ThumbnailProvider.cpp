#include "OvikQuickLookThumbnail/ThumbnailProvider.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "OvikPlatform/concurrency/TaskPool.h"
#include "OvikQuickLook/QuickLookDraft.h"

namespace ovik {
namespace {

// Sizes come from a trusted host, but a non-finite or huge one must not reach an integer cast.
std::int64_t saturatedCeiling(double value) {
    if (!(value > 1)) return 1;
    if (value >= 9.2e18) return std::numeric_limits<std::int64_t>::max();
    return std::int64_t(std::ceil(value));
}

ThumbnailReply replyFor(const QuickLookDraft::Thumbnail& thumbnail, CGSize maximumSize) {
    if (const auto* file = std::get_if<QuickLookDraft::Thumbnail::file>(&thumbnail.cases))
        return ThumbnailReply::imageFile(file->value);
    const ImageBox image = std::get<QuickLookDraft::Thumbnail::picture>(thumbnail.cases).value;
    const CGSize size = ThumbnailProvider::contextSize(image.pixelSize(), maximumSize);
    return ThumbnailReply::drawing(size, [image, size](CGContext& context) {
        context.setInterpolationQuality(CGContext::InterpolationQuality::high);
        context.draw(*image.cgImage, CGRect{{0, 0}, size});
        return true;
    });
}

} // namespace

std::int64_t ThumbnailProvider::maxPixel(const ThumbnailRequest& request) {
    return saturatedCeiling(std::max(request.maximumSize.width, request.maximumSize.height) * request.scale);
}

CGSize ThumbnailProvider::contextSize(PixelSize image, CGSize maximumSize) {
    const double w = double(std::max<std::int64_t>(image.width, 1)), h = double(std::max<std::int64_t>(image.height, 1));
    const double fit = std::min(maximumSize.width / w, maximumSize.height / h);
    return {std::max(1.0, std::round(w * fit)), std::max(1.0, std::round(h * fit))};
}

void ThumbnailProvider::provideThumbnail(const ThumbnailRequest& request, Handler handler) const {
    TaskPool::shared().run([request, handler = std::move(handler)] {
        std::optional<ThumbnailReply> reply;
        std::exception_ptr error;
        try {
            reply = replyFor(QuickLookDraft::thumbnail(request.fileURL, maxPixel(request)), request.maximumSize);
        } catch (...) {
            error = std::current_exception();
        }
        handler(std::move(reply), error);
    });
}

} // namespace ovik
