#pragma once
// One piece of the timeline, showing one media. Its length is either the kept stretches of a
// recording or the duration of a still; in JSON the stretches are spread over parallel lists
// of the section ("keptRanges", "rates", "autoRates", "resumes", "freezes"), and a still has
// "stillDuration" alone. A speed that changes nothing is dropped on reading and never written.
#include <optional>
#include <variant>
#include <vector>

#include "OvikModel/animation/Action.h"
#include "OvikModel/draft/KeptStretch.h"
#include "OvikModel/draft/SectionSpeed.h"
#include "OvikModel/draft/SectionSplit.h"
#include "OvikModel/draft/Transition.h"
#include "OvikModel/effects/EffectStack.h"
#include "OvikModel/values/Identifier.h"

namespace ovik {

struct Section {
    struct Length : Enumeration<Length> {
        struct kept {
            static constexpr std::string_view name = "kept";
            std::vector<KeptStretch> value;
            bool operator==(const kept&) const = default;
        };
        struct still {
            static constexpr std::string_view name = "still";
            MediaDuration value;
            bool operator==(const still&) const = default;
        };
        std::variant<kept, still> cases;

        static Length makeKept(std::vector<KeptStretch> stretches) { return Length{{}, kept{std::move(stretches)}}; }
        static Length makeStill(MediaDuration duration) { return Length{{}, still{duration}}; }

        /// The stretches that play: a still stands for one stretch over its duration.
        std::vector<KeptStretch> stretches() const;
        /// Real frames exist: the length was cut out of a recording.
        bool isFramed() const { return is<kept>(); }

        bool operator==(const Length&) const = default;
    };

    SectionID id;
    /// Names an entry of the draft's media.
    MediaID media;
    Length length;
    std::optional<Transition> transitionIn;
    std::vector<Action> lens;
    std::optional<OpaqueJSON> space; // pending: SpaceSettings
    std::optional<SectionSpeed> speed;
    std::optional<SectionSplit> split;
    std::optional<EffectStack> look;
    std::vector<Action> lookActions;

    bool operator==(const Section&) const = default;
};

template <>
struct JSONCoding<Section> {
    static JSONValue encode(const Section& section);
    static Section decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
