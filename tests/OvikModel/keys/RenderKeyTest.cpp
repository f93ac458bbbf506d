#include <gtest/gtest.h>

#include "OvikModel/keys/RenderKey.h"
#include "OvikModel/keys/RenderOptions.h"
#include "OvikModel/keys/ResultKey.h"
#include "OvikPlatform/json/JSONWriter.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

// SHA-256("abc") is ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad.
const RenderKey abcKey{"ba7816bf8f01cfea414140de5dae2223"};

TEST(RenderKey, IsTheFirstHalfOfTheDigestAsText) {
    EXPECT_EQ(RenderKey::digestOf("abc"), abcKey);
    EXPECT_EQ(RenderKey::thumbnailFileName(520), "thumbnail-520.png");
}

TEST(RenderKey, JSONIsTheBareStringAndRefusesWhatCannotBeAKey) {
    EXPECT_EQ(JSONWriter::write(encodeJSON(abcKey)), "\"ba7816bf8f01cfea414140de5dae2223\"");
    EXPECT_EQ(decodeJSON<RenderKey>(std::string_view("\"ba7816bf8f01cfea414140de5dae2223\"")), abcKey);
    using testing::DecodingFailure;
    const DecodingFailure failures[] = {
        {"\"BA7816BF8F01CFEA414140DE5DAE2223\"", DecodingError::Kind::dataCorrupted, "",
         "Cannot initialize RenderKey from invalid String value BA7816BF8F01CFEA414140DE5DAE2223"},
        {"\"ba7816bf8f01cfea414140de5dae222\"", DecodingError::Kind::dataCorrupted, "",
         "Cannot initialize RenderKey from invalid String value ba7816bf8f01cfea414140de5dae222"},
        {"\"../../ba7816bf8f01cfea414140de5d\"", DecodingError::Kind::dataCorrupted, "",
         "Cannot initialize RenderKey from invalid String value ../../ba7816bf8f01cfea414140de5d"},
        {"16", DecodingError::Kind::typeMismatch, "", "Expected to decode String but found a number instead."},
    };
    for (const DecodingFailure& failure : failures) testing::expectRefused<RenderKey>(failure);
}

TEST(RenderKey, AddingOptionsFoldsOnlyAWatermarkIn) {
    EXPECT_EQ(abcKey.adding(RenderOptions::none()), abcKey);
    // SHA-256 of "ba7816bf8f01cfea414140de5dae2223|watermark:made-with-ovik-3", cut to 16 bytes.
    EXPECT_EQ(abcKey.adding(RenderOptions{Watermark::madeWithOvik()}).rawValue, "0a2eb76233544236e480a6615f7bc573");
}

TEST(Watermark, IdNamesTheStandardMarkAndHashesEverythingElse) {
    const std::string emptyDigest = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
    const std::vector<std::uint8_t> logo = {'L', 'O', 'G', 'O'};
    const struct {
        Watermark watermark;
        std::string id;
    } cases[] = {
        {Watermark::madeWithOvik(), "made-with-ovik-3"},
        {Watermark{OvikWatermarkStyle::sticker, std::nullopt, std::nullopt}, "watermark-4|sticker|" + emptyDigest},
        {Watermark{std::nullopt, std::nullopt, std::nullopt}, "watermark-4|none|" + emptyDigest},
        // The preset is written compact with slashes escaped, the logo's bytes follow it.
        {Watermark{OvikWatermarkStyle::trailPill, JSONValue::parse(R"({"x":1,"name":"A/B"})"), logo},
         "watermark-4|trailPill|68d724f346b2347f2cda9478788bee975fb60759f7eaad62cd0cf6cac19b8734"},
    };
    for (const auto& c : cases) EXPECT_EQ(c.watermark.id(), c.id);
}

TEST(ResultKey, DigestIsTheSHA256OfSortedKeyValueLines) {
    // SHA-256 of "a=1\nb=2\n", whatever order the map was filled in.
    const ResultKey key({{"b", "2"}, {"a", "1"}});
    EXPECT_EQ(key.digest, "4a73850fde34aad40ff8649b93a66523a5fe744357a3931caea0f10609d0d930");
    EXPECT_EQ(ResultKey(std::map<std::string, std::string>{}).digest, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

} // namespace
} // namespace ovik
