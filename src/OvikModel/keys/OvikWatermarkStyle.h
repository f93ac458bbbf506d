#pragma once
// The five looks of the product's own mark; the first is the standard one.
#include "OvikPlatform/Enumeration.h"

namespace ovik {

enum class OvikWatermarkStyle { trailPill, sticker, postmark, peek, credit };

constexpr auto enumCases(OvikWatermarkStyle*) {
    return EnumCases<OvikWatermarkStyle, 5>{"OvikWatermarkStyle",
                                            {{OvikWatermarkStyle::trailPill, "trailPill"},
                                             {OvikWatermarkStyle::sticker, "sticker"},
                                             {OvikWatermarkStyle::postmark, "postmark"},
                                             {OvikWatermarkStyle::peek, "peek"},
                                             {OvikWatermarkStyle::credit, "credit"}}};
}

} // namespace ovik
