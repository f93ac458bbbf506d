#pragma once
// A finished picture made pixels: the 8-bit sRGB bitmap, and what its render took.
#include "OvikCompositor/FrameRenderInfo.h"
#include "OvikModel/values/ImageBox.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

class Image;

struct RenderedFrame {
    ImageBox image;
    FrameRenderInfo info;

    /// `rect` of `picture`, counted towards `path`. A rectangle the renderer refuses (not
    /// finite, empty, too large) throws `RenderFailure` (`failed`).
    static RenderedFrame render(const Image& picture, const CGRect& rect, RenderPath path);
};

} // namespace ovik
