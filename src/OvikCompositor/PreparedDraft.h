#pragma once
// A draft made ready for drawing, once per draft state: its pictures decoded, its canvas laid
// out and its timeline worked out. Every frame reads it and none changes it.
//
// Not prepared yet, each with the work that draws it: recorded events and the cursor, key
// chips, window contents, the views of sections, emitters, shutter detail, results and
// generators, and the package's fonts and look tables.
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "OvikCompositor/CanvasLayout.h"
#include "OvikCompositor/RenderOptions.h"
#include "OvikModel/Draft.h"
#include "OvikModel/DraftDocument.h"
#include "OvikModel/values/ImageBox.h"
#include "OvikPlatform/image/Image.h"

namespace ovik {

class DraftTimeline;
class PictureCache;

struct PreparedDraft {
    Draft draft;
    /// The picture of a background that refers to a file, when it could be read.
    std::optional<ImageBox> backgroundImage;
    /// Every file picture the draft's objects and background use that could be read.
    std::map<PackagePath, ImageBox> pictures;
    CanvasLayout layout;
    /// Absent for a draft without timing.
    std::shared_ptr<const DraftTimeline> timeline;
    /// Still media ready to draw: screenshots and canvases, by media.
    std::map<MediaID, Image> mediaPictures;
    RenderOptions options;

    /// A package picture, decoded; throws when it can't be read.
    using PictureReader = std::function<ImageBox(const PackagePath&)>;

    /// The document's draft, with `style` in place of its own when one is given, its pictures
    /// read through `cache`: whole, or reduced to what shows `pictureLongSide` pixels on their
    /// long side (`ImageDecoder::decode`), which also refuses from the header a picture far
    /// larger than that.
    static PreparedDraft prepare(const DraftDocument& document, PictureCache& cache,
                                 const std::optional<Style>& style = std::nullopt,
                                 std::optional<std::int64_t> pictureLongSide = std::nullopt);
    /// Throws `RenderFailure` (`sourceUnreadable`) when a screenshot can't be read; a picture
    /// of an object or the background that can't be read is only left out.
    static PreparedDraft prepare(Draft draft, const PictureReader& read);
};

} // namespace ovik
