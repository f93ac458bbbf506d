#include "OvikModel/time/SpeedEdit.h"

#include "OvikL10n/L10n.h"
#include "OvikModel/time/DraftRetiming.h"

namespace ovik {

void SpeedEdit::apply(Draft& draft) const {
    struct Apply {
        Draft& draft;
        void operator()(const setClipRate& e) const { setRate(draft, e.rate, e.range, e.section); }
        void operator()(const setRangeRate& e) const { setRate(draft, e.rate, e.range); }
        void operator()(const freeze& e) const { ovik::freeze(draft, e.at, e.length); }
        void operator()(const setFreezeLength& e) const { ovik::setFreezeLength(draft, e.length, e.at); }
        void operator()(const removeFreeze& e) const { ovik::removeFreeze(draft, e.at); }
    };
    std::visit(Apply{draft}, cases);
}

std::string SpeedEdit::undoName() const {
    return L10n::text(is<setFreezeLength>() ? "model.speed.undo.freezeDuration" : "model.speed.undo.change");
}

} // namespace ovik
