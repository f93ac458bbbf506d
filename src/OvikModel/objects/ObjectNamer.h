#pragma once
// Hands out names of new objects: the kind's display name, a blank and a number one above the
// highest in use for that kind. Numbers of deleted objects are not reused while a higher one
// stands, and each kind (and groups) counts on its own.
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "OvikModel/objects/ObjectWalks.h"

namespace ovik {

/// What a name is counted by: an annotation kind, or groups.
struct ObjectNamerKey : Enumeration<ObjectNamerKey> {
    struct kind {
        static constexpr std::string_view name = "kind";
        AnnotationKind value;
        auto operator<=>(const kind&) const = default;
    };
    struct group {
        static constexpr std::string_view name = "group";
        auto operator<=>(const group&) const = default;
    };
    std::variant<kind, group> cases;

    static ObjectNamerKey makeKind(AnnotationKind value) { return ObjectNamerKey{{}, kind{value}}; }
    static ObjectNamerKey makeGroup() { return ObjectNamerKey{{}, group{}}; }
    /// The key a node's name counts under.
    static ObjectNamerKey of(const ObjectNode& node);

    std::string displayName() const;

    bool operator==(const ObjectNamerKey&) const = default;
    bool operator<(const ObjectNamerKey& other) const { return cases < other.cases; }
};

struct ObjectNamer {
    using Key = ObjectNamerKey;

    std::map<Key, std::int64_t> highest;

    /// Counts the name of every node of the tree.
    static ObjectNamer over(const ObjectNodes& nodes);

    /// Raises the key's entry when `name` is its display name, a blank and a decimal number;
    /// any other name is ignored.
    void count(const Key& key, std::string_view name);
    /// The next name for the key, counted at once.
    std::string next(const Key& key);
};

} // namespace ovik
