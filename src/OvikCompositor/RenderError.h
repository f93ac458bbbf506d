#pragma once
// The failures of making pictures, and the one exception that carries them. what() is the
// message a person reads.
#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>

#include "OvikModel/draft/DraftKind.h"
#include "OvikModel/values/ExportFormatID.h"
#include "OvikPlatform/Enumeration.h"
#include "OvikPlatform/Error.h"

namespace ovik {

struct RenderError : Enumeration<RenderError> {
    /// A picture asked of a draft kind that has none in that format.
    struct unsupported {
        static constexpr std::string_view name = "unsupported";
        ExportFormatID format;
        DraftKind kind = DraftKind::screenshot;
        bool operator==(const unsupported&) const = default;
    };
    struct diskSpaceLow {
        static constexpr std::string_view name = "diskSpaceLow";
        std::int64_t neededBytes = 0;
        std::int64_t availableBytes = 0;
        bool operator==(const diskSpaceLow&) const = default;
    };
    /// A media file or a package picture can't be read; the text says which and why.
    struct sourceUnreadable {
        static constexpr std::string_view name = "sourceUnreadable";
        std::string value;
        bool operator==(const sourceUnreadable&) const = default;
    };
    /// An encoder, the making of a picture or a generator failed.
    struct failed {
        static constexpr std::string_view name = "failed";
        std::string value;
        bool operator==(const failed&) const = default;
    };
    struct cancelled {
        static constexpr std::string_view name = "cancelled";
        bool operator==(const cancelled&) const = default;
    };
    std::variant<unsupported, diskSpaceLow, sourceUnreadable, failed, cancelled> cases;

    /// Whether trying again may succeed: only a cancelled render.
    bool isTransient() const { return is<cancelled>(); }
    std::string localizedDescription() const;

    bool operator==(const RenderError&) const = default;
};

class RenderFailure : public Error {
public:
    template <class Case>
        requires std::is_constructible_v<decltype(RenderError::cases), Case>
    explicit RenderFailure(Case c) : RenderFailure(RenderError{{}, std::move(c)}) {}
    explicit RenderFailure(RenderError error);

    const RenderError& error() const { return error_; }

private:
    RenderError error_;
};

} // namespace ovik
