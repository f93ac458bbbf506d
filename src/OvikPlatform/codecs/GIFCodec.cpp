#include "OvikPlatform/codecs/GIFCodec.h"

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "OvikPlatform/codecs/ImageCodecError.h"
#include "OvikPlatform/codecs/ImageLimits.h"

namespace ovik::GIFCodec {
namespace {

struct MemoryInput {
    std::string_view bytes;
    std::size_t at = 0;
};

int readInput(GifFileType* gif, GifByteType* out, int length) {
    auto* input = static_cast<MemoryInput*>(gif->UserData);
    const std::size_t count = std::min(std::size_t(std::max(length, 0)), input->bytes.size() - input->at);
    std::memcpy(out, input->bytes.data() + input->at, count);
    input->at += count;
    return int(count);
}

// Interlaced rows arrive in four passes: every 8th from 0, every 8th from 4, every 4th from 2,
// every 2nd from 1.
std::vector<int> rowOrder(int height, bool interlaced) {
    std::vector<int> rows;
    rows.reserve(std::size_t(height));
    if (!interlaced) {
        for (int y = 0; y < height; ++y) rows.push_back(y);
        return rows;
    }
    constexpr int starts[] = {0, 4, 2, 1}, steps[] = {8, 8, 4, 2};
    for (int pass = 0; pass < 4; ++pass)
        for (int y = starts[pass]; y < height; y += steps[pass]) rows.push_back(y);
    return rows;
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : input_{bytes} {
        if (!hasSignature(bytes)) throw ImageCodecError("Not a GIF file");
        int error = 0;
        gif_ = DGifOpen(&input_, readInput, &error);
        if (!gif_) throw ImageCodecError(std::string("Unreadable GIF header: ") + GifErrorString(error));
    }
    ~Reader() {
        int error = 0;
        DGifCloseFile(gif_, &error);
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    const GifFileType& file() const { return *gif_; }

    // Reads records up to the first image's descriptor; returns the transparent colour index
    // that a graphic control block gave it, or -1.
    int skipToFirstImage() {
        int transparent = NO_TRANSPARENT_COLOR;
        for (;;) {
            GifRecordType type = UNDEFINED_RECORD_TYPE;
            succeed(DGifGetRecordType(gif_, &type));
            if (type == IMAGE_DESC_RECORD_TYPE) {
                succeed(DGifGetImageDesc(gif_));
                return transparent;
            }
            if (type == TERMINATE_RECORD_TYPE) throw ImageCodecError("GIF without a picture");
            if (type == EXTENSION_RECORD_TYPE) transparent = readExtension(transparent);
        }
    }

    void readLine(std::vector<GifPixelType>& line) { succeed(DGifGetLine(gif_, line.data(), int(line.size()))); }

private:
    int readExtension(int transparent) {
        int code = 0;
        GifByteType* block = nullptr;
        succeed(DGifGetExtension(gif_, &code, &block));
        GraphicsControlBlock control;
        if (code == GRAPHICS_EXT_FUNC_CODE && block && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
            transparent = control.TransparentColor;
        while (block) succeed(DGifGetExtensionNext(gif_, &block));
        return transparent;
    }

    void succeed(int result) const {
        if (result == GIF_ERROR) throw ImageCodecError(std::string("Damaged GIF data: ") + GifErrorString(gif_->Error));
    }

    MemoryInput input_;
    GifFileType* gif_ = nullptr;
};

} // namespace

bool hasSignature(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, 6);
    return head == "GIF87a" || head == "GIF89a";
}

CGImage decode(std::string_view bytes) {
    Reader reader(bytes);
    const std::int64_t width = reader.file().SWidth, height = reader.file().SHeight;
    ImageLimits::require(width, height, "GIF");
    const int transparent = reader.skipToFirstImage();
    const GifImageDesc& frame = reader.file().Image;
    ImageLimits::require(frame.Width, frame.Height, "GIF frame");
    const ColorMapObject* colours = frame.ColorMap ? frame.ColorMap : reader.file().SColorMap;
    if (!colours) throw ImageCodecError("GIF without colours");

    // The screen starts clear; the frame is drawn where it stands, clipped to the screen.
    std::vector<std::uint8_t> pixels(std::size_t(width * height * 4), 0);
    std::vector<GifPixelType> line(std::size_t(frame.Width));
    for (const int row : rowOrder(frame.Height, frame.Interlace)) {
        reader.readLine(line);
        const std::int64_t y = std::int64_t(frame.Top) + row;
        if (y < 0 || y >= height) continue;
        for (std::int64_t x = 0; x < frame.Width; ++x) {
            const std::int64_t screenX = frame.Left + x;
            const int index = line[std::size_t(x)];
            if (screenX < 0 || screenX >= width || index == transparent || index >= colours->ColorCount) continue;
            const GifColorType colour = colours->Colors[index];
            std::uint8_t* p = &pixels[std::size_t((y * width + screenX) * 4)];
            p[0] = colour.Red, p[1] = colour.Green, p[2] = colour.Blue, p[3] = 255;
        }
    }
    return CGImage(width, height, width * 4, std::move(pixels));
}

ImageProperties properties(std::string_view bytes) {
    const Reader reader(bytes);
    return {reader.file().SWidth, reader.file().SHeight};
}

} // namespace ovik::GIFCodec
