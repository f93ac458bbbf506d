#pragma once
// The names inside a draft package, and the one way the store makes folders for output: it
// never creates a package, neither as the target nor as a missing parent.
#include <filesystem>
#include <string_view>

#include "OvikModel/PackagePath.h"
#include "OvikModel/values/Identifier.h"

namespace ovik::DraftPackage {

inline constexpr std::string_view fileExtension = "ovikwork";
inline constexpr std::string_view draftFileName = "draft.json";
inline constexpr std::string_view mediaFolder = "media";
inline constexpr std::string_view eventsFolder = "events";
inline constexpr std::string_view assetsFolder = "assets";
inline constexpr std::string_view rendersFolder = "renders";
inline constexpr std::string_view screenshotPath = "media/screenshot.png";
inline constexpr std::string_view eventsPath = "events/events.json";
/// The store's index, in its root folder beside the packages.
inline constexpr std::string_view indexFileName = ".ovik-index.json";

/// "media/" + the id's text: the folder of a further media of a draft.
PackagePath mediaFolderFor(const MediaID& id);
/// "media/" + the id's text + "/screenshot.png".
PackagePath screenshotPathFor(const MediaID& id);
/// "media/" + the id's text + "/events.json".
PackagePath eventsPathFor(const MediaID& id);

/// Makes `url` and its missing parents as folders. A path that is, or leads through, a
/// package that isn't there fails with `PosixError` (ENOENT) and creates nothing.
void createOutputDirectory(const std::filesystem::path& url);

} // namespace ovik::DraftPackage
