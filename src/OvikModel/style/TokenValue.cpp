#include "OvikModel/style/TokenValue.h"

namespace ovik {

bool TokenValue::fits(TokenKind kind) const {
    switch (kind) {
    case TokenKind::color: return is<color>();
    case TokenKind::font: return is<font>();
    case TokenKind::size:
    case TokenKind::spacing:
    case TokenKind::radius: return is<number>();
    }
    return false;
}

} // namespace ovik
