#pragma once
// One refused JSON text: what the decoder must say about it, and where. The generic texts of
// the JSON decoder are its own tests' business; a model test gives a text only for a message
// the model words itself.
#include <gtest/gtest.h>

#include <string_view>

#include "OvikPlatform/json/JSONCoding.h"

namespace ovik::testing {

struct DecodingFailure {
    const char* json;
    DecodingError::Kind kind;
    const char* path;
    const char* description = nullptr;
};

template <class T>
void expectRefused(const DecodingFailure& failure) {
    try {
        (void)decodeJSON<T>(std::string_view(failure.json));
        ADD_FAILURE() << "accepted " << failure.json;
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), failure.kind) << failure.json;
        EXPECT_EQ(codingPathText(error.codingPath()), failure.path) << failure.json;
        if (failure.description) {
            EXPECT_EQ(error.debugDescription(), failure.description) << failure.json;
        }
    }
}

} // namespace ovik::testing
