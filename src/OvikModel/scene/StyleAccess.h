#pragma once
// Accesses to the draft's style in the property language: the background as a word, a colour,
// a gradient or a picture in the package; the aspect as "16:9"; the crop of a one-capture
// draft; the switch that pauses styling; and the motion blur, as a preset and its two details.
#include <memory>

#include "OvikModel/scene/PropertyAccess.h"

namespace ovik {

/// "none", "wallpaper", "#RRGGBB", a gradient preset's name, {"from", "to", "angle"} for any
/// other gradient, or "image" for a picture (which `backgroundImageAccess` chooses).
std::shared_ptr<const SectionAccess> backgroundAccess();
/// The package path of the background picture, or "none".
std::shared_ptr<const SectionAccess> backgroundImageAccess();
/// "free", or "width:height" in whole numbers.
std::shared_ptr<const SectionAccess> aspectAccess();
/// The primary capture's crop as [x, y, width, height] in points, or "none".
std::shared_ptr<const SectionAccess> cropAccess();
/// On when every section of the style is switched off; the values stay stored.
std::shared_ptr<const SectionAccess> stylePausedAccess();

/// The preset word ("off", "natural", "strong", "on"), the shutter angle, or the quality.
enum class MotionBlurPart { preset, shutter, quality };
std::shared_ptr<const SectionAccess> motionBlurAccess(MotionBlurPart part);

} // namespace ovik
