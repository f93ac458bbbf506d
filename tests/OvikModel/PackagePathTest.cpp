#include <gtest/gtest.h>

#include "OvikModel/DraftDocument.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/PackagePath.h"
#include "OvikModel/values/DecodingFailure.h"

namespace ovik {
namespace {

TEST(PackagePath, IsABareStringAndTakesAnyText) {
    // Nothing is checked on reading: a path is tested only where a file is used.
    for (const char* text : {"media/screenshot.png", "../outside.mov", "/etc/passwd", ""}) {
        const std::string json = "[" + DraftJSON::encode(JSONValue(text), false) + "]";
        const auto paths = DraftJSON::decode<std::vector<PackagePath>>(json);
        ASSERT_EQ(paths.size(), 1u);
        EXPECT_EQ(paths[0].description(), text);
        EXPECT_EQ(DraftJSON::encode(paths, false), json);
    }
    testing::expectRefused<std::vector<PackagePath>>(
        {R"(["a", {"relative": "b"}])", DecodingError::Kind::typeMismatch, "[1]"});
}

TEST(DraftDocument, URLAppendsThePathTextToThePackage) {
    struct Case {
        const char* package;
        const char* path;
        const char* expected;
    };
    const Case cases[] = {
        {"/drafts/A.ovikwork", "media/screenshot.png", "/drafts/A.ovikwork/media/screenshot.png"},
        {"/drafts/A.ovikwork/", "draft.json", "/drafts/A.ovikwork/draft.json"},
        // A leading "/" doesn't make the path replace the package.
        {"/drafts/A.ovikwork", "/etc/passwd", "/drafts/A.ovikwork//etc/passwd"},
        {"/drafts/A.ovikwork", "", "/drafts/A.ovikwork"},
    };
    for (const Case& c : cases) {
        const DraftDocument document{Draft{}, c.package};
        EXPECT_EQ(document.url(PackagePath{c.path}).string(), c.expected) << c.path;
    }
}

} // namespace
} // namespace ovik
