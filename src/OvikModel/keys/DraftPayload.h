#pragma once
// The record whose bytes a render key hashes: everything a picture or film of the draft
// depends on, and nothing administrative (name, dates, markers, grid, ...). A field that is
// absent writes no key, so adding a feature that a draft doesn't use leaves its keys alone.
// The integers `*Renderer`, `typing` and `clickLook` mark a change of how something is drawn,
// so that renders kept by an older drawing stop matching.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "OvikModel/Draft.h"
#include "OvikModel/keys/DraftOutput.h"
#include "OvikModel/keys/RenderKeyMedia.h"

namespace ovik {

using Instruments = std::map<std::string, std::string>;

struct DraftPayload {
    static constexpr std::int64_t currentRenderVersion = 9;

    std::int64_t renderVersion = currentRenderVersion;
    RenderKeyMedia media;
    Style style;
    std::optional<decltype(Draft::objects)> objects;
    std::optional<decltype(Draft::zoom)> zoom;
    std::optional<ZoomSpeed> zoomSpeed;
    std::optional<CursorSettings> cursor;
    std::optional<std::int64_t> clickLook;
    std::optional<KeyOverlay> keys;
    std::optional<std::int64_t> typing;
    std::optional<std::int64_t> inkTextureRenderer;
    std::optional<std::int64_t> sketchRenderer;
    std::optional<Captions> captions;
    std::optional<AudioSettings> audio;
    std::optional<CameraOverlay> camera;
    std::optional<decltype(Draft::sounds)> sounds;
    std::optional<std::vector<DraftFont>> fonts;
    decltype(Draft::music) music;
    std::optional<std::int64_t> musicRenderer;
    std::optional<Instruments> instruments;
    decltype(Draft::narration) narration;
    std::optional<decltype(Draft::importedSounds)> importedSounds;
    std::optional<decltype(Draft::importedModels)> importedModels;
    std::optional<CGRect> frame;
    std::optional<Letterbox> letterbox;
    std::optional<Theme> theme;
    DraftOutput output;

    static constexpr auto jsonFields() {
        using P = DraftPayload;
        return std::tuple{required("renderVersion", &P::renderVersion),
                          required("media", &P::media),
                          required("style", &P::style),
                          optional("objects", &P::objects),
                          optional("zoom", &P::zoom),
                          optional("zoomSpeed", &P::zoomSpeed),
                          optional("cursor", &P::cursor),
                          optional("clickLook", &P::clickLook),
                          optional("keys", &P::keys),
                          optional("typing", &P::typing),
                          optional("inkTextureRenderer", &P::inkTextureRenderer),
                          optional("sketchRenderer", &P::sketchRenderer),
                          optional("captions", &P::captions),
                          optional("audio", &P::audio),
                          optional("camera", &P::camera),
                          optional("sounds", &P::sounds),
                          optional("fonts", &P::fonts),
                          optional("music", &P::music),
                          optional("musicRenderer", &P::musicRenderer),
                          optional("instruments", &P::instruments),
                          optional("narration", &P::narration),
                          optional("importedSounds", &P::importedSounds),
                          optional("importedModels", &P::importedModels),
                          optional("frame", &P::frame),
                          optional("letterbox", &P::letterbox),
                          optional("theme", &P::theme),
                          required("output", &P::output)};
    }
};

} // namespace ovik
