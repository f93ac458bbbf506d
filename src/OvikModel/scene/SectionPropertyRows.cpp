// The rows of the draft's own settings: style, motion blur, cursor, zoom, camera, audio, keys,
// screenshot animation and layout. Each stands on the draft.
#include "OvikModel/scene/PropertyRow.h"
#include "OvikModel/scene/PropertyRows.h"

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
    void toggle(std::string_view sdk) const { rows.push_back(row(sdk).typed(flag, PropertyForm::toggle)); }
    void number(std::string_view sdk, double lo, double hi) const {
        rows.push_back(row(sdk).typed(PropertyValueType::number, PropertyForm::number).ranged(lo, hi));
    }
    void choice(std::string_view sdk, std::vector<std::string> words) const {
        rows.push_back(row(sdk).choices(std::move(words)));
    }
    void color(std::string_view sdk) const { rows.push_back(row(sdk).typed(PropertyValueType::color, PropertyForm::color)); }
};

void styleRows(std::vector<PropertySpec>& rows) {
    const Section style{G::style, "style.", rows};
    style.rows.push_back(style.row("background").typed(text, PropertyForm::text));
    style.rows.push_back(style.row("image").typed(image, PropertyForm::file));
    style.number("backgroundBlur", 0, 100);
    style.choice("deviceFrame", {"none", "macBook", "iPhone", "browser"});
    style.number("padding", 0, 400);
    style.number("cornerRadius", 0, 200);
    style.number("shadow", 0, 1);
    style.rows.push_back(style.row("aspect").typed(text, PropertyForm::text));
    style.rows.push_back(style.row("crop").typed(rect, PropertyForm::rectOrNone));
    style.toggle("handDrawn");
    style.choice("newInk", {"none", "pencil", "marker", "crayon"});
    style.toggle("paused");
    style.choice("motionBlur", {"off", "natural", "strong", "on"});
    style.number("shutter", 0, 1);
    style.choice("blurQuality", {"auto", "draft", "best"});
}

void captureRows(std::vector<PropertySpec>& rows) {
    const Section cursor{G::cursor, "cursor.", rows};
    cursor.toggle("shown");
    cursor.choice("look", {"arrow", "pointer", "dot"});
    cursor.number("size", 0.5, 4);
    cursor.number("smoothing", 0, 1);
    cursor.choice("clickEffect", {"none", "ripple", "glow", "press"});
    cursor.color("clickColor");
    cursor.color("color");
    cursor.toggle("turns");
    cursor.toggle("hidesWhenIdle");
    cursor.toggle("paused");
    const Section zoom{G::zoomSettings, "zoom.settings.", rows};
    zoom.toggle("auto");
    zoom.number("factor", 1, 8);
    zoom.choice("speed", {"slow", "medium", "fast"});
    const Section camera{G::camera, "camera.", rows};
    camera.toggle("shown");
    camera.choice("corner", {"topLeading", "topTrailing", "bottomLeading", "bottomTrailing"});
    camera.choice("shape", {"circle", "roundedRect"});
    camera.number("size", 0.05, 0.5);
    camera.toggle("avoidsCursor");
    camera.toggle("shrinksWhenZoomed");
    const Section audio{G::audio, "audio.", rows};
    audio.number("volume", 0, 2);
    audio.toggle("muted");
    const Section keys{G::keys, "keys.", rows};
    keys.toggle("typing");
    const Section animation{G::screenshotAnimation, "screenshot-animation.", rows};
    animation.toggle("animated");
    animation.rows.push_back(animation.row("duration").typed(number, PropertyForm::seconds).ranged(1, 30).unit("s"));
    const Section layout{G::layout, "layout.", rows};
    layout.choice("mode", {"auto", "row", "column", "grid"});
    layout.number("gap", 0, 400);
}

} // namespace

std::vector<PropertySpec> sectionPropertyRows() {
    std::vector<PropertySpec> rows;
    styleRows(rows);
    captureRows(rows);
    return rows;
}

} // namespace ovik
