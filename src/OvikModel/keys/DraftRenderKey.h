#pragma once
// Render keys of a draft: the digest of everything an output depends on, so that a render
// kept under "renders/" + key is found again only while the draft still looks exactly the
// same. Also the draft views that a payload is made of, and the key of sound analysis.
//
// The payload is written compact, keys sorted, slashes escaped. The object tree and the music
// come from `RenderKeyParts` and are spliced into the text where sorted keys would put them,
// which gives the same bytes as encoding them inline (`RenderKeyParts::InlineScope`).
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "OvikModel/keys/DraftPayload.h"
#include "OvikModel/keys/RenderKey.h"

namespace ovik {

RenderKey renderKey(const Draft& draft, const ExportRequest& request,
                    const std::optional<Instruments>& instruments = std::nullopt);

/// The key of a kept thumbnail of `maxPixel` on its long side.
RenderKey thumbnailKey(const Draft& draft, std::int64_t maxPixel);

/// The request behind `thumbnailKey`: format "thumbnail", a square custom size, nothing else.
ExportRequest thumbnailRequest(std::int64_t maxPixel);

/// The payload by its rules, objects and music included.
DraftPayload renderPayload(const Draft& draft, const ExportRequest& request,
                           const std::optional<Instruments>& instruments = std::nullopt);

/// The exact bytes that `renderKey` hashes.
std::string renderPayloadText(const Draft& draft, const ExportRequest& request,
                              const std::optional<Instruments>& instruments = std::nullopt);

/// Media, normalised sections, layout and the animation flag.
RenderKeyMedia renderKeyMedia(const Draft& draft);

/// The package fonts that some text or the theme uses; none when the draft keeps no fonts.
std::optional<std::vector<DraftFont>> renderKeyFonts(const Draft& draft);

/// PostScript names of the fonts of every text at any depth and of the theme's fonts.
std::set<std::string> usedFontNames(const Draft& draft);

/// A segment of some recording has a track of role `camera`.
bool hasCameraTrack(const Draft& draft);

/// A text that changes when what the draft sounds like changes: the key of sound analysis.
std::string audioSignature(const Draft& draft, const std::optional<Instruments>& instruments = std::nullopt);

} // namespace ovik
