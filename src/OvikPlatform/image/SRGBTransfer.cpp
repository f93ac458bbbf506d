#include "OvikPlatform/image/SRGBTransfer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <mutex>
#include <vector>

namespace ovik {
namespace {

template <class Code>
Code alphaCode(float alpha, double scale) {
    return Code(std::lround(std::clamp(std::isnan(alpha) ? 0.0 : double(alpha), 0.0, 1.0) * scale));
}

// The straight colour, encoded, times the alpha as stored.
template <class Code>
Code colorCode(float component, float alpha, Code storedAlpha) {
    const float straight = component / alpha;
    if (!(straight > 0)) return 0;
    return Code(std::lround(SRGBTransfer::toEncoded(std::min(double(straight), 1.0)) * storedAlpha));
}

// Working values of every stored (component, alpha) pair, indexed alpha × 256 + component.
// A row is worked out the first time a pixel of its alpha is read: most pictures are opaque,
// and a whole table costs 65,536 powers.
struct DecodeTable {
    std::vector<float> values = std::vector<float>(256 * 256);
    std::array<std::once_flag, 256> made;

    const float* row(std::uint8_t a) {
        std::call_once(made[a], [this, a] {
            for (int c = 0; c < 256; ++c) {
                const int held = std::min<int>(c, a);
                values[std::size_t(a * 256 + c)] = a == 0 ? 0 : float(SRGBTransfer::toLinear(double(held) / a) * (a / 255.0));
            }
        });
        return values.data() + std::size_t(a) * 256;
    }
};

DecodeTable& decodeTable() {
    static DecodeTable table;
    return table;
}

int exactCode(float linear) {
    return int(std::lround(SRGBTransfer::toEncoded(std::clamp(double(linear), 0.0, 1.0)) * 255));
}

// Opaque encoding by comparison: thresholds[v] is the least float whose code is at least v,
// found by bisection over the ordered bit patterns of non-negative floats; a coarse index by
// value says where to start looking.
struct EncodeTables {
    static constexpr int buckets = 4096;
    std::array<float, 257> thresholds{};
    std::array<std::uint8_t, buckets> start{};

    EncodeTables() {
        thresholds[0] = 0;
        thresholds[256] = INFINITY;
        for (int v = 1; v < 256; ++v) thresholds[std::size_t(v)] = leastWithCode(v);
        // A value's code is the last whose threshold it reaches.
        int code = 0;
        for (int i = 0; i < buckets; ++i) {
            while (float(i) / buckets >= thresholds[std::size_t(code + 1)]) ++code;
            start[std::size_t(i)] = std::uint8_t(code);
        }
    }

    // From the curve's own inverse at the code's lower half step, then float by float to the
    // exact edge: a few powers where a bisection takes thirty.
    static float leastWithCode(int v) {
        float guess = float(SRGBTransfer::toLinear((v - 0.5) / 255));
        const auto below = [](float f) { return std::bit_cast<float>(std::bit_cast<std::uint32_t>(f) - 1); };
        const auto above = [](float f) { return std::bit_cast<float>(std::bit_cast<std::uint32_t>(f) + 1); };
        while (guess > 0 && exactCode(below(guess)) >= v) guess = below(guess);
        while (exactCode(guess) < v) guess = above(guess);
        return guess;
    }
};

const EncodeTables& encodeTables() {
    static const EncodeTables tables;
    return tables;
}

} // namespace

double SRGBTransfer::toLinear(double encoded) {
    const double magnitude = std::fabs(encoded);
    const double linear = magnitude <= 0.04045 ? magnitude / 12.92 : std::pow((magnitude + 0.055) / 1.055, 2.4);
    return std::copysign(linear, encoded);
}

double SRGBTransfer::toEncoded(double linear) {
    const double magnitude = std::fabs(linear);
    const double encoded = magnitude <= 0.0031308 ? magnitude * 12.92 : 1.055 * std::pow(magnitude, 1 / 2.4) - 0.055;
    return std::copysign(encoded, linear);
}

Pixel SRGBTransfer::decode8(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a) {
    const float* row = decodeTable().row(a);
    return {row[r], row[g], row[b], float(a) / 255.0f};
}

std::uint8_t SRGBTransfer::encodeOpaque8(float linear) {
    if (!(linear > 0)) return 0;
    if (linear >= 1) return 255;
    const EncodeTables& tables = encodeTables();
    int code = tables.start[std::size_t(linear * EncodeTables::buckets)];
    while (linear >= tables.thresholds[std::size_t(code + 1)]) ++code;
    return std::uint8_t(code);
}

void SRGBTransfer::encode8(const Pixel& p, std::uint8_t* rgba) {
    // Opaque pixels, nearly all of a frame, take the table rather than the curve.
    if (p.a == 1) {
        rgba[0] = encodeOpaque8(p.r), rgba[1] = encodeOpaque8(p.g), rgba[2] = encodeOpaque8(p.b), rgba[3] = 255;
        return;
    }
    const auto alpha = alphaCode<std::uint8_t>(p.a, 255);
    const float components[] = {p.r, p.g, p.b};
    for (int i = 0; i < 3; ++i)
        rgba[i] = alpha == 255 ? encodeOpaque8(components[i] / p.a) : colorCode(components[i], p.a, alpha);
    rgba[3] = alpha;
}

void SRGBTransfer::encodeRow8(const Pixel* pixels, std::int64_t count, std::uint8_t* rgba) {
    for (std::int64_t x = 0; x < count; ++x) encode8(pixels[x], rgba + 4 * x);
}

void SRGBTransfer::encode16(const Pixel& p, std::uint16_t* rgba) {
    const auto alpha = alphaCode<std::uint16_t>(p.a, 65535);
    const float components[] = {p.r, p.g, p.b};
    for (int i = 0; i < 3; ++i) rgba[i] = colorCode(components[i], p.a, alpha);
    rgba[3] = alpha;
}

} // namespace ovik
