#include "OvikModel/scene/SettingAccess.h"

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyValue.h"

namespace ovik {
namespace {

using Read = std::function<std::optional<JSONValue>(const Draft&)>;
using Write = std::function<void(Draft&, const PropertyValue&, const PropertySpec&)>;

JSONValue readLevel(const TrackLevel& level, AudioPart part) {
    return part == AudioPart::volume ? JSONValue(level.volume) : JSONValue(level.isMuted);
}

void writeLevel(TrackLevel& level, AudioPart part, const PropertyValue& value, const PropertySpec& spec) {
    if (part == AudioPart::volume)
        level.volume = value.number(spec.range);
    else
        level.isMuted = value.boolean();
}

std::optional<JSONValue> readAnimation(const Draft& draft, ScreenshotAnimationPart part) {
    if (draft.kind() != DraftKind::screenshot) return std::nullopt;
    if (part == ScreenshotAnimationPart::animated) return JSONValue(draft.isAnimation);
    if (draft.sections.empty()) return std::nullopt;
    const auto* still = std::get_if<Section::Length::still>(&draft.sections[0].length.cases);
    return still ? std::optional(JSONValue(still->value.seconds())) : std::nullopt;
}

void writeAnimation(Draft& draft, ScreenshotAnimationPart part, const PropertyValue& value, const PropertySpec& spec) {
    if (draft.kind() != DraftKind::screenshot)
        throw PropertyError(PropertyError::Kind::invalid,
                            L10n::format("model.property.screenshotAnimation.needsScreenshot", {value.name}));
    if (part == ScreenshotAnimationPart::animated) {
        draft.isAnimation = value.boolean();
        return;
    }
    const double seconds = value.number(spec.range);
    std::vector<Section> sections = draft.sections.items();
    auto* still = sections.empty() ? nullptr : std::get_if<Section::Length::still>(&sections[0].length.cases);
    if (!still) return;
    still->value = Draft::clampedStill(seconds);
    draft.sections = CowList<Section>(std::move(sections));
}

} // namespace

std::shared_ptr<const SectionAccess> audioAccess(AudioPart part) {
    Read read = [part](const Draft& draft) -> std::optional<JSONValue> {
        if (draft.audio.microphone != draft.audio.system) return std::nullopt;
        return readLevel(draft.audio.microphone, part);
    };
    Write write = [part](Draft& draft, const PropertyValue& value, const PropertySpec& spec) {
        writeLevel(draft.audio.microphone, part, value, spec);
        writeLevel(draft.audio.system, part, value, spec);
    };
    return std::make_shared<const SectionAccess>(SectionAccess{std::move(read), std::move(write)});
}

std::shared_ptr<const SectionAccess> screenshotAnimationAccess(ScreenshotAnimationPart part) {
    Read read = [part](const Draft& draft) { return readAnimation(draft, part); };
    Write write = [part](Draft& draft, const PropertyValue& value, const PropertySpec& spec) {
        writeAnimation(draft, part, value, spec);
    };
    return std::make_shared<const SectionAccess>(SectionAccess{std::move(read), std::move(write)});
}

} // namespace ovik
