#include <gtest/gtest.h>

#include <string>

#include "OvikPlatform/crypto/SHA256.h"

namespace ovik {
namespace {

struct KnownAnswer {
    std::string message;
    const char* digest;
};

// The published test vectors: empty, one block, a message that spills into a second block,
// and one long enough to run through the compression function many thousand times.
TEST(SHA256, KnownAnswers) {
    const KnownAnswer answers[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    for (const KnownAnswer& answer : answers)
        EXPECT_EQ(hexString(SHA256::hash(answer.message)), answer.digest) << answer.message.size() << " bytes";
}

TEST(SHA256, PiecesHashLikeTheWholeAndFinalizeStartsAgain) {
    SHA256 hasher;
    hasher.update("ab");
    hasher.update(std::string_view(""));
    hasher.update("c");
    EXPECT_EQ(hasher.finalize(), SHA256::hash("abc"));
    hasher.update("abc");
    EXPECT_EQ(hasher.finalize(), SHA256::hash("abc"));

    const std::uint8_t bytes[] = {0x61, 0x62, 0x63};
    EXPECT_EQ(SHA256::hash(std::span<const std::uint8_t>(bytes)), SHA256::hash("abc"));
}

} // namespace
} // namespace ovik
