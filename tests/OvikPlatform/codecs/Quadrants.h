#pragma once
// Pictures of four coloured quadrants, the pattern the decoder tests read back: red, green
// over blue, white.
#include <cstdlib>
#include <string>

#include "OvikPlatform/media/FFmpegTool.h"
#include "OvikPlatform/media/PictureDifference.h"
#include "OvikPlatform/media/TestMovies.h"

namespace ovik::testing {

constexpr RGBA red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255}, white{255, 255, 255, 255};

/// The colour of pixel (x, y) of a `width` × `height` picture of the quadrants.
inline RGBA quadrantColour(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
    return y < height / 2 ? (x < width / 2 ? red : green) : (x < width / 2 ? blue : white);
}

/// The quadrants drawn by ffmpeg into `name` in the test movies' folder, with output `options`.
inline std::string quadrantsByFFmpeg(const std::string& name, std::int64_t width, std::int64_t height,
                                     const std::string& options = "") {
    const std::filesystem::path path = TestMovies::folder() / name;
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    EXPECT_TRUE(runFFmpeg("-f lavfi -i \"color=c=red:s=" + size + ",format=rgb24," +
                          "drawbox=x=iw/2:y=0:w=iw/2:h=ih/2:color=lime:t=fill," +
                          "drawbox=x=0:y=ih/2:w=iw/2:h=ih/2:color=blue:t=fill," +
                          "drawbox=x=iw/2:y=ih/2:w=iw/2:h=ih/2:color=white:t=fill\" -frames:v 1 " + options + " " +
                          path.string()));
    return fileBytes(path);
}

/// The worst channel error over the inner part of each quadrant, away from edges that lossy
/// coding or reduction blurs.
inline int quadrantError(const CGImage& image, RGBA topLeft, RGBA topRight, RGBA bottomLeft, RGBA bottomRight) {
    const std::int64_t w = image.width(), h = image.height();
    int worst = 0;
    for (std::int64_t y = 0; y < h; ++y)
        for (std::int64_t x = 0; x < w; ++x) {
            const bool nearEdge = std::abs(2 * x + 1 - w) < w / 4 || std::abs(2 * y + 1 - h) < h / 4 || x < 2 ||
                                  y < 2 || x >= w - 2 || y >= h - 2;
            if (nearEdge) continue;
            const RGBA expected = y < h / 2 ? (x < w / 2 ? topLeft : topRight) : (x < w / 2 ? bottomLeft : bottomRight);
            worst = std::max(worst, channelError(pixelAt(image, x, y), expected));
        }
    return worst;
}

} // namespace ovik::testing
