#pragma once
// What the frames of a scene come out as: video without alpha, video that keeps it, or
// pictures (stills, filmstrips, canvases), which keep it.
namespace ovik {

enum class FrameColors { video, videoWithAlpha, pictures };

} // namespace ovik
