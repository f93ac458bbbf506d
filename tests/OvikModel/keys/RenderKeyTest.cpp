#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "OvikModel/keys/EncodedParts.h"
#include "OvikModel/keys/ExportRequest.h"
#include "OvikModel/keys/RenderKey.h"
#include "OvikModel/keys/RenderOptions.h"
#include "OvikModel/keys/ResultKey.h"
#include "OvikModel/values/DecodingFailure.h"
#include "OvikPlatform/json/JSONWriter.h"

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
        {"16", DecodingError::Kind::typeMismatch, ""},
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
    // watermark, id
    const std::tuple<Watermark, std::string> cases[] = {
        {Watermark::madeWithOvik(), "made-with-ovik-3"},
        {Watermark{OvikWatermarkStyle::sticker, std::nullopt, std::nullopt}, "watermark-4|sticker|" + emptyDigest},
        {Watermark{std::nullopt, std::nullopt, std::nullopt}, "watermark-4|none|" + emptyDigest},
        // The preset is written compact with slashes escaped, the logo's bytes follow it.
        {Watermark{OvikWatermarkStyle::trailPill, JSONValue::parse(R"({"x":1,"name":"A/B"})"), logo},
         "watermark-4|trailPill|68d724f346b2347f2cda9478788bee975fb60759f7eaad62cd0cf6cac19b8734"},
    };
    for (const auto& [watermark, id] : cases) EXPECT_EQ(watermark.id(), id);
}

TEST(ResultKey, DigestIsTheSHA256OfSortedKeyValueLines) {
    // SHA-256 of "a=1\nb=2\n", whatever order the map was filled in.
    const ResultKey key({{"b", "2"}, {"a", "1"}});
    EXPECT_EQ(key.digest, "4a73850fde34aad40ff8649b93a66523a5fe744357a3931caea0f10609d0d930");
    EXPECT_EQ(ResultKey(std::map<std::string, std::string>{}).digest, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

ExportRequest request(std::string format, ExportSize size) {
    ExportRequest out;
    out.format = ExportFormatID{std::move(format)};
    out.size = size;
    return out;
}

TEST(ExportRequest, JSONLeavesOutWhatIsAbsentAndReadsItBack) {
    ExportRequest gif = request("gif", ExportSize::makeShortSide(1080));
    gif.frameRate = 15;
    gif.range = OutputRange{OutputTime{0}, OutputTime{2000000}};
    gif.destination = ExportDestination::photos;
    gif.transparent = true;
    gif.watermark = "w/1";
    const char* json = R"({"destination":"photos","format":"gif","frameRate":15,"range":{"end":2000000,"start":0},)"
                       R"("size":{"shortSide":1080},"transparent":true,"watermark":"w/1"})";
    EXPECT_EQ(JSONWriter::write(encodeJSON(gif)), json);
    EXPECT_EQ(decodeJSON<ExportRequest>(std::string_view(json)), gif);
    EXPECT_EQ(JSONWriter::write(encodeJSON(request("png", ExportSize::makeOriginal()))),
              R"({"format":"png","size":"original"})");
}

// A stand-in for a node of the object tree: an id and a value that can change under it.
struct Node {
    int id = 0;
    std::string label;
    bool operator==(const Node&) const = default;
};

struct CountingEncoder {
    int* calls;
    std::string operator()(const Node& node) const {
        ++*calls;
        return std::to_string(node.id) + ":" + node.label;
    }
};

int idOf(const Node& node) { return node.id; }

TEST(EncodedPartTable, TheEntryPastCapacityEmptiesTheTableBeforeItIsStored) {
    constexpr int capacity = 20000;
    EncodedPartTable<int, Node> table(capacity);
    int calls = 0;
    std::vector<Node> full;
    for (int id = 0; id < capacity; ++id) full.push_back({id, "x"});
    table.parts(full, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), std::size_t(capacity));

    table.parts(std::vector<Node>{{capacity, "new"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(table.count(), 1u);
    calls = 0;
    table.parts(std::vector<Node>{{0, "x"}}, idOf, CountingEncoder{&calls});
    EXPECT_EQ(calls, 1);
}

TEST(RecentEncodedParts, KeepsTheLastFourAndDropsTheOldest) {
    RecentEncodedParts<Node> songs(4);
    int calls = 0;
    for (int id = 0; id < 5; ++id) EXPECT_EQ(songs.bytes({id, "s"}, CountingEncoder{&calls}), std::to_string(id) + ":s");
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(songs.count(), 4u);
    songs.bytes({4, "s"}, CountingEncoder{&calls});
    EXPECT_EQ(calls, 5);
    songs.bytes({0, "s"}, CountingEncoder{&calls});
    EXPECT_EQ(calls, 6);
}

} // namespace
} // namespace ovik
