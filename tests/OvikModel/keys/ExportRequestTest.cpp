#include <gtest/gtest.h>

#include "OvikModel/keys/ExportRequest.h"
#include "OvikPlatform/json/JSONWriter.h"

namespace ovik {
namespace {

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
    ExportRequest webp = request("webp", ExportSize::makeCustom({320, 240}));
    webp.quality = 0.8;
    webp.destinationFolderPath = "/tmp/out";
    const struct {
        ExportRequest request;
        const char* json;
    } cases[] = {
        {request("png", ExportSize::makeOriginal()), R"({"format":"png","size":"original"})"},
        {gif, R"({"destination":"photos","format":"gif","frameRate":15,"range":{"end":2000000,"start":0},)"
              R"("size":{"shortSide":1080},"transparent":true,"watermark":"w/1"})"},
        {webp, R"({"destinationFolderPath":"/tmp/out","format":"webp","quality":0.8,)"
               R"("size":{"custom":{"height":240,"width":320}}})"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(JSONWriter::write(encodeJSON(c.request)), c.json);
        EXPECT_EQ(decodeJSON<ExportRequest>(std::string_view(c.json)), c.request) << c.json;
    }
}

} // namespace
} // namespace ovik
