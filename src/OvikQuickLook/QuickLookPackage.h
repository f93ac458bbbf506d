#pragma once
// A package opened for a thumbnail: its resolved root and its decoded draft. It opens the way
// the store does, with this path's own containment test by text: a package whose draft file,
// or any file its draft refers to, leads outside (through "..", an absolute path or a link) is
// refused; the files themselves need not exist.
#include <filesystem>
#include <optional>
#include <string>

#include "OvikModel/DraftDocument.h"
#include "OvikModel/keys/RenderKey.h"

namespace ovik {

struct QuickLookPackage {
    /// Standardized, with its links resolved.
    std::filesystem::path root;
    DraftDocument document;

    /// Throws `QuickLookFailure` for a missing folder, an unreadable or outside draft file, a
    /// draft that doesn't decode, and a draft path that leads outside.
    static QuickLookPackage open(const std::filesystem::path& url);

    /// The first kept render in `renders/<key>/` with the extension (any case) and, when given,
    /// exactly that file name: not hidden, not empty, and inside the package.
    std::optional<std::filesystem::path> render(const RenderKey& key, std::string_view fileExtension,
                                                const std::optional<std::string>& fileName) const;

    /// Whether `url`, standardized and resolved, lies below the already resolved `root`: its
    /// text begins with the root's text and "/", so the folder itself is not inside.
    static bool isInside(const std::filesystem::path& url, const std::filesystem::path& root);
};

} // namespace ovik
