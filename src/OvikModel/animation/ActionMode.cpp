#include "OvikModel/animation/ActionMode.h"

#include "OvikL10n/L10n.h"

namespace ovik {

std::vector<ActionValue> ActionMode::values() const {
    if (const auto* t = std::get_if<to>(&cases)) {
        if (t->from) return {*t->from, t->to};
        return {t->to};
    }
    if (const auto* o = std::get_if<oscillate>(&cases)) return {o->amplitude};
    if (const auto* n = std::get_if<noise>(&cases)) return {n->amplitude};
    if (const auto* c = std::get_if<continuous>(&cases)) return {c->rate};
    return {};
}

std::string ActionMode::title(Kind kind) {
    switch (kind) {
    case Kind::to: return L10n::text("model.action.mode.to");
    case Kind::oscillate: return L10n::text("model.action.mode.oscillate");
    case Kind::noise: return L10n::text("model.action.mode.noise");
    case Kind::continuous: return L10n::text("model.action.mode.continuous");
    case Kind::alongPath: return L10n::text("model.action.mode.alongPath");
    }
    return {};
}

} // namespace ovik
