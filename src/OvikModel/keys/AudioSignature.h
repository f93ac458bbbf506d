#pragma once
// What a draft sounds like, as a record whose JSON text keys sound analysis: the recorded
// tracks by content, the levels, the made sounds, the music and how each section plays its
// source time. Keys sorted, slashes not escaped.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/keys/DraftPayload.h"

namespace ovik {

struct AudioSignature {
    /// One stretch of a recording section as it plays.
    struct Piece {
        SourceRange range;
        double rate = 1;
        std::optional<MediaDuration> hold;

        static constexpr auto jsonFields() {
            return std::tuple{required("range", &Piece::range), required("rate", &Piece::rate),
                              optional("hold", &Piece::hold)};
        }
    };

    /// How one section plays: the sound it shows, its stretches or still length, its speed,
    /// and how far the next section overlaps it.
    struct Timing {
        std::optional<std::string> sound;
        std::optional<std::vector<Piece>> kept;
        std::optional<MediaDuration> still;
        std::optional<SectionSpeed> speed;
        std::optional<MediaDuration> overlap;

        static constexpr auto jsonFields() {
            return std::tuple{optional("sound", &Timing::sound), optional("kept", &Timing::kept),
                              optional("still", &Timing::still), optional("speed", &Timing::speed),
                              optional("overlap", &Timing::overlap)};
        }
    };

    std::int64_t analysis = 1;
    std::vector<std::string> tracks;
    AudioSettings audio;
    decltype(Draft::sounds) sounds;
    decltype(Draft::music) music;
    std::optional<std::int64_t> musicRenderer;
    std::optional<Instruments> instruments;
    decltype(Draft::narration) narration;
    decltype(Draft::importedSounds) importedSounds;
    std::vector<Timing> sections;

    static constexpr auto jsonFields() {
        using S = AudioSignature;
        return std::tuple{required("analysis", &S::analysis),
                          required("tracks", &S::tracks),
                          required("audio", &S::audio),
                          required("sounds", &S::sounds),
                          optional("music", &S::music),
                          optional("musicRenderer", &S::musicRenderer),
                          optional("instruments", &S::instruments),
                          optional("narration", &S::narration),
                          required("importedSounds", &S::importedSounds),
                          required("sections", &S::sections)};
    }
};

} // namespace ovik
