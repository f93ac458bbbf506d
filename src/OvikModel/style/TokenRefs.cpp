#include "OvikModel/style/TokenRefs.h"

namespace ovik {
namespace {

using Member = std::optional<std::string> TokenRefs::*;

// In the order of `TokenSlot`, so that a slot is an index.
constexpr Member members[] = {&TokenRefs::color, &TokenRefs::fill,         &TokenRefs::background,
                              &TokenRefs::font,  &TokenRefs::size,         &TokenRefs::cornerRadius,
                              &TokenRefs::padding};

} // namespace

TokenKind tokenKind(TokenSlot slot) {
    switch (slot) {
    case TokenSlot::color:
    case TokenSlot::fill:
    case TokenSlot::background: return TokenKind::color;
    case TokenSlot::font: return TokenKind::font;
    case TokenSlot::size: return TokenKind::size;
    case TokenSlot::cornerRadius: return TokenKind::radius;
    case TokenSlot::padding: return TokenKind::spacing;
    }
    return TokenKind::color;
}

std::optional<std::string>& TokenRefs::operator[](TokenSlot slot) { return this->*members[int(slot)]; }

const std::optional<std::string>& TokenRefs::operator[](TokenSlot slot) const { return this->*members[int(slot)]; }

bool TokenRefs::isEmpty() const { return *this == TokenRefs{}; }

} // namespace ovik
