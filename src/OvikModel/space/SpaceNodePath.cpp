#include "OvikModel/space/SpaceNodePath.h"

#include <charconv>

namespace ovik {
namespace {

// The dot-separated piece of `text` that begins at `at`.
std::string_view pieceAt(std::string_view text, std::size_t at) {
    if (at > text.size()) return {};
    const std::size_t end = text.find('.', at);
    return text.substr(at, end == std::string_view::npos ? std::string_view::npos : end - at);
}

std::optional<std::size_t> indexOf(std::string_view piece) {
    std::size_t index = 0;
    const char* end = piece.data() + piece.size();
    const auto [stop, error] = std::from_chars(piece.data(), end, index);
    if (piece.empty() || error != std::errc() || stop != end) return std::nullopt;
    return index;
}

// One step down: the list under `step.list` and its element, both present; const or not, as
// the space is.
template <class Value>
Value* stepInto(Value& node, const SpaceNodePath::Step& step) {
    auto* object = node.object();
    if (!object) return nullptr;
    const auto found = object->find(step.list);
    if (found == object->end()) return nullptr;
    auto* list = found->second.array();
    return list && step.index < list->size() ? &(*list)[step.index] : nullptr;
}

template <class Value>
Value* walk(Value& space, const std::vector<SpaceNodePath::Step>& steps) {
    Value* at = &space;
    for (const SpaceNodePath::Step& step : steps)
        if (!(at = stepInto(*at, step))) return nullptr;
    return at->object() ? at : nullptr;
}

} // namespace

std::optional<std::pair<SpaceNodePath, std::size_t>> SpaceNodePath::leading(std::string_view text) {
    SpaceNodePath path;
    std::size_t taken = 0;
    for (;;) {
        const std::size_t at = path.steps.empty() ? 0 : taken + 1;
        const std::string_view list = pieceAt(text, at);
        const bool fits = path.steps.empty() ? list == "objects" || list == "lights" : list == "children";
        const std::string_view number = pieceAt(text, at + list.size() + 1);
        const auto index = indexOf(number);
        if (!fits || !index) break;
        path.steps.push_back({std::string(list), *index});
        taken = at + list.size() + 1 + number.size();
    }
    if (path.steps.empty()) return std::nullopt;
    return std::pair{std::move(path), taken};
}

std::optional<SpaceNodePath> SpaceNodePath::parse(std::string_view text) {
    auto found = leading(text);
    if (!found || found->second != text.size()) return std::nullopt;
    return std::move(found->first);
}

const JSONValue* SpaceNodePath::in(const JSONValue& space) const { return walk(space, steps); }
JSONValue* SpaceNodePath::in(JSONValue& space) const { return walk(space, steps); }

} // namespace ovik
