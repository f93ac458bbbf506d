#pragma once
// How an object's picture is laid over what lies below it. The order of the cases is the
// compositing kernel's mode number, so new cases go at the end.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class BlendMode {
    normal,
    multiply,
    screen,
    overlay,
    darken,
    lighten,
    colorDodge,
    colorBurn,
    softLight,
    hardLight,
    difference,
    exclusion,
    hue,
    saturation,
    color,
    luminosity,
    add
};

constexpr auto enumCases(BlendMode*) {
    using enum BlendMode;
    return EnumCases<BlendMode, 17>{"BlendMode",
                                    {{normal, "normal"},
                                     {multiply, "multiply"},
                                     {screen, "screen"},
                                     {overlay, "overlay"},
                                     {darken, "darken"},
                                     {lighten, "lighten"},
                                     {colorDodge, "colorDodge"},
                                     {colorBurn, "colorBurn"},
                                     {softLight, "softLight"},
                                     {hardLight, "hardLight"},
                                     {difference, "difference"},
                                     {exclusion, "exclusion"},
                                     {hue, "hue"},
                                     {saturation, "saturation"},
                                     {color, "color"},
                                     {luminosity, "luminosity"},
                                     {add, "add"}}};
}

/// The kernel's mode number: the case's place in the list.
constexpr int wire(BlendMode mode) { return static_cast<int>(mode); }

} // namespace ovik
