#pragma once
// The size an export asks for. JSON form: tagged, {"shortSide": 1080},
// {"custom": {"height": 320, "width": 320}} or "original".
#include <cstdint>
#include <variant>

#include "OvikModel/values/PixelSize.h"

namespace ovik {

struct ExportSize : Enumeration<ExportSize> {
    struct shortSide {
        static constexpr std::string_view name = "shortSide";
        std::int64_t value;
        bool operator==(const shortSide&) const = default;
    };
    struct custom {
        static constexpr std::string_view name = "custom";
        PixelSize value;
        bool operator==(const custom&) const = default;
    };
    struct original {
        static constexpr std::string_view name = "original";
        bool operator==(const original&) const = default;
    };
    std::variant<shortSide, custom, original> cases;

    static ExportSize makeShortSide(std::int64_t pixels) { return ExportSize{{}, shortSide{pixels}}; }
    static ExportSize makeCustom(PixelSize size) { return ExportSize{{}, custom{size}}; }
    static ExportSize makeOriginal() { return ExportSize{{}, original{}}; }

    bool operator==(const ExportSize&) const = default;
};

} // namespace ovik
