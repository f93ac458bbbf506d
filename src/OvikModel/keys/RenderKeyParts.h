#pragma once
// The process-wide cache of encoded pieces of render payloads. Computing a key encodes the
// whole draft; the object tree and the music are the large parts and rarely change between
// two look-ups, so their bytes are kept here and spliced into the payload's text. A node is
// reused only when it equals the stored one, so the result is always what encoding inline
// would give. Bounded at 20000 objects and 4 songs.
//
// `inlineOnly()` is a per-thread switch, off by default: on, keys encode everything in one
// pass and leave the cache alone (set it for a scope with `InlineScope`).
#include <cstddef>
#include <string>
#include <vector>

#include "OvikModel/keys/EncodedParts.h"
#include "OvikModel/objects/ObjectNode.h"

namespace ovik {

class RenderKeyParts {
public:
    using Music = OpaqueJSON; // pending: Music

    static constexpr std::size_t objectCapacity = 20000;
    static constexpr std::size_t songCapacity = 4;

    static RenderKeyParts& shared();

    /// The compact JSON of the list, slashes escaped: "[" + nodes + "]", or "null" when empty.
    std::string json(const std::vector<ObjectNode>& objects);
    std::string json(const Music& music);

    std::size_t objectCount() const { return objects_.count(); }

    static bool inlineOnly();

    class InlineScope {
    public:
        explicit InlineScope(bool on = true);
        ~InlineScope();
        InlineScope(const InlineScope&) = delete;
        InlineScope& operator=(const InlineScope&) = delete;

    private:
        bool previous_;
    };

private:
    EncodedPartTable<ObjectID, ObjectNode> objects_{objectCapacity};
    RecentEncodedParts<Music> songs_{songCapacity};
};

} // namespace ovik
