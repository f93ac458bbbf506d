#pragma once
// The check every refusal of a property write shares: the write throws an `invalid`
// `PropertyError` whose text holds `message`, and the draft is left byte for byte as it was.
#include <gtest/gtest.h>

#include <string>

#include "OvikModel/Draft.h"
#include "OvikModel/scene/DraftProperties.h"
#include "OvikModel/scene/PropertyError.h"
#include "OvikModel/scene/PropertyPath.h"

namespace ovik::testing {

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
