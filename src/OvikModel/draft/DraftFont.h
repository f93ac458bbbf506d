#pragma once
// A font file copied into the package, so that the draft's texts look the same on any machine.
#include <string>
#include <string_view>

#include "OvikModel/PackagePath.h"

namespace ovik {

struct DraftFont {
    /// The package folder that holds the copies.
    static constexpr std::string_view folder = "fonts";

    PackagePath file;
    std::string postScriptName;
    std::string family;
    std::string face;
    std::string sha256;
    std::string sourceName;

    bool operator==(const DraftFont&) const = default;
    static constexpr auto jsonFields() {
        using F = DraftFont;
        return std::tuple{required("file", &F::file),     required("postScriptName", &F::postScriptName),
                          required("family", &F::family), required("face", &F::face),
                          required("sha256", &F::sha256), required("sourceName", &F::sourceName)};
    }
};

} // namespace ovik
