#include <gtest/gtest.h>

#include "ImageTestSupport.h"
#include "OvikPlatform/image/ImageColor.h"
#include "OvikPlatform/image/ImageNode.h"

namespace ovik {
namespace {

// A neighbourhood operation in miniature: materialized, so finished in a pass of its own, and
// asking for `margin` pixels round what it makes.
class MarginNode final : public ImageNode {
public:
    MarginNode(Input input, std::int64_t margin) : ImageNode(input->extent(), {input}), margin_(margin) {}
    bool isMaterialized() const override { return true; }
    PixelRect inputRegion(std::size_t, const PixelRect& output) const override {
        return output.grown(margin_, margin_);
    }
    void render(const PixelTile& output, NodeInputs& inputs) const override {
        const PixelTile source = inputs.fetch(0, output.rect());
        for (std::int64_t y = output.rect().y; y < output.rect().maxY(); ++y)
            std::copy_n(source.row(y), output.rect().width, output.row(y));
    }

private:
    std::int64_t margin_;
};

TEST(RenderWork, PassesAndPixelsOfARender) {
    const Image red = Image::fromColor(ImageColor{1, 0, 0, 1});
    // Over a 10 × 10 render the outer pass covers 100 pixels and asks the inner one for 2 more
    // on each side (14 × 14); the last pass delivers the 100.
    const Image inner(std::make_shared<MarginNode>(red.node(), 1));
    const Image outer(std::make_shared<MarginNode>(inner.node(), 2));
    struct Case {
        const char* what;
        Image image;
        CGRect rect;
        RenderWork expected;
    };
    const Case cases[] = {
        {"a colour alone", red, {{0, 0}, {10, 10}}, {1, 100}},
        {"a fractional rectangle covers whole pixels", red, {{0.5, 0.5}, {2, 2}}, {1, 9}},
        {"two passes before the last", outer, {{0, 0}, {10, 10}}, {3, 196 + 100 + 100}},
    };
    for (const Case& c : cases) {
        RenderWork work;
        test::context().createCGImage(c.image, c.rect, &work);
        EXPECT_EQ(work, c.expected) << c.what << ": " << work.passCount << " passes, " << work.pixelsProcessed;
    }
}

} // namespace
} // namespace ovik
