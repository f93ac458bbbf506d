#include "OvikPlatform/image/GaussianBlur.h"

#include <cmath>

#include "OvikPlatform/image/DoublingNode.h"
#include "OvikPlatform/image/HalvingNode.h"
#include "OvikPlatform/image/ImageError.h"
#include "OvikPlatform/image/SeparableBlurNode.h"

namespace ovik {

std::vector<float> GaussianBlur::weights(double sigma) {
    const auto radius = std::int64_t(std::ceil(4 * sigma));
    std::vector<double> raw;
    double sum = 0;
    for (std::int64_t k = -radius; k <= radius; ++k) {
        raw.push_back(std::exp(-double(k * k) / (2 * sigma * sigma)));
        sum += raw.back();
    }
    std::vector<float> normalised;
    for (double w : raw) normalised.push_back(float(w / sum));
    return normalised;
}

int GaussianBlur::halvings(double sigma) { return sigma < pyramidFrom ? 0 : int(std::floor(std::log2(sigma / 3))); }

Image GaussianBlur::apply(const Image& image, double sigma) {
    if (!(sigma >= 0 && sigma <= largestSigma))
        throw ImageError::invalidParameter("Gaussian blur",
                                           "sigma must lie within 0..." + std::to_string(int(largestSigma)));
    if (sigma == 0 || image.isEmpty()) return image;
    const int levels = halvings(sigma);
    ImageNode::Input node = image.node();
    for (int i = 0; i < levels; ++i) node = std::make_shared<HalvingNode>(node);
    const double scale = std::ldexp(1.0, levels);
    const double added = (scale * scale - 1) / 2;
    const double smallSigma = std::sqrt(sigma * sigma - added) / scale;
    node = SeparableBlurNode::bothAxes(Image(node), weights(smallSigma)).node();
    for (int i = 0; i < levels; ++i) node = std::make_shared<DoublingNode>(node);
    return Image(node);
}

} // namespace ovik
