#include "OvikModel/style/AnnotationTokens.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "OvikModel/objects/AnnotationLimits.h"

namespace ovik {
namespace {

template <class P>
constexpr bool hasOptionalStroke = requires(P p) { p.stroke->color; };
template <class P>
constexpr bool hasStroke = requires(P p) { p.stroke.color; };

template <class P>
constexpr bool hasSlot(TokenSlot slot) {
    switch (slot) {
    case TokenSlot::color:
        return hasOptionalStroke<P> || hasStroke<P> || requires(P p) { p.color = RGBA{}; };
    case TokenSlot::fill: return requires(P p) { p.paint = FillPaint{}; };
    case TokenSlot::background: return requires(P p) { p.background = RGBA{}; };
    case TokenSlot::font: return requires(P p) { p.font = TextFont{}; p.weight = FontWeight{}; };
    case TokenSlot::size: return requires(P p) { p.fontSize = 0.0; };
    case TokenSlot::cornerRadius:
    case TokenSlot::padding: break;
    }
    return false;
}

template <class P>
void setColor(P& p, const RGBA& colour) {
    if constexpr (hasOptionalStroke<P>) {
        if (p.stroke) p.stroke->color = colour;
    } else if constexpr (hasStroke<P>) {
        p.stroke.color = colour;
    } else if constexpr (requires { p.color = colour; }) {
        p.color = colour;
    }
}

template <class P>
void write(P& p, TokenSlot slot, const TokenValue& value) {
    const auto* colour = std::get_if<TokenValue::color>(&value.cases);
    const auto* role = std::get_if<TokenValue::font>(&value.cases);
    const auto* number = std::get_if<TokenValue::number>(&value.cases);
    switch (slot) {
    case TokenSlot::color:
        if (colour) setColor(p, colour->value);
        break;
    case TokenSlot::fill:
        if constexpr (hasSlot<P>(TokenSlot::fill))
            if (colour) p.paint = FillPaint::makeColor(colour->value);
        break;
    case TokenSlot::background:
        if constexpr (hasSlot<P>(TokenSlot::background))
            if (colour) p.background = colour->value;
        break;
    case TokenSlot::font:
        if constexpr (hasSlot<P>(TokenSlot::font))
            if (role) p.font = role->value.font, p.weight = role->value.weight;
        break;
    case TokenSlot::size:
        if constexpr (hasSlot<P>(TokenSlot::size))
            if (number && std::isfinite(number->value))
                p.fontSize =
                    std::clamp(number->value, AnnotationLimits::minimumFontSize, AnnotationLimits::maximumFontSize);
        break;
    case TokenSlot::cornerRadius:
    case TokenSlot::padding: break;
    }
}

template <std::size_t... I>
bool hasIn(TokenSlot slot, std::size_t kind, std::index_sequence<I...>) {
    using Cases = decltype(Annotation::cases);
    return ((kind == I && hasSlot<decltype(std::variant_alternative_t<I, Cases>::value)>(slot)) || ...);
}

} // namespace

bool has(TokenSlot slot, AnnotationKind kind) {
    using Cases = decltype(Annotation::cases);
    return hasIn(slot, std::size_t(kind), std::make_index_sequence<std::variant_size_v<Cases>>());
}

void applyToken(Annotation& annotation, TokenSlot slot, const TokenValue& value) {
    std::visit([&](auto& c) { write(c.value, slot, value); }, annotation.cases);
}

} // namespace ovik
