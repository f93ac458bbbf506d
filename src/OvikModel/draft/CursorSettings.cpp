#include "OvikModel/draft/CursorSettings.h"

namespace ovik {

CursorSettings CursorSettings::newRecording() {
    CursorSettings settings;
    settings.size = 1.5;
    settings.look = CursorLook::pointer;
    settings.clickEffect = ClickEffect::ripple;
    settings.clickColor = RGBA{1.0, 0.35294, 0.21176, 1.0};
    settings.hidesWhenIdle = true;
    return settings;
}

CursorSettings CursorSettings::drawn() const {
    const CursorSettings base = plain();
    if (isStylingOff) {
        CursorSettings out = base;
        out.isShown = isShown;
        return out;
    }
    CursorSettings out = *this;
    if (look != CursorLook::pointer) {
        out.pointerColor = base.pointerColor;
        out.turnsWithMotion = base.turnsWithMotion;
    }
    return out;
}

} // namespace ovik
