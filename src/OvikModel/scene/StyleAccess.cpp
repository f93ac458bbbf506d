#include "OvikModel/scene/StyleAccess.h"

#include <algorithm>
#include <charconv>

#include "OvikL10n/L10n.h"
#include "OvikModel/Draft.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyField.h"
#include "OvikModel/style/OvikBackgrounds.h"

namespace ovik {
namespace {

using Read = std::function<std::optional<JSONValue>(const Draft&)>;
using Write = std::function<void(Draft&, const PropertyValue&, const PropertySpec&)>;

std::shared_ptr<const SectionAccess> onDraft(Read read, Write write) {
    return std::make_shared<const SectionAccess>(SectionAccess{std::move(read), std::move(write)});
}

[[noreturn]] void refuse(const char* key, std::vector<L10nArgument> arguments) {
    throw PropertyError(PropertyError::Kind::invalid, L10n::format(key, std::move(arguments)));
}

// A preset is named in the property language by the last part of its text key: "flame".
std::string_view presetName(const GradientPreset& preset) {
    return preset.nameKey.substr(preset.nameKey.rfind('.') + 1);
}

std::vector<std::string> presetNames() {
    std::vector<std::string> names;
    for (const GradientPreset& preset : OvikBackgrounds::gradients()) names.emplace_back(presetName(preset));
    return names;
}

JSONValue gradientValue(const GradientSpec& gradient) {
    for (const GradientPreset& preset : OvikBackgrounds::gradients())
        if (preset.spec == gradient) return JSONValue(std::string(presetName(preset)));
    JSONValue::Object object;
    object.emplace("from", JSONValue(gradient.from.hexText()));
    object.emplace("to", JSONValue(gradient.to.hexText()));
    object.emplace("angle", JSONValue(gradient.angleDegrees));
    return JSONValue(std::move(object));
}

JSONValue readBackground(const Background& background) {
    using B = Background;
    if (const auto* solid = std::get_if<B::solid>(&background.cases)) return JSONValue(solid->value.hexText());
    if (const auto* gradient = std::get_if<B::gradient>(&background.cases)) return gradientValue(gradient->value);
    if (background.is<B::none>()) return JSONValue(std::string(B::none::name));
    if (background.is<B::wallpaper>()) return JSONValue(std::string(B::wallpaper::name));
    return JSONValue(std::string(B::image::name));
}

[[noreturn]] void refuseBackground(const PropertyValue& value) {
    refuse("model.property.style.background.invalid", {value.name, L10n::list(presetNames())});
}

// {"from": "#RRGGBB", "to": "#RRGGBB", "angle": degrees}: a gradient of one's own.
Background takeGradient(const PropertyValue& value) {
    const JSONValue::Object* object = value.json.object();
    const auto part = [&](const char* key) {
        const auto found = object->find(key);
        if (found == object->end()) refuseBackground(value);
        return PropertyValue{value.name, found->second};
    };
    if (!object || object->size() != 3) refuseBackground(value);
    return Background::makeGradient({part("from").color(), part("to").color(), part("angle").number()});
}

Background takeBackground(const PropertyValue& value, const Background& current) {
    using B = Background;
    const std::string* text = value.json.string();
    if (!text) return takeGradient(value);
    if (*text == B::none::name) return B::makeNone();
    if (*text == B::wallpaper::name) return B{{}, B::wallpaper{}};
    if (*text == B::image::name) {
        if (!current.is<B::image>() && !current.is<B::catalog>())
            refuse("model.property.style.background.imageNeedsFile", {value.name});
        return current;
    }
    if (text->rfind("#", 0) == 0) return B::makeSolid(value.color());
    for (const GradientPreset& preset : OvikBackgrounds::gradients())
        if (presetName(preset) == *text) return B::makeGradient(preset.spec);
    refuseBackground(value);
}

// A path inside the package: relative, with no component that climbs out or stands for nothing.
bool staysInside(std::string_view path) {
    if (path.empty() || path.front() == '/') return false;
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view part = path.substr(start, end - start);
        if (part.empty() || part == "." || part == "..") return false;
        start = end + 1;
    }
    return true;
}

void writeBackgroundImage(Draft& draft, const PropertyValue& value) {
    const std::string text = value.text();
    if (text == "none") {
        if (draft.style.background.picture()) draft.style.background = Background::makeNone();
        return;
    }
    if (!staysInside(text)) refuse("model.property.style.image.invalid", {value.name});
    draft.style.background = Background{{}, Background::image{PackagePath{text}}};
}

JSONValue readAspect(const AspectRatio& aspect) {
    if (const auto* ratio = std::get_if<AspectRatio::ratio>(&aspect.cases))
        return JSONValue(std::to_string(ratio->width) + ":" + std::to_string(ratio->height));
    return JSONValue(std::string(AspectRatio::free::name));
}

// A whole number from 1 to 10000, the whole of `text`.
std::optional<std::int64_t> side(std::string_view text) {
    std::int64_t out = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), out);
    if (error != std::errc() || end != text.data() + text.size() || out < 1 || out > 10000) return std::nullopt;
    return out;
}

