#include "OvikDrafts/DraftPaths.h"

#include <algorithm>

#include "OvikModel/Draft.h"
#include "OvikModel/draft/LUTFiles.h"
#include "OvikModel/draft/PicturePaths.h"

namespace ovik {
namespace {

void appendMediaPaths(const Draft& draft, std::vector<PackagePath>& out) {
    for (const Media& media : draft.media) {
        if (const auto* shot = std::get_if<MediaSource::screenshot>(&media.source.cases)) {
            out.push_back(shot->value.image);
        } else if (const auto* recording = std::get_if<MediaSource::recording>(&media.source.cases)) {
            for (const Segment& segment : recording->value.segments) out.push_back(segment.movie);
            if (recording->value.events) out.push_back(*recording->value.events);
        }
    }
}

void appendFontPaths(const Draft& draft, std::vector<PackagePath>& out) {
    std::vector<PackagePath> fonts;
    for (const DraftFont& font : draft.fonts) fonts.push_back(font.file);
    std::sort(fonts.begin(), fonts.end(), [](const auto& a, const auto& b) { return a.relative < b.relative; });
    out.insert(out.end(), fonts.begin(), fonts.end());
}

} // namespace

std::vector<PackagePath> draftPaths(const Draft& draft) {
    std::vector<PackagePath> out;
    appendMediaPaths(draft, out);
    const std::set<PackagePath> pictures = picturePaths(draft);
    out.insert(out.end(), pictures.begin(), pictures.end());
    appendFontPaths(draft, out);
    const std::vector<PackagePath> luts = lutFiles(draft);
    out.insert(out.end(), luts.begin(), luts.end());
    return out;
}

} // namespace ovik
