#pragma once
// One export as asked for: a format, a size and the options of that format. Optional fields
// are left out of the JSON when absent, `transparent` when false.
#include <cstdint>
#include <optional>
#include <string>

#include "OvikModel/keys/ExportDestination.h"
#include "OvikModel/keys/ExportSize.h"
#include "OvikModel/values/ExportFormatID.h"
#include "OvikModel/values/TimeRange.h"

namespace ovik {

struct ExportRequest {
    ExportFormatID format;
    ExportSize size;
    std::optional<std::int64_t> frameRate;
    std::optional<double> quality;
    std::optional<std::string> destinationFolderPath;
    std::optional<OutputRange> range;
    std::optional<ExportDestination> destination;
    bool transparent = false;
    std::optional<std::string> watermark;

    bool operator==(const ExportRequest&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple{required("format", &ExportRequest::format),
                          required("size", &ExportRequest::size),
                          optional("frameRate", &ExportRequest::frameRate),
                          optional("quality", &ExportRequest::quality),
                          optional("destinationFolderPath", &ExportRequest::destinationFolderPath),
                          optional("range", &ExportRequest::range),
                          optional("destination", &ExportRequest::destination),
                          defaulted("transparent", &ExportRequest::transparent),
                          optional("watermark", &ExportRequest::watermark)};
    }
};

} // namespace ovik
