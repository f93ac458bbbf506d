#pragma once
// Turns a prepared draft and a moment into one finished picture, layer by layer from the back,
// and keeps the caches that make repeated frames cheap: baked backgrounds, shadows and device
// pieces. A picture stays a lazy recipe; only the baking of a cache entry renders.
//
// Pictures are in output pixels, y up, with the output's corner at the origin. Used from many
// threads at once: each cache has its own lock, never held while a picture is made.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "OvikCompositor/BakedImageCache.h"
#include "OvikCompositor/FrameMoment.h"
#include "OvikCompositor/ShadowSpec.h"
#include "OvikModel/values/ImageBox.h"
#include "OvikModel/values/PixelSize.h"

namespace ovik {

class RenderContext;
struct DeviceGeometry;
struct PreparedDraft;
struct RoundedOutline;

class FrameGraph {
public:
    /// The person's desktop picture, for the `wallpaper` background; none falls back to a
    /// gradient.
    using Wallpaper = std::function<std::optional<ImageBox>()>;

    /// Backgrounds take half the budget, shadows a quarter, device pieces an eighth.
    FrameGraph(Wallpaper wallpaper, std::int64_t cacheBudgetBytes);

    /// The picture of `moment` at `canvasScale` (0 or below counts as 1), in an output of
    /// `outputSize` (default: the canvas at that scale).
    Image render(const PreparedDraft& prepared, const FrameMoment& moment, double canvasScale,
                 std::optional<PixelSize> outputSize = std::nullopt);

    /// The process-wide renderer every picture becomes pixels through.
    static RenderContext& context();

    std::int64_t bakes() const;

private:
    // Keys hold content, never identity, so a new prepared draft finds what an old one baked.
    using BackgroundKey = std::tuple<std::string, std::int64_t, std::int64_t, double>;
    using ShadowKey = std::tuple<std::vector<std::tuple<double, double, double, double, double>>, ShadowSpec>;
    /// The device (kind, width, height, pixels per point, window radius) and the piece; -1 is
    /// the phone's island.
    using FrameKey = std::tuple<int, double, double, double, double, int>;
    struct Side;

    static std::vector<Side> sides(const PreparedDraft& prepared, const FrameMoment& moment);
    Image background(const PreparedDraft& prepared, PixelSize size);
    Image bakedFill(const ImageBox& picture, const std::string& identity, PixelSize size, double blur);
    Image side(const PreparedDraft& prepared, const Side& side, double scale, PixelSize size, const Image& over);
    Image shadowed(const std::vector<RoundedOutline>& outlines, const ShadowSpec& spec, PixelSize size,
                   const Image& over);
    Image cornered(const Image& content, const CGRect& card, double radius, bool squareTop);
    Image framed(const Image& content, const DeviceGeometry& device, const CGRect& card);

    Wallpaper wallpaper_;
    BakedImageCache<BackgroundKey> backgrounds_;
    BakedImageCache<ShadowKey> shadows_;
    BakedImageCache<FrameKey> frames_;
};

} // namespace ovik
