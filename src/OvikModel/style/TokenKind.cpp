#include "OvikModel/style/TokenKind.h"

#include "OvikL10n/L10n.h"

namespace ovik {

std::string label(TokenKind kind) {
    switch (kind) {
    case TokenKind::color: return L10n::text("model.valueKind.color");
    case TokenKind::font: return L10n::text("model.theme.tokenKind.font");
    case TokenKind::size: return L10n::text("model.theme.tokenKind.fontSize");
    case TokenKind::spacing: return L10n::text("model.theme.tokenKind.spacing");
    case TokenKind::radius: return L10n::text("model.style.cornerRadius");
    }
    return {};
}

} // namespace ovik
