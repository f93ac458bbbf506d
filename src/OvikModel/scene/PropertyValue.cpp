#include "OvikModel/scene/PropertyValue.h"

#include <algorithm>
#include <cmath>

#include "OvikL10n/L10n.h"
#include "OvikModel/scene/PropertyError.h"

namespace ovik {
namespace {

[[noreturn]] void invalid(std::string message) { throw PropertyError(PropertyError::Kind::invalid, std::move(message)); }

// Numbers as the JSON writer spells them: no trailing zeros.
std::string shown(double value) { return JSONValue(value).compact(); }

bool isNone(const JSONValue& json) {
    const std::string* text = json.string();
    return text && *text == "none";
}

// [x, y] as two numbers, finite or not; none for any other shape.
std::optional<CGPoint> pair(const JSONValue& json) {
    const JSONValue::Array* array = json.array();
    CGPoint point;
    if (!array || array->size() != 2 || !(*array)[0].number(point.x) || !(*array)[1].number(point.y)) return std::nullopt;
    return point;
}

bool isFinite(CGPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

} // namespace

double PropertyValue::number(const std::optional<std::pair<double, double>>& range) const {
    double value = 0;
    if (!json.number(value) || !std::isfinite(value)) invalid(L10n::format("model.property.value.needsNumber", {name}));
    if (range && (value < range->first || value > range->second))
        invalid(L10n::format("model.property.value.outOfRange",
                             {name, shown(range->first), shown(range->second), shown(value)}));
    return value;
}

std::string PropertyValue::text() const {
    if (const std::string* text = json.string()) return *text;
    invalid(L10n::format("model.property.value.needsText", {name}));
}

bool PropertyValue::boolean() const {
    if (const bool* value = json.boolean()) return *value;
    invalid(L10n::format("model.property.value.needsBoolean", {name}));
}

std::string PropertyValue::choice(const std::vector<std::string>& words) const {
    const std::string* text = json.string();
    if (!text || std::find(words.begin(), words.end(), *text) == words.end())
        invalid(L10n::format("model.property.value.choiceInvalid", {name, L10n::list(words)}));
    return *text;
}

RGBA PropertyValue::color() const {
    const std::string* text = json.string();
    const auto color = text && text->rfind("#", 0) == 0 ? RGBA::fromHexText(*text) : std::nullopt;
    if (!color) invalid(L10n::format("model.property.value.colorInvalid", {name}));
    return *color;
}

std::optional<RGBA> PropertyValue::colorOrNone() const {
    const std::string* text = json.string();
    if (text && *text == "none") return std::nullopt;
    const auto color = text && text->rfind("#", 0) == 0 ? RGBA::fromHexText(*text) : std::nullopt;
    if (!color) invalid(L10n::format("model.property.value.colorOrNoneInvalid", {name}));
    return color;
}

std::optional<CGPoint> PropertyValue::pointOrNone() const {
    if (isNone(json)) return std::nullopt;
    const auto point = pair(json);
    if (!point) invalid(L10n::format("model.property.value.pointOrNoneInvalid", {name}));
    if (!isFinite(*point)) invalid(L10n::format("model.property.value.pointInvalid", {name}));
    return point;
}

std::optional<std::vector<CGPoint>> PropertyValue::pointsOrNone() const {
    if (isNone(json)) return std::nullopt;
    const JSONValue::Array* array = json.array();
    std::vector<CGPoint> points;
    for (std::size_t i = 0; array && i < array->size(); ++i) {
        const auto point = pair((*array)[i]);
        if (!point || !isFinite(*point)) break;
        points.push_back(*point);
    }
    if (!array || points.size() != array->size())
        invalid(L10n::format("model.property.value.pointsOrNoneInvalid", {name}));
    return points;
}

std::optional<double> PropertyValue::numberOrNone(const std::optional<std::pair<double, double>>& range) const {
    if (isNone(json)) return std::nullopt;
    return number(range);
}

std::optional<CGRect> PropertyValue::rectOrNone() const {
    if (isNone(json)) return std::nullopt;
    const JSONValue::Array* array = json.array();
    double v[4] = {};
    bool numbers = array && array->size() == 4;
    for (std::size_t i = 0; numbers && i < 4; ++i) numbers = (*array)[i].number(v[i]);
    if (!numbers) invalid(L10n::format("model.property.value.rectOrNoneInvalid", {name}));
    if (!std::all_of(v, v + 4, [](double x) { return std::isfinite(x); }) || v[2] <= 0 || v[3] <= 0)
        invalid(L10n::format("model.property.value.rectInvalid", {name}));
    return CGRect{{v[0], v[1]}, {v[2], v[3]}};
}

} // namespace ovik
