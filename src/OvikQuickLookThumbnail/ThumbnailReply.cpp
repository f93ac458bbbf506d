#include "OvikQuickLookThumbnail/ThumbnailReply.h"

namespace ovik {

ThumbnailReply ThumbnailReply::imageFile(std::filesystem::path url) {
    ThumbnailReply reply;
    reply.imageFileURL_ = std::move(url);
    return reply;
}

ThumbnailReply ThumbnailReply::drawing(CGSize contextSize, Drawing draw) {
    ThumbnailReply reply;
    reply.contextSize_ = contextSize;
    reply.draw_ = std::move(draw);
    return reply;
}

} // namespace ovik
