#pragma once
// What a render key says was asked for: the parts of an `ExportRequest` that change the
// output. Where it lands (folder, destination) doesn't; a watermark enters through
// `RenderKey::adding`. `transparent` is written only when true, so false and absent agree.
#include <cstdint>
#include <optional>

#include "OvikModel/keys/ExportRequest.h"

namespace ovik {

struct DraftOutput {
    ExportFormatID format;
    ExportSize size;
    std::optional<std::int64_t> frameRate;
    std::optional<double> quality;
    std::optional<OutputRange> range;
    std::optional<bool> transparent;

    static DraftOutput of(const ExportRequest& request) {
        return DraftOutput{request.format, request.size, request.frameRate, request.quality, request.range,
                           request.transparent ? std::optional(true) : std::nullopt};
    }

    bool operator==(const DraftOutput&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("format", &DraftOutput::format), required("size", &DraftOutput::size),
                          optional("frameRate", &DraftOutput::frameRate), optional("quality", &DraftOutput::quality),
                          optional("range", &DraftOutput::range), optional("transparent", &DraftOutput::transparent)};
    }
};

} // namespace ovik
