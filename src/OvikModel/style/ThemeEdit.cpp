#include "OvikModel/style/ThemeEdit.h"

#include "OvikL10n/L10n.h"

namespace ovik::ThemeEdit {

std::string change() { return L10n::text("model.theme.undo.change"); }
std::string deleteToken() { return L10n::text("model.theme.undo.deleteToken"); }
std::string renameToken() { return L10n::text("model.theme.undo.renameToken"); }
std::string follow() { return L10n::text("model.theme.undo.follow"); }
std::string unfollow() { return L10n::text("model.theme.undo.unfollow"); }
std::string apply() { return L10n::text("model.theme.undo.apply"); }
std::string remove() { return L10n::text("model.theme.undo.remove"); }

} // namespace ovik::ThemeEdit
