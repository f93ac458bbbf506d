#pragma once
// The undo titles of theme edits, in the language in force.
#include <string>

namespace ovik::ThemeEdit {

std::string change();
std::string deleteToken();
std::string renameToken();
std::string follow();
std::string unfollow();
std::string apply();
std::string remove();

} // namespace ovik::ThemeEdit
