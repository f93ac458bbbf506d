#pragma once
// A sound file imported into the package and placed on the draft's timeline.
#include <string>

#include "OvikModel/PackagePath.h"
#include "OvikPlatform/json/JSONCoding.h"
#include "OvikModel/values/Identifier.h"
#include "OvikModel/values/Times.h"

namespace ovik {

struct ImportedSound {
    MediaID id;
    PackagePath file;
    std::string name;
    MediaDuration duration;
    MediaDuration start;
    double gain = 1;
    bool isMuted = false;

    bool operator==(const ImportedSound&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple{required("id", &ImportedSound::id),           required("file", &ImportedSound::file),
                          required("name", &ImportedSound::name),       required("duration", &ImportedSound::duration),
                          writtenAlways("start", &ImportedSound::start), defaulted("gain", &ImportedSound::gain),
                          defaulted("isMuted", &ImportedSound::isMuted)};
    }
};

} // namespace ovik
