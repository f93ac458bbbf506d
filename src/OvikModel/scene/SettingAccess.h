#pragma once
// Accesses to draft settings that span records: the level of the recorded sound, and the
// switch and length that turn a screenshot into a short animation.
#include <memory>

#include "OvikModel/scene/PropertyAccess.h"

namespace ovik {

/// The recorded sound's volume or mute, set on the microphone and system tracks together; it
/// reads only while the two agree.
enum class AudioPart { volume, muted };
std::shared_ptr<const SectionAccess> audioAccess(AudioPart part);

/// Whether a screenshot plays as an animation, and its length in seconds (its first
/// section's still length). A recording has neither.
enum class ScreenshotAnimationPart { animated, duration };
std::shared_ptr<const SectionAccess> screenshotAnimationAccess(ScreenshotAnimationPart part);

} // namespace ovik
