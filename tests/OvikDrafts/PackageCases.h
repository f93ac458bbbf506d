#pragma once
// Packages that each try one way in or out of their folder: the table every host that opens a
// package (the store, the thumbnail path, the commands) is held to alike.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "OvikPlatform/codecs/PNGCodec.h"

namespace ovik::testing {

struct PackageCase {
    const char* name;
    std::string image;               // the picture the draft names
    const char* link = nullptr;      // made in the package, leading to `target`
    const char* target = nullptr;    // none: `link` is a FIFO
    const char* refusal = nullptr;   // the message key, when the package is refused
    std::string refused{};           // the path the message names
    const char* prefix = "";         // what the message begins with
};

inline const PackageCase packageCases[] = {
    {"a .. that stays inside", "media/../media/a.png"},
    {"a .. that leaves", "media/../../a.png", nullptr, nullptr, "drafts.path.outside", "media/../../a.png"},
    {"an absolute path", "/a.png", nullptr, nullptr, "drafts.path.absolute", "/a.png"},
    {"the package itself", ".", nullptr, nullptr, "drafts.path.outside", "."},
    {"a link inside", "media/b.png", "media/b.png", "a.png"},
    {"a link out", "media/b.png", "media/b.png", "../../a.png", "drafts.path.outside", "media/b.png"},
    {"a link out and back in", "media/up/A.ovikwork/media/a.png", "media/up", "../.."},
    {"a link to a sibling named alike", "media/b.png", "media/b.png", "../../A.ovikwork2/a.png", "drafts.path.outside",
     "media/b.png"},
    {"draft.json linked inside", "media/a.png", "draft.json", "kept/draft.json"},
    {"draft.json linked out", "media/a.png", "draft.json", "../elsewhere.json", "drafts.path.outside", "draft.json"},
    {"draft.json a FIFO", "media/a.png", "draft.json", nullptr, "drafts.files.notAFile", "draft.json", "A: "},
};

/// `folder`/A.ovikwork made for the case; a picture and a sound draft also lie outside it.
inline std::filesystem::path makePackage(const std::filesystem::path& folder, const PackageCase& c) {
    namespace fs = std::filesystem;
    const fs::path package = folder / "A.ovikwork";
    fs::create_directories(package / "media"), fs::create_directories(package / "kept");
    const std::string draft =
        R"({"schema":8,"id":"6F1C2B9A-0D4E-4B7A-9C3E-2A1B0C9D8E7F","name":"n","createdAt":0,"kept":false,"edited":false,)"
        R"("style":{"aspect":"free","background":"none","cornerRadius":0,"deviceFrame":"none","padding":0,"shadow":0},)"
        R"("sections":[{"id":"00000000-0000-0000-0000-00000000000C","media":"00000000-0000-0000-0000-00000000000A",)"
        R"("stillDuration":1000000}],"media":[{"id":"00000000-0000-0000-0000-00000000000A","source":{"screenshot":)"
        R"({"colorSpaceName":"sRGB","pixelSize":{"height":1,"width":1},"scale":1,"image":")" + c.image + R"("}}}]})";
    std::ofstream(package / "media/a.png") << PNGCodec::encode(CGImage(1, 1, 4, {200, 40, 40, 255}));
    fs::copy_file(package / "media/a.png", folder / "a.png");
    for (const fs::path& file : {package / "draft.json", package / "kept/draft.json", folder / "elsewhere.json"})
        std::ofstream(file) << draft;
    if (!c.link) return package;
    fs::remove(package / c.link);
    if (c.target) fs::create_symlink(c.target, package / c.link);
    else ::mkfifo((package / c.link).c_str(), 0600);
    return package;
}

} // namespace ovik::testing
