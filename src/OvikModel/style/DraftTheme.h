#pragma once
// The theme operations of a draft. Objects and the draft's style follow tokens by name
// (`TokenRefs`); these keep the references and the followed values in step with the theme.
// After any change the theme is settled: references to names that no longer stand are
// dropped (the values stay, so an object keeps its colour when its token goes), then every
// followed value is written again from the theme. Operations that can refuse answer none
// when they do, and the draft is then unchanged.
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "OvikModel/Draft.h"
#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {

/// Replaces the theme (none removes it, and with it every reference), then settles.
Draft setTheme(Draft draft, std::optional<Theme> theme);
/// Writes each followed token's value into the objects that follow it and into the style.
Draft applyTheme(Draft draft);
/// `dropUnknownTokens`, then `applyTheme` when there is a theme.
Draft settleTheme(Draft draft);
/// Clears every reference, in the tree and in `Theme.style`, whose name the theme doesn't hold.
Draft dropUnknownTokens(Draft draft);

/// Sets the value of the token of that (trimmed) name, adding it at the end of its list and
/// making a theme when there is none. Refused for an empty name or a value of another kind.
std::optional<Draft> setToken(const Draft& draft, TokenKind kind, std::string_view name, const TokenValue& value);
/// Takes the token away; its followers let go of it and keep their value.
Draft removeToken(Draft draft, TokenKind kind, std::string_view name);
/// Renames a token and every reference to it. Refused when there is no such token or the
/// new (trimmed) name is empty or taken in its list.
std::optional<Draft> renameToken(const Draft& draft, TokenKind kind, std::string_view name,
                                 std::string_view newName);

/// Makes the leaves in or under `objects` follow `name` on the slot (none: follow nothing).
Draft bindToken(Draft draft, TokenSlot slot, std::optional<std::string> name, const ObjectIDs& objects);
/// Makes the style follow `name` on `background`, `cornerRadius` or `padding`. Refused for
/// another slot, without a theme, or for a name the theme doesn't hold.
std::optional<Draft> bindStyleToken(const Draft& draft, TokenSlot slot, std::optional<std::string> name);
/// The leaves in or under `objects` stop following anything on the slot, keeping their values.
Draft detachTokens(Draft draft, TokenSlot slot, const ObjectIDs& objects);
Draft detachStyleToken(Draft draft, TokenSlot slot);

/// What the node follows; none for an unknown id or a node that follows nothing.
std::optional<TokenRefs> tokens(const Draft& draft, const ObjectID& id);
/// The token that every leaf in or under `objects` follows on the slot; none when they differ,
/// when one follows nothing, or when there are none.
std::optional<std::string> commonToken(const Draft& draft, const ObjectIDs& objects, TokenSlot slot);

/// How many references each token has, by kind and name: object slots and style slots alike.
using TokenFollowers = std::map<std::pair<TokenKind, std::string>, int>;
TokenFollowers tokenFollowers(const Draft& draft);
/// Whether any object or the style follows a token.
bool usesTokens(const Draft& draft);

} // namespace ovik
