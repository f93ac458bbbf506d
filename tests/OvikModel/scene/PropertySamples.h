#pragma once
// Drafts, paths and the shared check of a refused write, for the tests of properties.
#include <gtest/gtest.h>

#include <string>

#include "OvikL10n/L10n.h"
#include "OvikModel/ModelSamples.h"
#include "OvikModel/objects/AnnotationDefaults.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyPath.h"
#include "OvikModel/scene/PropertyTable.h"

namespace ovik::testing {

inline const std::string mediaText = numbered(0xAA).uuidString();
inline const std::string sectionText = numbered(0xBB).uuidString();

inline std::optional<JSONValue> get(const Draft& draft, const std::string& path) {
    return propertyValue(draft, PropertyPath::parse(path, draft));
}

inline std::optional<std::string> set(Draft& draft, const std::string& path, const JSONValue& value) {
    return setProperty(draft, value, PropertyPath::parse(path, draft));
}

/// The draft with its objects read back from their JSON.
inline Draft reread(const Draft& draft) {
    Draft out = draft;
    std::vector<ObjectNode> nodes;
    for (const ObjectNode& each : draft.objects.items()) nodes.push_back(decodeJSON<ObjectNode>(encodeJSON(each)));
    out.objects = CowList<ObjectNode>(nodes);
    return out;
}

/// The write leaves `value` at `path`, the same write again names no step, and the value survives
/// the objects' JSON.
inline void expectKept(Draft draft, const std::string& path, const JSONValue& value) {
    set(draft, path, value);
    const auto read = get(draft, path);
    ASSERT_TRUE(read) << path;
    EXPECT_TRUE(read->same(value)) << path << " reads " << read->compact();
    EXPECT_FALSE(set(draft, path, value)) << path << " changed again";
    EXPECT_TRUE(get(reread(draft), path)->same(value)) << path;
}

/// The write throws an `invalid` `PropertyError` whose text holds `message` (any text when it is
/// empty), and the draft is left byte for byte as it was.
inline void expectRefused(Draft draft, const std::string& path, const JSONValue& value, const std::string& message) {
    const std::string before = encodeJSON(draft).compact();
    try {
        setProperty(draft, value, PropertyPath::parse(path, draft));
        ADD_FAILURE() << path << " was not refused";
    } catch (const PropertyError& error) {
        EXPECT_EQ(error.kind(), PropertyError::Kind::invalid) << path;
        EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
    EXPECT_EQ(encodeJSON(draft).compact(), before) << path;
}

} // namespace ovik::testing
