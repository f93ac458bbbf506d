#pragma once
// Identifiers of the document: each kind is its own type over a UUID, so that one kind can't be
// passed where another is expected. JSON form: the UUID's canonical upper-case text.
#include <compare>
#include <concepts>
#include <functional>
#include <string>

#include "OvikPlatform/UUID.h"

namespace ovik {

template <class Kind>
struct Identifier {
    UUID rawValue;

    /// A fresh identifier; for new things only, never for anything derived from a draft.
    static Identifier random() { return Identifier{UUID::random()}; }
    /// The reserved id of all zero bytes, standing for the whole draft where a section is named.
    static Identifier wholeDraft()
        requires std::same_as<Kind, struct SectionIDKind>
    {
        return Identifier{};
    }

    std::string description() const { return rawValue.uuidString(); }
    auto operator<=>(const Identifier&) const = default;
};

template <class Kind>
struct JSONCoding<Identifier<Kind>> {
    static JSONValue encode(const Identifier<Kind>& id) { return JSONCoding<UUID>::encode(id.rawValue); }
    static Identifier<Kind> decode(JSONNode node, const CodingPath& path) {
        return Identifier<Kind>{JSONCoding<UUID>::decode(node, path)};
    }
};

using DraftID = Identifier<struct DraftIDKind>;
using MediaID = Identifier<struct MediaIDKind>;
using SectionID = Identifier<struct SectionIDKind>;
using ObjectID = Identifier<struct ObjectIDKind>;
using MarkerID = Identifier<struct MarkerIDKind>;
using ZoomID = Identifier<struct ZoomIDKind>;
using CaptionID = Identifier<struct CaptionIDKind>;
using VersionID = Identifier<struct VersionIDKind>;

} // namespace ovik

template <class Kind>
struct std::hash<ovik::Identifier<Kind>> {
    std::size_t operator()(const ovik::Identifier<Kind>& id) const noexcept { return std::hash<ovik::UUID>()(id.rawValue); }
};
