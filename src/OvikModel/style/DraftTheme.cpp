#include "OvikModel/style/DraftTheme.h"

#include <functional>

#include "OvikModel/style/AnnotationTokens.h"
#include "OvikPlatform/TextTrim.h"

namespace ovik {
namespace {

/// Runs `change` over a copy of the tree and keeps the copy only when something changed.
bool rewriteNodes(Draft& draft, const std::function<void(std::vector<ObjectNode>&)>& change) {
    std::vector<ObjectNode> nodes = draft.objects.items();
    change(nodes);
    if (nodes == draft.objects.items()) return false;
    draft.objects = CowList<ObjectNode>(std::move(nodes));
    return true;
}

std::optional<TokenRefs> unlessEmpty(const TokenRefs& refs) {
    return refs.isEmpty() ? std::nullopt : std::optional<TokenRefs>(refs);
}

/// Changes the references that `holder` (a node's or the theme's) keeps; emptied, they go.
template <class Holder>
void rewrite(Holder& holder, const std::function<void(TokenRefs&)>& change) {
    if (!holder) return;
    TokenRefs refs = *holder;
    change(refs);
    holder = unlessEmpty(refs);
}

template <class Holder>
void setSlot(Holder& holder, TokenSlot slot, const std::optional<std::string>& name) {
    TokenRefs refs = holder ? *holder : TokenRefs{};
    refs[slot] = name;
    holder = unlessEmpty(refs);
}

/// Rewrites every reference, in the tree and in `Theme.style`.
void rewriteAllRefs(Draft& draft, const std::function<void(TokenRefs&)>& change) {
    rewriteNodes(draft, [&](auto& nodes) { updateEveryNode(nodes, [&](ObjectNode& n) { rewrite(n.tokens, change); }); });
    if (draft.theme) rewrite(draft.theme->style, change);
}

void setSlotOfLeaves(Draft& draft, TokenSlot slot, const std::optional<std::string>& name, const ObjectIDs& objects) {
    rewriteNodes(draft, [&](auto& nodes) {
        updateLeaves(nodes, objects, false, [&](ObjectNode& node) { setSlot(node.tokens, slot, name); });
    });
}

void applyToStyle(Style& style, TokenSlot slot, const TokenValue& value) {
    const auto* colour = std::get_if<TokenValue::color>(&value.cases);
    const auto* number = std::get_if<TokenValue::number>(&value.cases);
    if (slot == TokenSlot::background && colour) style.background = Background::makeSolid(colour->value);
    if (slot == TokenSlot::cornerRadius && number) style.cornerRadius = number->value;
    if (slot == TokenSlot::padding && number) style.padding = number->value;
}

/// Calls `visit` with each slot that names a token, and the value the theme gives it.
void forEachFollowed(const Theme& theme, const TokenRefs& refs,
                     const std::function<void(TokenSlot, const TokenValue&)>& visit) {
    for (TokenSlot slot : allTokenSlots)
        if (refs[slot])
            if (auto value = theme.value(tokenKind(slot), *refs[slot])) visit(slot, *value);
}

bool isStyleSlot(TokenSlot slot) {
    return slot == TokenSlot::background || slot == TokenSlot::cornerRadius || slot == TokenSlot::padding;
}

void forEachRefs(const Draft& draft, const std::function<void(const TokenRefs&)>& visit) {
    forEachNode(draft.objects.items(), std::nullopt, [&](const ObjectNode& node, const ObjectLocation&) {
        if (node.tokens) visit(*node.tokens);
    });
    if (draft.theme && draft.theme->style) visit(*draft.theme->style);
}

} // namespace

Draft setTheme(Draft draft, std::optional<Theme> theme) {
    if (theme == draft.theme) return draft;
    draft.theme = std::move(theme);
    return settleTheme(std::move(draft));
}

Draft applyTheme(Draft draft) {
    if (!draft.theme) return draft;
    const Theme& theme = *draft.theme;
    bool changed = rewriteNodes(draft, [&](auto& nodes) {
        updateEveryNode(nodes, [&](ObjectNode& node) {
            if (!node.tokens || node.isGroup()) return;
            Annotation& annotation = node.content.as<ObjectContent::annotation>().value;
            forEachFollowed(theme, *node.tokens, [&](TokenSlot slot, const TokenValue& value) {
                if (has(slot, annotation.kind())) applyToken(annotation, slot, value);
            });
        });
    });
    if (theme.style) {
        const Style before = draft.style;
        forEachFollowed(theme, *theme.style,
                        [&](TokenSlot slot, const TokenValue& value) { applyToStyle(draft.style, slot, value); });
        changed = changed || draft.style != before;
    }
    if (changed) {
        draft.bindPackageFonts();
        draft.memo.clear();
    }
    return draft;
}

Draft settleTheme(Draft draft) { return applyTheme(dropUnknownTokens(std::move(draft))); }

Draft dropUnknownTokens(Draft draft) {
    const std::optional<Theme> theme = draft.theme;
    rewriteAllRefs(draft, [&](TokenRefs& refs) {
        for (TokenSlot slot : allTokenSlots)
            if (refs[slot] && !(theme && theme->contains(tokenKind(slot), *refs[slot]))) refs[slot].reset();
    });
    return draft;
}

std::optional<Draft> setToken(const Draft& draft, TokenKind kind, std::string_view name, const TokenValue& value) {
    const std::string key = std::string(trimmingWhitespace(name));
    if (key.empty() || !value.fits(kind)) return std::nullopt;
    Draft out = draft;
    if (!out.theme) out.theme = Theme{};
    out.theme->upsert(kind, key, value);
    return settleTheme(std::move(out));
}

Draft removeToken(Draft draft, TokenKind kind, std::string_view name) {
    if (!draft.theme || !draft.theme->remove(kind, name)) return draft;
    return settleTheme(std::move(draft));
}

std::optional<Draft> renameToken(const Draft& draft, TokenKind kind, std::string_view name,
                                 std::string_view newName) {
    const std::string key = std::string(trimmingWhitespace(newName));
    Draft out = draft;
    if (key.empty() || !out.theme || !out.theme->rename(kind, name, key)) return std::nullopt;
    rewriteAllRefs(out, [&](TokenRefs& refs) {
        for (TokenSlot slot : allTokenSlots)
            if (tokenKind(slot) == kind && refs[slot] == name) refs[slot] = key;
    });
    return out;
}

Draft bindToken(Draft draft, TokenSlot slot, std::optional<std::string> name, const ObjectIDs& objects) {
    setSlotOfLeaves(draft, slot, name, objects);
    return settleTheme(std::move(draft));
}

std::optional<Draft> bindStyleToken(const Draft& draft, TokenSlot slot, std::optional<std::string> name) {
    if (!isStyleSlot(slot) || !draft.theme || (name && !draft.theme->contains(tokenKind(slot), *name)))
        return std::nullopt;
    Draft out = draft;
    setSlot(out.theme->style, slot, name);
    return settleTheme(std::move(out));
}

Draft detachTokens(Draft draft, TokenSlot slot, const ObjectIDs& objects) {
    setSlotOfLeaves(draft, slot, std::nullopt, objects);
    return draft;
}

Draft detachStyleToken(Draft draft, TokenSlot slot) {
    if (draft.theme) rewrite(draft.theme->style, [&](TokenRefs& refs) { refs[slot].reset(); });
    return draft;
}

std::optional<TokenRefs> tokens(const Draft& draft, const ObjectID& id) {
    const ObjectNode* found = node(draft.objects.items(), id);
    return found ? found->tokens.optional() : std::nullopt;
}

std::optional<std::string> commonToken(const Draft& draft, const ObjectIDs& objects, TokenSlot slot) {
    std::optional<std::optional<std::string>> common;
    bool agree = true;
    forEachLeaf(draft.objects.items(), objects, false, [&](const ObjectNode& leaf) {
        const std::optional<std::string> name = leaf.tokens ? (*leaf.tokens)[slot] : std::nullopt;
        if (!common) common = name;
        agree = agree && *common == name;
    });
    return agree && common ? *common : std::nullopt;
}

TokenFollowers tokenFollowers(const Draft& draft) {
    TokenFollowers out;
    forEachRefs(draft, [&](const TokenRefs& refs) {
        for (TokenSlot slot : allTokenSlots)
            if (refs[slot]) ++out[{tokenKind(slot), *refs[slot]}];
    });
    return out;
}

bool usesTokens(const Draft& draft) {
    bool uses = false;
    forEachRefs(draft, [&](const TokenRefs&) { uses = true; });
    return uses;
}

} // namespace ovik
