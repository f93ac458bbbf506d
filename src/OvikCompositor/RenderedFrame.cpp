#include "OvikCompositor/RenderedFrame.h"

#include <chrono>

#include "OvikCompositor/FrameGraph.h"
#include "OvikCompositor/RenderError.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/RenderContext.h"

namespace ovik {

RenderedFrame RenderedFrame::render(const Image& picture, const CGRect& rect, RenderPath path) {
    try {
        RenderWork work;
        const auto start = std::chrono::steady_clock::now();
        auto bitmap = std::make_shared<const CGImage>(FrameGraph::context().createCGImage(picture, rect, &work));
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
        return {ImageBox{std::move(bitmap)}, FrameRenderInfo{path, took.count(), work.passCount, work.pixelsProcessed}};
    } catch (const ImageError& error) {
        throw RenderFailure(RenderError::failed{error.what()});
    }
}

} // namespace ovik
