#include <gtest/gtest.h>

#include "OvikModel/DraftDocument.h"
#include "OvikModel/DraftJSON.h"
#include "OvikModel/PackagePath.h"

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
}

TEST(PackagePath, ANonStringIsRefusedWithItsPlace) {
    try {
        (void)DraftJSON::decode<std::vector<PackagePath>>(R"(["a", {"relative": "b"}])");
        FAIL();
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), DecodingError::Kind::typeMismatch);
        EXPECT_EQ(codingPathText(error.codingPath()), "[1]");
    }
}

TEST(PackagePath, ComparesByText) {
    EXPECT_EQ(PackagePath{"fonts/a.ttf"}, PackagePath{"fonts/a.ttf"});
    EXPECT_NE(PackagePath{"fonts/a.ttf"}, PackagePath{"fonts/./a.ttf"});
    EXPECT_LT(PackagePath{"fonts/B.ttf"}, PackagePath{"fonts/a.ttf"});
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
