#pragma once
// What the objects, media, lens and look of a draft are at a moment of the film. An object's
// own clock (a snippet's), drivers and becoming are not applied here yet.
#include <memory>
#include <optional>
#include <vector>

#include "OvikModel/animation/ObjectMotion.h"

namespace ovik {

struct Draft;
struct Media;
class DraftTimeline;

/// The motion of `node` at the film moment `time`: bound to its section's clock, or with no
/// clock on a draft that doesn't run in time. None where no section of the timeline holds it,
/// and where the object isn't shown at `time` unless `away` asks for it anyway.
std::optional<ObjectMotion> rawMotion(const Draft& draft, const ObjectNode& node, OutputTime time, bool away = false);

/// The appearance of `node` at `time`; none where it isn't shown.
std::optional<ObjectAppearance> rawAppearance(const Draft& draft, const ObjectNode& node, OutputTime time);
/// The same with the draft's timeline (`timeline(draft)`) in hand, for a caller that evaluates
/// many objects at one moment and looks it up once.
std::optional<ObjectAppearance> rawAppearance(const Draft& draft, const std::shared_ptr<const DraftTimeline>& timeline,
                                              const ObjectNode& node, OutputTime time);

/// A section's actions (its lens or look) at the film moment `output`, showing `source`.
ActionState timelineState(const DraftTimeline& timeline, const std::vector<Action>& actions, SectionID section,
                          OutputTime output, SourceTime source);

/// A media's actions in `section` at `output`.
ActionState mediaState(const DraftTimeline& timeline, const Media& media, SectionID section, OutputTime output,
                       SourceTime source);

} // namespace ovik
