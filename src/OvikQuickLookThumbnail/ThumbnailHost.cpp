#include "OvikQuickLookThumbnail/ThumbnailHost.h"

#include <cmath>
#include <future>

#include "OvikDrafts/LocalizedDescription.h"
#include "OvikPlatform/codecs/PNGCodec.h"
#include "OvikPlatform/files/ReadFile.h"
#include "OvikQuickLook/QuickLookError.h"
#include "OvikQuickLookThumbnail/ThumbnailProvider.h"

namespace ovik {
namespace {

std::int64_t pixels(double points, double scale) {
    return std::max<std::int64_t>(1, std::int64_t(std::llround(points * scale)));
}

CGImage drawn(const ThumbnailReply& reply, double scale) {
    const CGSize size = reply.contextSize();
    CGContext context(pixels(size.width, scale), pixels(size.height, scale));
    if (!reply.draw(context)) throw QuickLookFailure();
    return context.makeImage();
}

// A host shows a kept file fitted into its box, keeping the file's aspect. The file is decoded
// no larger than the box needs, and one far larger than the box could show is refused from its
// header.
CGImage fitted(const std::filesystem::path& file, const ThumbnailRequest& request) {
    const CGSize box{request.maximumSize.width * request.scale, request.maximumSize.height * request.scale};
    CGSize size;
    const CGImage kept = [&] {
        try {
            const std::string bytes = readFile(file);
            const ImageProperties header = PNGCodec::properties(bytes);
            size = ThumbnailProvider::contextSize({header.width, header.height}, box);
            return PNGCodec::decode(bytes, std::int64_t(std::max(size.width, size.height)));
        } catch (const Error& error) {
            throw QuickLookFailure(localizedDescription(error));
        }
    }();
    CGContext context(std::int64_t(size.width), std::int64_t(size.height));
    context.setInterpolationQuality(CGContext::InterpolationQuality::high);
    context.draw(kept, CGRect{{0, 0}, size});
    return context.makeImage();
}

} // namespace

HostedThumbnail ThumbnailHost::answer(const ThumbnailRequest& request) {
    std::promise<ThumbnailReply> promise;
    ThumbnailProvider().provideThumbnail(request, [&promise](std::optional<ThumbnailReply> reply, std::exception_ptr error) {
        if (error) promise.set_exception(error);
        else promise.set_value(std::move(*reply));
    });
    // The reply comes from the provider's own task: wait for it here.
    const ThumbnailReply reply = promise.get_future().get();
    if (reply.imageFileURL()) return HostedThumbnail{reply.imageFileURL(), fitted(*reply.imageFileURL(), request)};
    return HostedThumbnail{std::nullopt, drawn(reply, request.scale)};
}

} // namespace ovik
