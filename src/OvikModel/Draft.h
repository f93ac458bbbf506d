#pragma once
// The document: the record stored in a package's draft.json, schema 8. One value, copied
// freely: the big lists are shared between copies until one of them changes, and only the
// memo is shared for good.
//
// Reading checks `schema` before anything else (any value but the integer 8 stops with
// `DraftSchemaMismatch`), then binds texts to the fonts kept in the package, then refuses a
// draft whose structure is broken. Writing always adds `schema` 8.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "OvikModel/draft/AudioSettings.h"
#include "OvikModel/draft/CameraOverlay.h"
#include "OvikModel/draft/Captions.h"
#include "OvikModel/draft/CursorSettings.h"
#include "OvikModel/draft/DraftFont.h"
#include "OvikModel/draft/DraftKind.h"
#include "OvikModel/draft/DraftMemo.h"
#include "OvikModel/draft/ImportedModel.h"
#include "OvikModel/draft/ImportedSound.h"
#include "OvikModel/draft/KeyOverlay.h"
#include "OvikModel/draft/LayoutGrid.h"
#include "OvikModel/draft/Letterbox.h"
#include "OvikModel/draft/Marker.h"
#include "OvikModel/draft/Media.h"
#include "OvikModel/draft/RecoveryNote.h"
#include "OvikModel/draft/Section.h"
#include "OvikModel/draft/StillLayout.h"
#include "OvikModel/draft/ZoomSettings.h"
#include "OvikModel/keys/OutputKind.h"
#include "OvikModel/objects/ObjectNode.h"
#include "OvikModel/style/Style.h"
#include "OvikModel/style/Theme.h"
#include "OvikPlatform/CowList.h"
#include "OvikPlatform/Date.h"

namespace ovik {

struct Draft {
    /// The one schema this program reads and writes; there is no conversion between numbers.
    static constexpr std::int64_t currentSchema = 8;

    DraftID id;
    std::string name;
    Date createdAt;
    /// The sweep leaves a kept draft alone.
    bool kept = false;
    /// A person has changed the draft since it was captured.
    bool edited = false;
    std::optional<RecoveryNote> recovered;
    CowList<Media> media;
    CowList<Section> sections;
    StillLayout layout;
    bool isAnimation = false;
    Style style;
    std::optional<std::string> presetID;
    CowList<ObjectNode> objects;
    /// Marks added from now on are drawn by hand (key "newMarksHandDrawn").
    bool handDrawn = false;
    InkTexture::Kind newMarksInk = InkTexture::Kind::none;
    CowList<OpaqueJSON> zoom; // pending: ZoomSegment
    ZoomSettings zoomSettings;
    CursorSettings cursor;
    KeyOverlay keys;
    Captions captions;
    AudioSettings audio;
    CameraOverlay camera;
    bool byAutomation = false;
    CowList<Marker> markers;
    bool skipsIdle = false;
    CowList<OpaqueJSON> sounds; // pending: SectionSound
    CowList<DraftFont> fonts;
    std::optional<OpaqueJSON> music;     // pending: Music
    std::optional<OpaqueJSON> narration; // pending: Narration
    CowList<ImportedSound> importedSounds;
    CowList<ImportedModel> importedModels;
    std::optional<Theme> theme;
    std::optional<Letterbox> letterbox;
    std::optional<LayoutGrid> grid;
    /// The exported part of the canvas, in layout points from the top left; none hugs the content.
    std::optional<CGRect> frame;
    /// Not stored: false after every load.
    bool showsOutsideFrame = false;
    /// Not stored: a new empty memo for every loaded draft.
    DraftMemo memo;

    /// `recording` when any media is a recording.
    DraftKind kind() const;
    OutputKind outputKind() const;
    /// Runs in time: a recording, or an animation.
    bool isTimed() const;
    /// The media of the first section, or 0 when no media has its id.
    std::size_t primaryMediaIndex() const;
    /// The source of the primary media. The draft must hold a media.
    const MediaSource& source() const;

    /// The picture is the capture itself: one media, placed and shown as it is, the original
    /// style, and no object that shows.
    bool isCaptureAsIs() const;

    /// What is wrong with the draft's structure, in words, or none when it is sound.
    std::optional<std::string> structureProblem() const;

    /// Binds every text whose font the package keeps (by PostScript name; the later of two
    /// copies wins) to that copy. The tree is rewritten only when a binding changes.
    void bindPackageFonts();

    /// A draft of one canvas and one still section of `clampedStill(length)`, named after
    /// `createdAt` in `zone`.
    static Draft newAnimation(const Canvas& canvas, MediaDuration length, Date createdAt, DraftID id,
                              TimeZone zone);
    static Draft newAnimation(const Canvas& canvas, MediaDuration length, Date createdAt, DraftID id);

    /// "2024-03-05 截图 14.07": date, prefix and time in `zone`.
    static std::string baseName(std::string_view prefix, Date createdAt, TimeZone zone);
    /// The prefix of the kind: "截图", "录屏" or "动画".
    static std::string baseName(OutputKind kind, Date createdAt, TimeZone zone);
    /// "2024-03".
    static std::string monthFolderName(Date createdAt, TimeZone zone);
    /// `name` when free, else the first free of name + " 2", " 3", ...
    static std::string uniqueName(const std::string& name, const std::function<bool(const std::string&)>& isTaken);
    /// A still's length from seconds: 1 to 30, `Screenshot::defaultAnimationLength` when not finite.
    static MediaDuration clampedStill(double seconds);

    bool operator==(const Draft&) const = default;
};

template <>
struct JSONCoding<Draft> {
    static JSONValue encode(const Draft& draft);
    static Draft decode(JSONNode node, const CodingPath& path);
};

} // namespace ovik
