#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "OvikDrafts/FileDraftStore.h"
#include "RunCommand.h"

namespace ovik::testing {
namespace {

namespace fs = std::filesystem;

// A fresh copy of the animation sample for a test that writes.
std::string copiedAnimation(const std::string& name) {
    const fs::path folder = fs::temp_directory_path() / ("ovik-props-" + std::to_string(getpid())) / name;
    fs::remove_all(folder);
    fs::create_directories(folder.parent_path());
    fs::copy(OVIK_EXAMPLES "/animation.ovikwork", folder, fs::copy_options::recursive);
    return folder.string();
}

std::string draftBytes(const std::string& package) {
    std::ifstream in(fs::path(package) / "draft.json", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST(PropertyCommands, PropsListsRowsUnderAPrefix) {
    const CommandResult result = runOvik({"props", "cursor."}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(result.status, 0) << result.err;
    std::size_t lines = 0;
    for (std::size_t at = 0; at < result.out.size(); at = result.out.find('\n', at) + 1, ++lines)
        EXPECT_EQ(result.out.compare(at, 7, "cursor."), 0) << result.out.substr(at, 40);
    EXPECT_EQ(lines, 11u); // ten settings and the derived pointer
    EXPECT_NE(result.out.find("cursor.look                          choice           arrow|pointer|dot"), std::string::npos);
}

TEST(PropertyCommands, PropsListsWhatATargetCanHaveWritten) {
    const CommandResult media = runOvik({"props", "--writable", "media"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(media.status, 0) << media.err;
    EXPECT_EQ(media.out.rfind("blend ", 0), 0u) << media.out; // the one row written on media itself
    EXPECT_EQ(media.out.find('\n'), media.out.size() - 1) << media.out;
    const CommandResult draft = runOvik({"props", "style.", "--writable", "draft"}, {"OVIK_LANGUAGE=en"});
    EXPECT_NE(draft.out.find("style.padding "), std::string::npos);
    const CommandResult objects = runOvik({"props", "--writable", "object"}, {"OVIK_LANGUAGE=en"});
    EXPECT_NE(objects.out.find("\nhidden "), std::string::npos);
    EXPECT_EQ(objects.out.find("\nposition "), std::string::npos); // actions alone move it
    EXPECT_EQ(runOvik({"props", "--writable", "planet"}).status, 2);
}

TEST(PropertyCommands, SetThenGetAndTheFileAfterwards) {
    const std::string package = copiedAnimation("set.ovikwork");
    const CommandResult set = runOvik({"set", package, "文字 1.hidden", "true"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(set.status, 0) << set.err;
    EXPECT_EQ(set.out, "Change Hidden\n");
    EXPECT_EQ(runOvik({"get", package, "文字 1.hidden"}).out, "true\n");
    EXPECT_EQ(runOvik({"set", package, "cursor.look", "dot"}).status, 0);
    EXPECT_EQ(runOvik({"get", package, "cursor.look"}).out, "\"dot\"\n");
    // The same value again leaves the file as it is.
    const std::string before = draftBytes(package);
    const CommandResult again = runOvik({"set", package, "cursor.look", "dot"}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(again.out, "The value is the same; the draft is unchanged.\n");
    EXPECT_EQ(draftBytes(package), before);
}

TEST(PropertyCommands, RefusedValuesLeaveTheFileUntouched) {
    const std::string package = copiedAnimation("refuse.ovikwork");
    const std::string before = draftBytes(package);
    struct Case {
        std::vector<std::string> arguments;
        const char* err;
    };
    const Case cases[] = {
        {{"set", package, "style.padding", "999"}, "takes 0 to 400, but got 999"},
        {{"set", package, "style.padding", "wide"}, "needs a number"},
        {{"set", package, "cursor.color", "red"}, "#RRGGBB"},
        {{"set", package, "文字 1.position", "[1, 2]"}, "animated by actions"},
        {{"set", package, "Nobody.hidden", "true"}, "no object called “Nobody”"},
        {{"get", package, "padding"}, "padding"},
    };
    for (const Case& c : cases) {
        const CommandResult result = runOvik(c.arguments, {"OVIK_LANGUAGE=en"});
        EXPECT_EQ(result.status, 1) << c.arguments[2];
        EXPECT_NE(result.err.find(c.err), std::string::npos) << result.err;
        EXPECT_EQ(draftBytes(package), before) << c.arguments[2];
    }
}

TEST(PropertyCommands, SpaceFieldsOfASection) {
    const std::string package = copiedAnimation("space.ovikwork");
    Draft draft = FileDraftStore::readDraft(package);
    std::vector<Section> sections = draft.sections.items();
    sections[0].space = JSONValue::parse(
        R"({"fov": 40, "objects": [{"material": {"type": "MeshStandardMaterial"}, "type": "Mesh"}]})");
    draft.sections = CowList<Section>(std::move(sections));
    FileDraftStore::writeDraft(draft, package);
    const std::string space = draft.sections[0].id.description() + ".space.";

    const CommandResult fog = runOvik({"set", package, space + "fog.near", "25"}, {"OVIK_LANGUAGE=en"});
    ASSERT_EQ(fog.status, 0) << fog.err;
    EXPECT_EQ(fog.out, "Change Fog start\n");
    EXPECT_EQ(runOvik({"get", package, space + "fog.near"}).out, "25\n");
    EXPECT_EQ(runOvik({"set", package, space + "objects.0.material.roughness", "0.3"}).status, 0);
    EXPECT_EQ(runOvik({"get", package, space + "objects.0.material.roughness"}).out, "0.3\n");
    EXPECT_EQ(runOvik({"get", package, space + "objects.0.material.metalness"}).out, "0\n");
    EXPECT_EQ(FileDraftStore::readDraft(package).sections[0].space->compact(),
              R"({"fog":{"near":25},"fov":40,"objects":[{"material":{"roughness":0.3,"type":"MeshStandardMaterial"},"type":"Mesh"}]})");

    const std::string before = draftBytes(package);
    const CommandResult wide = runOvik({"set", package, space + "fov", "200"}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(wide.status, 1);
    EXPECT_NE(wide.err.find("takes 1 to 179, but got 200"), std::string::npos) << wide.err;
    const CommandResult bare = runOvik({"set", package, space + "material.roughness", "0.3"}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(bare.status, 1);
    EXPECT_NE(bare.err.find("give a node such as objects.0"), std::string::npos) << bare.err;
    EXPECT_EQ(draftBytes(package), before);
}

TEST(PropertyCommands, StateEvaluatesTheObjectAtAMoment) {
    const std::string package = OVIK_EXAMPLES "/animation.ovikwork";
    const CommandResult fading = runOvik({"state", package, "文字 1", "--at", "250000", "--json"});
    ASSERT_EQ(fading.status, 0) << fading.err;
    EXPECT_NE(fading.out.find("\"opacity\":0.5,"), std::string::npos) << fading.out;
    const CommandResult moving = runOvik({"state", package, "椭圆 1", "--at", "2000000", "--json"});
    EXPECT_NE(moving.out.find("\"offset\":[200,0]"), std::string::npos) << moving.out;
    EXPECT_EQ(moving.out.find("\"color\""), std::string::npos); // absent fields are left out
    const CommandResult readable = runOvik({"state", package, "椭圆 1", "--at", "3000000"});
    EXPECT_NE(readable.out.find("offset        [400,0]\n"), std::string::npos) << readable.out;
    const CommandResult missing = runOvik({"state", package, "Nobody", "--at", "0"}, {"OVIK_LANGUAGE=en"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("Nobody"), std::string::npos);
}

} // namespace
} // namespace ovik::testing
