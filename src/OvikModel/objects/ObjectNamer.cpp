#include "OvikModel/objects/ObjectNamer.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ovik {
namespace {

// The number after "<display name> ": decimal digits only, and it must fit.
std::optional<std::int64_t> numberAfter(std::string_view name, const std::string& prefix) {
    if (!name.starts_with(prefix)) return std::nullopt;
    const std::string_view digits = name.substr(prefix.size());
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

} // namespace

ObjectNamerKey ObjectNamerKey::of(const ObjectNode& node) {
    const Annotation* annotation = node.annotation();
    return annotation ? makeKind(annotation->kind()) : makeGroup();
}

std::string ObjectNamerKey::displayName() const {
    return is<kind>() ? ovik::displayName(as<kind>().value) : groupDisplayName();
}

ObjectNamer ObjectNamer::over(const ObjectNodes& nodes) {
    ObjectNamer namer;
    forEachNode(nodes, std::nullopt,
                [&](const ObjectNode& node, const ObjectLocation&) { namer.count(Key::of(node), node.name); });
    return namer;
}

void ObjectNamer::count(const Key& key, std::string_view name) {
    if (const auto number = numberAfter(name, key.displayName() + " ")) {
        std::int64_t& entry = highest[key];
        entry = std::max(entry, *number);
    }
}

std::string ObjectNamer::next(const Key& key) {
    std::int64_t& entry = highest[key];
    if (entry < std::numeric_limits<std::int64_t>::max()) ++entry;
    return key.displayName() + " " + std::to_string(entry);
}

} // namespace ovik