AspectRatio takeAspect(const PropertyValue& value) {
    const std::string text = value.text();
    if (text == AspectRatio::free::name) return AspectRatio::makeFree();
    const std::size_t colon = text.find(':');
    const auto width = colon == std::string::npos ? std::nullopt : side(std::string_view(text).substr(0, colon));
    const auto height = colon == std::string::npos ? std::nullopt : side(std::string_view(text).substr(colon + 1));
    if (!width || !height) refuse("model.property.style.aspect.invalid", {value.name});
    return AspectRatio::makeRatio(*width, *height);
}

JSONValue rectValue(const CGRect& rect) {
    return JSONValue(JSONValue::Array{JSONValue(rect.origin.x), JSONValue(rect.origin.y), JSONValue(rect.size.width),
                                      JSONValue(rect.size.height)});
}

std::set<StyleSection> allSections() {
    using enum StyleSection;
    return {background, padding, cornerRadius, shadow, look};
}

// The preset that a stored blur is; "on" for an angle that has none.
std::string presetWord(const std::optional<MotionBlur>& blur) {
    if (!blur) return "off";
    if (blur->shutter == MotionBlur::natural) return "natural";
    if (blur->shutter == MotionBlur::strong) return "strong";
    return "on";
}

std::optional<MotionBlur> takePreset(const std::optional<MotionBlur>& current, const std::string& word) {
    if (word == "off") return std::nullopt;
    MotionBlur blur = current.value_or(MotionBlur{});
    if (word == "natural") blur.shutter = MotionBlur::natural;
    if (word == "strong") blur.shutter = MotionBlur::strong;
    return blur;
}

std::optional<JSONValue> readMotionBlur(const std::optional<MotionBlur>& blur, MotionBlurPart part) {
    switch (part) {
    case MotionBlurPart::preset: return JSONValue(presetWord(blur));
    case MotionBlurPart::shutter: return blur ? std::optional(JSONValue(blur->shutter)) : std::nullopt;
    case MotionBlurPart::quality:
        return blur ? std::optional(PropertyFieldForm<MotionBlurQuality>::read(blur->quality)) : std::nullopt;
    }
    return std::nullopt;
}

void writeMotionBlur(std::optional<MotionBlur>& blur, MotionBlurPart part, const PropertyValue& value,
                     const PropertySpec& spec) {
    switch (part) {
    case MotionBlurPart::preset: blur = takePreset(blur, value.choice(spec.words)); break;
    case MotionBlurPart::shutter: blur.emplace(blur.value_or(MotionBlur{})).shutter = value.number(spec.range); break;
    case MotionBlurPart::quality:
        blur.emplace(blur.value_or(MotionBlur{})).quality = PropertyFieldForm<MotionBlurQuality>::take(value, spec);
        break;
    }
}

} // namespace

std::shared_ptr<const SectionAccess> backgroundAccess() {
    return onDraft([](const Draft& draft) -> std::optional<JSONValue> { return readBackground(draft.style.background); },
                   [](Draft& draft, const PropertyValue& value, const PropertySpec&) {
                       draft.style.background = takeBackground(value, draft.style.background);
                   });
}

std::shared_ptr<const SectionAccess> backgroundImageAccess() {
    return onDraft(
        [](const Draft& draft) -> std::optional<JSONValue> {
            const auto path = draft.style.background.picture();
            return JSONValue(path ? path->relative : std::string("none"));
        },
        [](Draft& draft, const PropertyValue& value, const PropertySpec&) { writeBackgroundImage(draft, value); });
}

std::shared_ptr<const SectionAccess> aspectAccess() {
    return onDraft([](const Draft& draft) -> std::optional<JSONValue> { return readAspect(draft.style.aspect); },
                   [](Draft& draft, const PropertyValue& value, const PropertySpec&) {
                       draft.style.aspect = takeAspect(value);
                   });
}

std::shared_ptr<const SectionAccess> cropAccess() {
    return onDraft(
        [](const Draft& draft) -> std::optional<JSONValue> {
            if (draft.media.size() != 1) return std::nullopt;
            const auto& crop = draft.media[0].crop;
            return crop ? rectValue(*crop) : JSONValue(std::string("none"));
        },
        [](Draft& draft, const PropertyValue& value, const PropertySpec&) {
            const auto crop = value.rectOrNone();
            if (draft.media.size() != 1) refuse("model.property.style.crop.oneCapture", {value.name});
            std::vector<Media> media = draft.media.items();
            media[0].crop = crop;
            draft.media = CowList<Media>(std::move(media));
        });
}

std::shared_ptr<const SectionAccess> stylePausedAccess() {
    return onDraft(
        [](const Draft& draft) -> std::optional<JSONValue> { return JSONValue(draft.style.disabled == allSections()); },
        [](Draft& draft, const PropertyValue& value, const PropertySpec&) {
            draft.style.disabled = value.boolean() ? allSections() : std::set<StyleSection>{};
        });
}

std::shared_ptr<const SectionAccess> motionBlurAccess(MotionBlurPart part) {
    return onDraft([part](const Draft& draft) { return readMotionBlur(draft.style.motionBlur, part); },
                   [part](Draft& draft, const PropertyValue& value, const PropertySpec& spec) {
                       writeMotionBlur(draft.style.motionBlur, part, value, spec);
                   });
}

} // namespace ovik
