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

} // namespace ovik
