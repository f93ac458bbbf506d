#pragma once
// How the pointer is drawn over a recording. Every key may be absent on reading; all are
// written, the click colour only when set. A default-made value is `plain`.
#include <optional>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/RGBA.h"

namespace ovik {

enum class CursorLook { arrow, pointer, dot };
enum class ClickEffect { none, ripple, glow, press };

constexpr auto enumCases(CursorLook*) {
    return EnumCases<CursorLook, 3>{
        "CursorLook", {{CursorLook::arrow, "arrow"}, {CursorLook::pointer, "pointer"}, {CursorLook::dot, "dot"}}};
}

constexpr auto enumCases(ClickEffect*) {
    return EnumCases<ClickEffect, 4>{"ClickEffect",
                                     {{ClickEffect::none, "none"},
                                      {ClickEffect::ripple, "ripple"},
                                      {ClickEffect::glow, "glow"},
                                      {ClickEffect::press, "press"}}};
}

struct PointerPalette {
    /// The pointer's own colour.
    static constexpr RGBA standard{1.0, 0.47843, 0.10196, 1.0};
};

struct CursorSettings {

    bool isShown = true;
    double size = 1.0;
    CursorLook look = CursorLook::arrow;
    double smoothing = 0;
    bool turnsWithMotion = true;
    RGBA pointerColor = PointerPalette::standard;
    ClickEffect clickEffect = ClickEffect::none;
    std::optional<RGBA> clickColor;
    bool hidesWhenIdle = false;
    bool isStylingOff = false;

    /// The pointer as it was recorded.
    static CursorSettings plain() { return CursorSettings{}; }
    /// What a new recording starts with.
    static CursorSettings newRecording();

    /// What painting reads: with styling off everything but `isShown` is plain; otherwise the
    /// settings that only the `pointer` look uses are plain for the other looks.
    CursorSettings drawn() const;

    bool operator==(const CursorSettings&) const = default;
    static constexpr auto jsonFields() {
        using C = CursorSettings;
        return std::tuple{writtenAlways("isShown", &C::isShown),
                          writtenAlways("size", &C::size),
                          writtenAlways("look", &C::look),
                          writtenAlways("smoothing", &C::smoothing),
                          writtenAlways("turnsWithMotion", &C::turnsWithMotion),
                          writtenAlways("pointerColor", &C::pointerColor),
                          writtenAlways("clickEffect", &C::clickEffect),
                          optional("clickColor", &C::clickColor),
                          writtenAlways("hidesWhenIdle", &C::hidesWhenIdle),
                          writtenAlways("isStylingOff", &C::isStylingOff)};
    }
};

} // namespace ovik
