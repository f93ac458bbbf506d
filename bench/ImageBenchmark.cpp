// One 1920×1080 frame as the compositor builds it: a gradient background and its blur, a
// 1920×1080 capture shrunk to 80% (Lanczos) with rounded corners and a shadow, rendered to an
// 8-bit bitmap. The baseline is the floor of any render: one plain pass that turns the same
// number of float pixels into 8-bit ones.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "OvikPlatform/image/CGImage.h"
#include "OvikPlatform/image/FilterInputs.h"
#include "OvikPlatform/image/Image.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageRegistry.h"
#include "OvikPlatform/image/RenderContext.h"

namespace {

using namespace ovik;

constexpr std::int64_t width = 1920, height = 1080;
const CGRect canvas{{0, 0}, {double(width), double(height)}};

// A capture-like picture: soft diagonal bands with a fine grid over them.
std::shared_ptr<const CGImage> capture() {
    std::vector<std::uint8_t> rgba(std::size_t(4 * width * height));
    for (std::int64_t y = 0; y < height; ++y)
        for (std::int64_t x = 0; x < width; ++x) {
            std::uint8_t* p = rgba.data() + 4 * (y * width + x);
            const bool grid = x % 64 == 0 || y % 64 == 0;
            p[0] = grid ? 255 : std::uint8_t((x + y) / 12);
            p[1] = grid ? 255 : std::uint8_t(x / 8);
            p[2] = grid ? 255 : std::uint8_t(255 - y / 5);
            p[3] = 255;
        }
    return std::make_shared<const CGImage>(width, height, 4 * width, std::move(rgba));
}

Image filter(const std::string& name, const FilterInputs& inputs) {
    return ImageRegistry::shared().applyFilter(name, inputs);
}

Image frame(const Image& picture) {
    const Image background = filter("CILinearGradient", {{"inputPoint0", CGPoint{0, 0}},
                                                         {"inputPoint1", CGPoint{double(width), double(height)}},
                                                         {"inputColor0", ImageColor{0.15, 0.25, 0.55, 1}},
                                                         {"inputColor1", ImageColor{0.85, 0.45, 0.3, 1}}})
                                 .cropped(canvas);
    const Image soft = background.clampedToExtent().applyingGaussianBlur(30).cropped(canvas);
    const Image shrunk =
        picture.transformed(CGAffineTransform::scale(0.8, 0.8).concatenating(CGAffineTransform::translation(192, 108)),
                            ImageSampler::lanczos);
    const CGRect card = shrunk.extent();
    const Image shadow = filter("blurredRoundedRectangleGenerator", {{"inputExtent", card},
                                                                     {"inputRadius", 24.0},
                                                                     {"inputSigma", 24.0},
                                                                     {"inputColor", ImageColor{1, 1, 1, 0.4}}})
                             .transformed(CGAffineTransform::translation(0, -12));
    const Image shaded =
        Image::fromColor(ImageColor::black())
            .applyingFilter("CIBlendWithRedMask", {{"inputBackgroundImage", soft}, {"inputMaskImage", shadow}});
    const Image corners = filter("roundedRectangleGenerator",
                                 {{"inputExtent", card}, {"inputRadius", 24.0}, {"inputColor", ImageColor::white()}});
    const Image cut =
        shrunk.applyingFilter("CIBlendWithRedMask", {{"inputBackgroundImage", Image()}, {"inputMaskImage", corners}});
    return cut.composited(shaded);
}

const Image& sampleFrame() {
    static const Image image = frame(Image::fromCGImage(capture()));
    return image;
}

void BaselineConvertPixels(benchmark::State& state) {
    const std::vector<float> working(std::size_t(4 * width * height), 0.5f);
    std::vector<std::uint8_t> out(working.size());
    for (auto _ : state) {
        std::transform(working.begin(), working.end(), out.begin(),
                       [](float v) { return std::uint8_t(std::clamp(v, 0.0f, 1.0f) * 255.0f + 0.5f); });
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
}

void render(benchmark::State& state, const RenderContext& context) {
    const Image& image = sampleFrame();
    double seconds = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(context.createCGImage(image, canvas));
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    state.counters["ms/frame"] = 1e3 * seconds / double(state.iterations());
    state.counters["threads"] = context.threadCount();
}

void RenderFrame(benchmark::State& state) { render(state, RenderContext::shared()); }

void RenderFrameOneThread(benchmark::State& state) {
    const RenderContext alone(1);
    render(state, alone);
}

// A blur of sigma 30 alone, over the clamped capture: halved three times, blurred, doubled back.
void RenderBlurSigma30(benchmark::State& state) {
    const Image picture = Image::fromCGImage(capture()).clampedToExtent().applyingGaussianBlur(30).cropped(canvas);
    for (auto _ : state) benchmark::DoNotOptimize(RenderContext::shared().createCGImage(picture, canvas));
    state.counters["threads"] = RenderContext::shared().threadCount();
}

} // namespace

BENCHMARK(BaselineConvertPixels)->Unit(benchmark::kMillisecond);
BENCHMARK(RenderFrame)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RenderFrameOneThread)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RenderBlurSigma30)->Unit(benchmark::kMillisecond)->UseRealTime();
