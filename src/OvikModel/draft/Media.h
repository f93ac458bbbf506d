#pragma once
// One source with its own placement on the canvas, and what is done to it there.
#include <optional>
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/draft/MediaSource.h"
#include "OvikModel/effects/EffectStack.h"
#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/objects/BlendMode.h"
#include "OvikModel/objects/ClipShape.h"
#include "OvikModel/values/Identifier.h"
#include "OvikPlatform/geometry/CGRect.h"

namespace ovik {

/// Where a media stands relative to its laid-out place. Every key may be absent on reading;
/// all are written.
struct Placement {
    CGVector offset;
    double scale = 1;
    double rotation = 0;

    bool operator==(const Placement&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("offset", &Placement::offset), writtenAlways("scale", &Placement::scale),
                          writtenAlways("rotation", &Placement::rotation)};
    }
};

struct Media {
    MediaID id;
    MediaSource source;
    std::optional<CGRect> crop;
    Placement placement;
    std::vector<Action> actions;
    bool motionBlur = false;
    std::optional<ClipShape> clip;
    std::optional<BlendMode> blend;
    EffectStack effects;
    std::optional<OpaqueJSON> cursorPath; // pending: CursorPath

    /// No clip, no blend and no effects: the picture is drawn as it is.
    bool isPlainPicture() const { return !clip && !blend && effects.isEmpty(); }

    bool operator==(const Media&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &Media::id),
                          required("source", &Media::source),
                          optional("crop", &Media::crop),
                          defaulted("placement", &Media::placement),
                          defaulted("actions", &Media::actions),
                          defaulted("motionBlur", &Media::motionBlur),
                          optional("clip", &Media::clip),
                          optional("blend", &Media::blend),
                          defaulted("effects", &Media::effects),
                          optional("cursorPath", &Media::cursorPath)};
    }
};

} // namespace ovik
