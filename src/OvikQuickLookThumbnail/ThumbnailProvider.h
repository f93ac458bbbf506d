#pragma once
// The object a host makes. It answers each request exactly once, from a task on the shared
// pool, and returns at once.
#include <exception>
#include <functional>
#include <optional>

#include "OvikModel/values/PixelSize.h"
#include "OvikQuickLookThumbnail/ThumbnailReply.h"
#include "OvikQuickLookThumbnail/ThumbnailRequest.h"

namespace ovik {

class ThumbnailProvider {
public:
    /// Called once: a reply and no error, or no reply and the error (a `QuickLookFailure`).
    using Handler = std::function<void(std::optional<ThumbnailReply>, std::exception_ptr)>;

    void provideThumbnail(const ThumbnailRequest& request, Handler handler) const;

    /// The long side in pixels: the larger side in points times the scale, rounded up, at least 1.
    static std::int64_t maxPixel(const ThumbnailRequest& request);
    /// The image fitted into `maximumSize`, keeping its aspect; each side at least 1.
    static CGSize contextSize(PixelSize image, CGSize maximumSize);
};

} // namespace ovik
