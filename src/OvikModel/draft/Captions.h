#pragma once
// The captions of a draft: cues on source time, optionally timed word by word.
#include <optional>
#include <string>
#include <vector>

#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/TimeRange.h"
#include "OvikPlatform/CowList.h"

namespace ovik {

struct CaptionWord {
    std::string text;
    SourceRange range;

    bool operator==(const CaptionWord&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("text", &CaptionWord::text), required("range", &CaptionWord::range)};
    }
};

struct CaptionCue {
    CaptionID id;
    SourceRange range;
    std::string text;
    std::optional<SectionID> section;
    std::optional<std::vector<CaptionWord>> words;

    bool operator==(const CaptionCue&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &CaptionCue::id), required("range", &CaptionCue::range),
                          required("text", &CaptionCue::text), optional("section", &CaptionCue::section),
                          optional("words", &CaptionCue::words)};
    }
};

struct Captions {
    CowList<CaptionCue> cues;
    bool isShown = true;
    bool colorsWords = false;

    /// No cues, shown, one colour.
    static Captions none() { return Captions{}; }

    bool operator==(const Captions&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{writtenAlways("cues", &Captions::cues), writtenAlways("isShown", &Captions::isShown),
                          defaulted("colorsWords", &Captions::colorsWords)};
    }
};

} // namespace ovik
