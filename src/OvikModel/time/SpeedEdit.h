#pragma once
// The rate and freeze edits in the form that undo keeps: each case names its edit and its
// arguments, and is applied to a draft as one step.
#include <string>
#include <variant>

#include "OvikModel/Draft.h"
#include "OvikModel/time/AnchoredTime.h"
#include "OvikPlatform/Enumeration.h"

namespace ovik {

struct SpeedEdit : Enumeration<SpeedEdit> {
    struct setClipRate {
        static constexpr std::string_view name = "setClipRate";
        SourceRange range;
        SectionID section;
        double rate = 1;
    };
    struct setRangeRate {
        static constexpr std::string_view name = "setRangeRate";
        OutputRange range;
        double rate = 1;
    };
    struct freeze {
        static constexpr std::string_view name = "freeze";
        OutputTime at;
        MediaDuration length;
    };
    struct setFreezeLength {
        static constexpr std::string_view name = "setFreezeLength";
        AnchoredTime at;
        MediaDuration length;
    };
    struct removeFreeze {
        static constexpr std::string_view name = "removeFreeze";
        AnchoredTime at;
    };
    std::variant<setClipRate, setRangeRate, freeze, setFreezeLength, removeFreeze> cases;

    /// Applies the edit; throws `TimeEditError` and leaves the draft as it was when refused.
    void apply(Draft& draft) const;
    /// The name of the step in the undo menu.
    std::string undoName() const;
};

} // namespace ovik
