// The rows of the draft's own settings: style, motion blur, cursor, zoom, camera, audio, keys,
// screenshot animation and layout. Each stands on the draft.
#include "OvikModel/scene/PropertyField.h"
#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"
#include "OvikModel/scene/SettingAccess.h"
#include "OvikModel/scene/StyleAccess.h"

namespace ovik {
namespace {

using enum PropertyValueType;
using G = PropertyGroup;

// One group's rows under its prefix, all on the draft.
struct Section {
    G group;
    std::string_view prefix;
    std::vector<PropertySpec>& rows;

    PropertyRow row(std::string_view sdk) const {
        return std::move(PropertyRow(group, prefix, sdk).on({PropertyTargetKind::draft}));
    }
    using Access = std::shared_ptr<const SectionAccess>;
    void toggle(std::string_view sdk, Access access = nullptr) const {
        rows.push_back(row(sdk).typed(flag, PropertyForm::toggle).access(std::move(access)));
    }
    void number(std::string_view sdk, double lo, double hi, Access access = nullptr) const {
        rows.push_back(row(sdk).typed(PropertyValueType::number, PropertyForm::number).ranged(lo, hi).access(std::move(access)));
    }
    void choice(std::string_view sdk, std::vector<std::string> words, Access access = nullptr) const {
        rows.push_back(row(sdk).choices(std::move(words)).access(std::move(access)));
    }
    void color(std::string_view sdk, PropertyForm form, Access access = nullptr) const {
        rows.push_back(row(sdk).typed(PropertyValueType::color, form).access(std::move(access)));
    }
};

void styleRows(std::vector<PropertySpec>& rows) {
    const Section style{G::style, "style.", rows};
    style.rows.push_back(style.row("background").typed(text, PropertyForm::text).access(backgroundAccess()));
    style.rows.push_back(style.row("image").typed(image, PropertyForm::file).access(backgroundImageAccess()));
    style.number("backgroundBlur", 0, 100, draftField(&Draft::style, &Style::backgroundBlur));
    style.choice("deviceFrame", {"none", "macBook", "iPhone", "browser"}, draftField(&Draft::style, &Style::deviceFrame));
    style.number("padding", 0, 400, draftField(&Draft::style, &Style::padding));
    style.number("cornerRadius", 0, 200, draftField(&Draft::style, &Style::cornerRadius));
    style.number("shadow", 0, 100, draftField(&Draft::style, &Style::shadow));
    style.rows.push_back(style.row("aspect").typed(text, PropertyForm::text).access(aspectAccess()));
    style.rows.push_back(style.row("crop").typed(rect, PropertyForm::rectOrNone).unit("pt").access(cropAccess()));
    style.toggle("handDrawn", draftField(&Draft::handDrawn));
    style.choice("newInk", {"none", "dry", "pixel"}, draftField(&Draft::newMarksInk));
    style.toggle("paused", stylePausedAccess());
    style.choice("motionBlur", {"off", "natural", "strong", "on"}, motionBlurAccess(MotionBlurPart::preset));
    style.number("shutter", 10, 360, motionBlurAccess(MotionBlurPart::shutter));
    style.choice("blurQuality", {"auto", "draft", "best"}, motionBlurAccess(MotionBlurPart::quality));
}

void captureRows(std::vector<PropertySpec>& rows) {
    const Section cursor{G::cursor, "cursor.", rows};
    cursor.toggle("shown", draftField(&Draft::cursor, &CursorSettings::isShown));
    cursor.choice("look", {"arrow", "pointer", "dot"}, draftField(&Draft::cursor, &CursorSettings::look));
    cursor.number("size", 0.5, 4, draftField(&Draft::cursor, &CursorSettings::size));
    cursor.number("smoothing", 0, 1, draftField(&Draft::cursor, &CursorSettings::smoothing));
    cursor.choice("clickEffect", {"none", "ripple", "glow", "press"},
                  draftField(&Draft::cursor, &CursorSettings::clickEffect));
    cursor.color("clickColor", PropertyForm::colorOrNone, draftField(&Draft::cursor, &CursorSettings::clickColor));
    cursor.color("color", PropertyForm::color, draftField(&Draft::cursor, &CursorSettings::pointerColor));
    cursor.toggle("turns", draftField(&Draft::cursor, &CursorSettings::turnsWithMotion));
    cursor.toggle("hidesWhenIdle", draftField(&Draft::cursor, &CursorSettings::hidesWhenIdle));
    cursor.toggle("paused", draftField(&Draft::cursor, &CursorSettings::isStylingOff));
    const Section zoom{G::zoomSettings, "zoom.settings.", rows};
    zoom.toggle("auto", draftField(&Draft::zoomSettings, &ZoomSettings::isAuto));
    zoom.number("factor", 1, 8, draftField(&Draft::zoomSettings, &ZoomSettings::defaultFactor));
    zoom.choice("speed", {"slow", "medium", "fast"}, draftField(&Draft::zoomSettings, &ZoomSettings::speed));
    const Section camera{G::camera, "camera.", rows};
    camera.toggle("shown", draftField(&Draft::camera, &CameraOverlay::isShown));
    camera.choice("corner", {"topLeading", "topTrailing", "bottomLeading", "bottomTrailing"},
                  draftField(&Draft::camera, &CameraOverlay::corner));
    camera.choice("shape", {"circle", "roundedRect"}, draftField(&Draft::camera, &CameraOverlay::shape));
    camera.number("size", 0.05, 0.5, draftField(&Draft::camera, &CameraOverlay::size));
    camera.toggle("avoidsCursor", draftField(&Draft::camera, &CameraOverlay::avoidsCursor));
    camera.toggle("shrinksWhenZoomed", draftField(&Draft::camera, &CameraOverlay::shrinksWhenZoomed));
    const Section audio{G::audio, "audio.", rows};
    audio.number("volume", 0, 2, audioAccess(AudioPart::volume));
    audio.toggle("muted", audioAccess(AudioPart::muted));
    const Section keys{G::keys, "keys.", rows};
    keys.toggle("typing", draftField(&Draft::keys, &KeyOverlay::showsTyping));
    const Section animation{G::screenshotAnimation, "screenshot-animation.", rows};
    animation.toggle("animated", screenshotAnimationAccess(ScreenshotAnimationPart::animated));
    animation.rows.push_back(animation.row("duration")
                                 .typed(number, PropertyForm::seconds)
                                 .ranged(1, 30)
                                 .unit("s")
                                 .access(screenshotAnimationAccess(ScreenshotAnimationPart::duration)));
    const Section layout{G::layout, "layout.", rows};
    layout.choice("mode", {"auto", "row", "column", "grid"}, draftField(&Draft::layout, &StillLayout::mode));
    layout.number("gap", 0, 400, draftField(&Draft::layout, &StillLayout::gap));
}

} // namespace

std::vector<PropertySpec> sectionPropertyRows() {
    std::vector<PropertySpec> rows;
    styleRows(rows);
    captureRows(rows);
    return rows;
}

} // namespace ovik
